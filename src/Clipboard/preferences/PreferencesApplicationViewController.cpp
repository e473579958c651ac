#include "Clipboard/preferences/PreferencesApplicationViewController.h"

#include "Clipboard/preferences/ApplicationChooser.h"
#include "Clipboard/preferences/ApplicationsPaneView.h"
#include "looks/WindowIcons.h"
#include "platform/KeyedArchive.h"
#include "platform/SettingsStore.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>

namespace {

/// Absent when the bytes are no archive of ignored applications.
std::optional<QList<ApplicationDef>> decoded(const QByteArray &stored)
{
    const auto objects = KeyedArchive::unarchiveArray(stored);
    if (!objects)
        return std::nullopt;
    QList<ApplicationDef> list;
    for (const ArchivedObject &object : *objects) {
        const auto application = ApplicationDef::decode(object);
        if (!application)
            return std::nullopt;
        list.append(*application);
    }
    return list;
}

} // namespace

PreferencesApplicationViewController::PreferencesApplicationViewController(
    SettingsStore &settings, InstalledApplications &installedApplications, Workspace &workspace)
    : m_settings(settings), m_installedApplications(installedApplications),
      m_model(m_data, workspace)
{
}

PreferencesApplicationViewController::~PreferencesApplicationViewController()
{
    // The last events of a table that is being taken apart are no key presses for us.
    if (m_view)
        m_view->table->removeEventFilter(this);
}

void PreferencesApplicationViewController::loadPreferences()
{
    if (!m_settings.contains(preferenceKey))
        return;
    const auto list = decoded(m_settings.value(preferenceKey).toByteArray());
    if (!list)
        qFatal("The list of ignored applications under \"%s\" in %s cannot be read; "
               "nothing was changed there",
               qUtf8Printable(preferenceKey), qUtf8Printable(m_settings.location()));
    m_data = *list;
    listChanged();
}

void PreferencesApplicationViewController::savePreferences()
{
    QList<ArchivedObject> objects;
    for (const ApplicationDef &application : std::as_const(m_data))
        objects.append(application.encode());
    m_settings.setValue(preferenceKey, KeyedArchive::archive(objects));
}

void PreferencesApplicationViewController::addApplication()
{
    if (!m_chooser) {
        m_chooser = new ApplicationChooser(m_installedApplications, view()->window());
        m_chooser->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_chooser, &ApplicationChooser::ended, this,
                &PreferencesApplicationViewController::openPanelEnded);
    }
    m_chooser->show();
    m_chooser->raise();
    m_chooser->activateWindow();
}

void PreferencesApplicationViewController::openPanelEnded(bool isOk, const QString &bundleFileName,
                                                          const QString &path)
{
    const qsizetype dot = bundleFileName.lastIndexOf(u'.');
    if (isOk && dot >= 0)
        append({bundleFileName.left(dot), path});
}

void PreferencesApplicationViewController::removeApplication()
{
    const int row = selectedRow();
    if (row < 0 || row >= m_data.size())
        return;
    m_data.removeAt(row);
    listChanged();
    savePreferences();
    // The next row takes its place, so that several can be removed in a row.
    if (!m_data.isEmpty())
        tableView->selectRow(std::min(row, numberOfRowsInTableView() - 1));
}

/// The table's current row is another matter: it has one from the moment that it has the keyboard.
int PreferencesApplicationViewController::selectedRow() const
{
    const QItemSelectionModel *selection = tableView ? tableView->selectionModel() : nullptr;
    const QModelIndexList rows = selection ? selection->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? -1 : rows.first().row();
}

ApplicationChooser *PreferencesApplicationViewController::chooser() const
{
    return m_chooser;
}

QString PreferencesApplicationViewController::preferenceIdentifier() const
{
    return QStringLiteral("ApplicationPreferencesIdentifier");
}

QIcon PreferencesApplicationViewController::preferenceIcon() const
{
    // The General pane's icon too, deliberately.
    return WindowIcons::preferences();
}

QWidget *PreferencesApplicationViewController::view()
{
    if (!m_view)
        loadView();
    return m_view.get();
}

bool PreferencesApplicationViewController::eventFilter(QObject *watched, QEvent *event)
{
    if (tableView && watched == tableView && event->type() == QEvent::KeyPress) {
        const int key = static_cast<const QKeyEvent &>(*event).key();
        if (key == Qt::Key_Delete || key == Qt::Key_Backspace) {
            removeApplication();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void PreferencesApplicationViewController::loadView()
{
    m_view = std::make_unique<ApplicationsPaneView>(static_cast<int>(kRowHeight));
    tableView = m_view->table;
    m_view->table->setModel(&m_model);
    m_view->table->installEventFilter(this);
    connect(m_view->add, &QToolButton::clicked, this,
            &PreferencesApplicationViewController::addApplication);
    connect(m_view->remove, &QToolButton::clicked, this,
            &PreferencesApplicationViewController::removeApplication);
    connect(m_view->suggest, &QPushButton::clicked, this,
            &PreferencesApplicationViewController::addSuggestions);
    connect(m_view->table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PreferencesApplicationViewController::selectionChanged);
    // What is installed is asked when somebody looks, not at start.
    connect(m_view.get(), &ApplicationsPaneView::appeared, this,
            &PreferencesApplicationViewController::offerSuggestions);
    listChanged();
}

void PreferencesApplicationViewController::listChanged()
{
    m_model.reloadData();
    if (!m_view)
        return;
    selectionChanged();
    offerSuggestions();
}

void PreferencesApplicationViewController::selectionChanged()
{
    m_view->remove->setEnabled(selectedRow() >= 0);
}

void PreferencesApplicationViewController::offerSuggestions()
{
    m_suggestions.clear();
    if (!m_data.isEmpty()) {
        m_view->hideEmptyState();
        return;
    }
    if (m_view->isVisible()) {
        for (const InstalledApplication &application : m_installedApplications.applications()) {
            if (application.isPasswordManager)
                m_suggestions.append(application);
        }
    }
    QStringList names;
    for (const InstalledApplication &application : std::as_const(m_suggestions))
        names.append(application.name);
    m_view->showEmptyState(names);
}

void PreferencesApplicationViewController::addSuggestions()
{
    const auto suggestions = m_suggestions;
    for (const InstalledApplication &application : suggestions)
        append({application.name, application.path});
}

void PreferencesApplicationViewController::append(const ApplicationDef &application)
{
    // Names and not paths identify entries: capture compares names.
    const bool isKnown =
        std::any_of(m_data.cbegin(), m_data.cend(),
                    [&](const ApplicationDef &known) { return known.name == application.name; });
    if (isKnown)
        return;
    m_data.append(application);
    listChanged();
    savePreferences();
}
