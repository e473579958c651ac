#include "Clipboard/preferences/ApplicationChooser.h"

#include "Clipboard/preferences/InstalledApplicationsModel.h"
#include "looks/PaneParts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

namespace {

constexpr QSize kSize(380, 440);

QString bundleFileName(const InstalledApplication &application)
{
    return application.name + QStringLiteral(".app");
}

} // namespace

ApplicationChooser::ApplicationChooser(InstalledApplications &applications, QWidget *parent)
    : QDialog(parent), m_applications(applications),
      m_model(new InstalledApplicationsModel(applications, this)),
      m_filtered(new QSortFilterProxyModel(this)), m_filter(new QLineEdit), m_list(new QListView),
      m_note(new PaneNote), m_other(new QPushButton(tr("&Other…"))),
      m_cancel(new QPushButton(tr("Cancel"))), m_choose(new QPushButton(tr("&Choose")))
{
    setWindowTitle(tr("Choose Application"));
    setSizeGripEnabled(false);
    m_filtered->setSourceModel(m_model);
    m_filtered->setFilterCaseSensitivity(Qt::CaseInsensitive);

    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setAccessibleName(tr("Filter applications"));
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    m_list->setAccessibleName(tr("Applications"));
    m_list->setModel(m_filtered);
    m_list->setUniformItemSizes(true);
    m_list->setIconSize({24, 24});
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_note->hide();
    m_choose->setDefault(true);
    m_other->setAutoDefault(false);
    layOut();
    resize(kSize);

    connect(m_filter, &QLineEdit::textChanged, this, &ApplicationChooser::filterChanged);
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ApplicationChooser::selectionChanged);
    connect(m_list, &QListView::doubleClicked, this, &ApplicationChooser::chooseSelected);
    connect(m_choose, &QPushButton::clicked, this, &ApplicationChooser::chooseSelected);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_other, &QPushButton::clicked, this, &ApplicationChooser::openFileDialog);
    filterChanged({});
}

ApplicationChooser::~ApplicationChooser() = default;

void ApplicationChooser::chooseFile(const QString &path)
{
    if (const auto application = m_applications.applicationAtPath(path)) {
        choose(*application);
        return;
    }
    m_note->setText(tr("“%1” is not an application.").arg(QFileInfo(path).fileName()));
    m_note->show();
}

void ApplicationChooser::done(int result)
{
    const bool wasOpen = isVisible();
    QDialog::done(result);
    if (wasOpen)
        Q_EMIT ended(result == Accepted, bundleFileName(m_choice), m_choice.path);
}

bool ApplicationChooser::eventFilter(QObject *watched, QEvent *event)
{
    // The keys that move in the list do so while the filter has the focus.
    if (watched == m_filter && event->type() == QEvent::KeyPress) {
        const auto &press = static_cast<QKeyEvent &>(*event);
        switch (press.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(m_list, event);
            return true;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void ApplicationChooser::layOut()
{
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_other);
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    buttons->addWidget(m_choose);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(10);
    column->addWidget(m_filter);
    column->addWidget(m_list, 1);
    column->addWidget(m_note);
    column->addLayout(buttons);
}

void ApplicationChooser::filterChanged(const QString &text)
{
    m_filtered->setFilterFixedString(text.trimmed());
    m_list->setCurrentIndex(m_filtered->index(0, 0));
    selectionChanged();
}

void ApplicationChooser::selectionChanged()
{
    m_choose->setEnabled(m_list->currentIndex().isValid());
    m_note->hide();
}

void ApplicationChooser::chooseSelected()
{
    const QModelIndex selected = m_filtered->mapToSource(m_list->currentIndex());
    if (selected.isValid())
        choose(m_model->at(selected.row()));
}

void ApplicationChooser::choose(const InstalledApplication &application)
{
    m_choice = application;
    accept();
}

void ApplicationChooser::openFileDialog()
{
    if (!m_fileDialog) {
        m_fileDialog = new QFileDialog(this, windowTitle(), QDir::homePath());
        m_fileDialog->setFileMode(QFileDialog::ExistingFile);
        // Ours and not the desktop's own, which may offer to create folders.
        m_fileDialog->setOption(QFileDialog::DontUseNativeDialog);
        m_fileDialog->setOption(QFileDialog::ReadOnly);
        m_fileDialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_fileDialog, &QFileDialog::fileSelected, this, &ApplicationChooser::chooseFile);
    }
    m_fileDialog->show();
    m_fileDialog->raise();
    m_fileDialog->activateWindow();
}
