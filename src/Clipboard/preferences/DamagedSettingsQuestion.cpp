#include "Clipboard/preferences/DamagedSettingsQuestion.h"

#include "platform/SettingsStore.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QWindow>

DamagedSettingsQuestion::DamagedSettingsQuestion(SettingsStore &settings)
    : QMessageBox(QMessageBox::Warning, QStringLiteral("Quillmarsh"),
                  tr("Your settings could not be read"), QMessageBox::NoButton)
{
    setWindowTitle(tr("Damaged Settings"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowModality(Qt::NonModal);
    setInformativeText(
        tr("They were set aside beside %1. The list of ignored applications was among them, so "
           "nothing is recorded until you decide.")
            .arg(settings.location()));
    const QAbstractButton *fresh =
        addButton(tr("Start with fresh settings"), QMessageBox::AcceptRole);
    addButton(tr("Quit"), QMessageBox::RejectRole);
    connect(this, &QMessageBox::buttonClicked, this,
            [this, &settings, fresh](const QAbstractButton *clicked) {
                if (clicked != fresh) {
                    Q_EMIT quitChosen();
                    return;
                }
                settings.acceptFreshSettings();
                Q_EMIT freshSettingsChosen();
            });
}

void DamagedSettingsQuestion::ask(QWindow *window)
{
    winId();
    if (windowHandle()->transientParent() != window) {
        // Window managers look at it when a window is shown.
        hide();
        windowHandle()->setTransientParent(window);
    }
    show();
    raise();
}

QString DamagedSettingsQuestion::notice()
{
    return tr("Nothing is recorded: your settings could not be read, and the list of ignored "
              "applications was among them. Answer the question about them first.");
}

void DamagedSettingsQuestion::keyPressEvent(QKeyEvent *event)
{
    // It would press the button that ends the program.
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QMessageBox::keyPressEvent(event);
}
