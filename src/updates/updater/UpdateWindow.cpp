#include "updates/updater/UpdateWindow.h"

#include "looks/Looks.h"
#include "looks/PaneParts.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kMinWidth = 480;
constexpr int kCharactersAcross = 66;
constexpr int kMargin = Looks::kPageMargin;
constexpr int kIconExtent = 56;
constexpr int kNoteLines = 9;
constexpr int kProgressSteps = 1000;

} // namespace

UpdateWindow::UpdateWindow(const QString &appName, QWidget *parent)
    : QDialog(parent), m_appName(appName), m_icon(new QLabel(this)),
      m_headline(makeWrappedLabel({}, this)), m_text(makeWrappedLabel({}, this)),
      m_notes(new QPlainTextEdit(this)), m_command(new QLineEdit(this)),
      m_progress(new QProgressBar(this)),
      m_automatic(new QCheckBox(tr("Look for updates once a &day"), this)),
      m_skip(new QPushButton(tr("&Skip This Version"), this)),
      m_later(new QPushButton(tr("&Later"), this)), m_cancel(new QPushButton(tr("Cancel"), this)),
      m_close(new QPushButton(tr("Close"), this)), m_install(new QPushButton(tr("&Install"), this))
{
    setWindowTitle(tr("Software Update"));
    setSizeGripEnabled(false);
    m_headline->setFont(Looks::scaled(m_headline->font(), Looks::kLargeScale, QFont::Bold));
    m_icon->setPixmap(QGuiApplication::windowIcon().pixmap(kIconExtent));
    m_notes->setReadOnly(true);
    m_notes->setTabChangesFocus(true);
    m_notes->setAccessibleName(tr("Release notes"));
    m_notes->setFixedHeight(kNoteLines * m_notes->fontMetrics().lineSpacing());
    m_command->setReadOnly(true);
    m_command->setAccessibleName(tr("Command"));
    m_progress->setTextVisible(false);
    m_progress->setAccessibleName(tr("Progress"));
    layOut();

    connect(m_install, &QPushButton::clicked, this, &UpdateWindow::installChosen);
    connect(m_skip, &QPushButton::clicked, this, &UpdateWindow::skipChosen);
    for (const QPushButton *button : {m_later, m_cancel, m_close})
        connect(button, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::rejected, this, &UpdateWindow::dismissed);
    connect(m_automatic, &QCheckBox::clicked, this, &UpdateWindow::automaticChosen);
}

void UpdateWindow::layOut()
{
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_skip);
    buttons->addStretch();
    for (QPushButton *button : {m_later, m_cancel, m_close, m_install})
        buttons->addWidget(button);

    auto *column = new QVBoxLayout;
    column->setSpacing(10);
    column->addWidget(m_headline);
    column->addWidget(m_text);
    column->addWidget(m_notes);
    column->addWidget(m_command);
    column->addWidget(m_progress);
    column->addWidget(m_automatic);
    column->addStretch();
    column->addLayout(buttons);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin - 4);
    row->setSpacing(kMargin);
    // The window is given its size for each state; a layout of its own would forget wrapped lines.
    row->setSizeConstraint(QLayout::SetNoConstraint);
    row->addWidget(m_icon, 0, Qt::AlignTop);
    row->addLayout(column, 1);
}

void UpdateWindow::begin(const QString &headline, const QString &text)
{
    m_headline->setText(headline);
    m_text->setText(text);
    m_text->setVisible(!text.isEmpty());
    for (QWidget *widget :
         std::initializer_list<QWidget *>{m_notes, m_command, m_progress, m_automatic})
        widget->hide();
    setAccessibleDescription(headline + u' ' + text);
}

void UpdateWindow::offer(QPushButton *defaultButton, std::initializer_list<QPushButton *> buttons)
{
    for (QPushButton *button : {m_skip, m_later, m_cancel, m_close, m_install})
        button->setVisible(std::find(buttons.begin(), buttons.end(), button) != buttons.end());
    defaultButton->setDefault(true);
    defaultButton->setFocus();
    const int width = qMax(kMinWidth, kCharactersAcross * fontMetrics().averageCharWidth());
    // Also the column inside, which may still think that nothing in it wraps.
    layout()->invalidate();
    layout()->activate();
    setFixedSize(width, layout()->totalHeightForWidth(width));
}

void UpdateWindow::showChecking()
{
    begin(tr("Looking for updates…"), {});
    m_progress->setRange(0, 0);
    m_progress->show();
    offer(m_cancel, {m_cancel});
}

void UpdateWindow::showUpToDate(const QString &version)
{
    begin(tr("You have the newest version"), tr("%1 %2 is up to date.").arg(m_appName, version));
    m_automatic->setVisible(m_hasAutomatic);
    offer(m_close, {m_close});
}

void UpdateWindow::showNeedsNewerSystem(const QString &version, const QString &installedVersion)
{
    begin(tr("Version %1 needs a newer system").arg(version),
          tr("%1 %2 is the newest version that this system can run.")
              .arg(m_appName, installedVersion));
    m_automatic->setVisible(m_hasAutomatic);
    offer(m_close, {m_close});
}

void UpdateWindow::showFound(const QString &version, const QString &installedVersion,
                             const QString &notes)
{
    begin(tr("%1 %2 is available").arg(m_appName, version),
          tr("You have version %1. %2 restarts when the update is installed; your history and your "
             "settings stay as they are.")
              .arg(installedVersion, m_appName));
    m_notes->setPlainText(notes);
    m_notes->setVisible(!notes.isEmpty());
    m_automatic->setVisible(m_hasAutomatic);
    offer(m_install, {m_skip, m_later, m_install});
}

void UpdateWindow::showDownloading(qint64 done, qint64 size)
{
    const bool isGoingOn = !m_progress->isHidden() && m_progress->maximum() == kProgressSteps;
    const QLocale locale;
    const QString amount =
        tr("%1 of %2").arg(locale.formattedDataSize(done), locale.formattedDataSize(size));
    if (isGoingOn)
        m_text->setText(amount);
    else
        begin(tr("Downloading the update"), amount);
    m_progress->setRange(0, kProgressSteps);
    m_progress->setValue(size > 0 ? static_cast<int>(done * kProgressSteps / size) : 0);
    m_progress->show();
    if (!isGoingOn)
        offer(m_cancel, {m_cancel});
}

void UpdateWindow::showInstalling()
{
    begin(tr("Installing the update"), tr("Its signature is checked first."));
    m_progress->setRange(0, 0);
    m_progress->show();
    offer(m_cancel, {m_cancel});
}

void UpdateWindow::showInstalled()
{
    begin(tr("The update is installed"), tr("%1 uses it from its next start.").arg(m_appName));
    offer(m_close, {m_close});
}

void UpdateWindow::showProblem(const QString &reason)
{
    begin(tr("%1 could not be updated").arg(m_appName), reason);
    m_automatic->setVisible(m_hasAutomatic);
    offer(m_close, {m_close});
}

void UpdateWindow::showElsewhere(const QString &explanation, const QString &command)
{
    begin(tr("%1 does not update itself here").arg(m_appName), explanation);
    m_command->setText(command);
    m_command->setCursorPosition(0);
    m_command->setVisible(!command.isEmpty());
    offer(m_close, {m_close});
}

void UpdateWindow::setAutomatic(bool isAutomatic)
{
    m_hasAutomatic = true;
    m_automatic->setChecked(isAutomatic);
}
