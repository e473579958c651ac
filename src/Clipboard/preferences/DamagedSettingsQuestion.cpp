#include "Clipboard/preferences/DamagedSettingsQuestion.h"

#include "platform/SettingsStore.h"

#include <QPushButton>

DamagedSettingsQuestion::DamagedSettingsQuestion(SettingsStore &settings)
    : QMessageBox(QMessageBox::Warning, QStringLiteral("Quillmarsh"),
                  tr("Your settings could not be read"), QMessageBox::NoButton)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setInformativeText(
        tr("They were set aside beside %1. The list of ignored applications was among them, so "
           "nothing is recorded until you decide.")
            .arg(settings.location()));
    const QAbstractButton *fresh =
        addButton(tr("Start with fresh settings"), QMessageBox::AcceptRole);
    addButton(tr("Quit"), QMessageBox::RejectRole);
    connect(this, &QMessageBox::buttonClicked, this,
            [this, &settings, fresh](const QAbstractButton *clicked) {
                if (clicked == fresh)
                    settings.acceptFreshSettings();
                else
                    Q_EMIT quitChosen();
            });
}
