#include "Clipboard/preferences/PreferencesApplicationViewController.h"

#include "Clipboard/preferences/ApplicationsPaneView.h"
#include "Clipboard/preferences/PaneParts.h"
#include "platform/KeyedArchive.h"
#include "platform/Platform.h"

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

PreferencesApplicationViewController::PreferencesApplicationViewController(Platform &platform)
    : m_platform(platform), m_model(m_data, *platform.workspace)
{
}

PreferencesApplicationViewController::~PreferencesApplicationViewController() = default;

void PreferencesApplicationViewController::loadPreferences()
{
    const SettingsStore &settings = *m_platform.settings;
    if (!settings.contains(preferenceKey))
        return;
    const auto list = decoded(settings.value(preferenceKey).toByteArray());
    if (!list)
        qFatal("The list of ignored applications under \"%s\" in %s cannot be read; "
               "nothing was changed there",
               qUtf8Printable(preferenceKey), qUtf8Printable(settings.location()));
    m_data = *list;
    listChanged();
}

void PreferencesApplicationViewController::savePreferences()
{
    QList<ArchivedObject> objects;
    for (const ApplicationDef &application : std::as_const(m_data))
        objects.append(application.encode());
    m_platform.settings->setValue(preferenceKey, KeyedArchive::archive(objects));
}

void PreferencesApplicationViewController::addApplication() {}

void PreferencesApplicationViewController::openPanelEnded(bool isOk, const QString &bundleFileName,
                                                          const QString &path)
{
    const qsizetype dot = bundleFileName.lastIndexOf(u'.');
    if (!isOk || dot < 0)
        return;
    const QString name = bundleFileName.left(dot);
    // Names and not paths identify entries: capture compares names.
    const bool isKnown =
        std::any_of(m_data.cbegin(), m_data.cend(),
                    [&](const ApplicationDef &known) { return known.name == name; });
    if (isKnown)
        return;
    m_data.append({name, path});
    listChanged();
    savePreferences();
}

void PreferencesApplicationViewController::removeApplication()
{
    const int row = tableView ? tableView->currentIndex().row() : -1;
    if (row < 0 || row >= m_data.size())
        return;
    m_data.removeAt(row);
    listChanged();
    savePreferences();
}

QString PreferencesApplicationViewController::preferenceIdentifier() const
{
    return QStringLiteral("ApplicationPreferencesIdentifier");
}

QString PreferencesApplicationViewController::preferenceTitle() const
{
    return tr("Applications");
}

QIcon PreferencesApplicationViewController::preferenceIcon() const
{
    // The General pane's icon too, deliberately.
    return generalPreferencesIcon();
}

QWidget *PreferencesApplicationViewController::view()
{
    if (!m_view)
        loadView();
    return m_view.get();
}

void PreferencesApplicationViewController::loadView()
{
    m_view = std::make_unique<ApplicationsPaneView>(static_cast<int>(kRowHeight));
    tableView = m_view->table;
    m_view->table->setModel(&m_model);
    connect(m_view->add, &QToolButton::clicked, this,
            &PreferencesApplicationViewController::addApplication);
    connect(m_view->remove, &QToolButton::clicked, this,
            &PreferencesApplicationViewController::removeApplication);
}

void PreferencesApplicationViewController::listChanged()
{
    m_model.reloadData();
}
