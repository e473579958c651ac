#include "Clipboard/welcome/WelcomePage1Controller.h"

#include "Clipboard/welcome/RecordPicture.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

WelcomePage1Controller::WelcomePage1Controller()
    : WelcomePage(new RecordPicture, tr("Everything you copy, at hand"),
                  tr("Quillmarsh keeps each text and each file you copy, and pastes any of them "
                     "again wherever you are typing.")),
      openAtLogin(new QCheckBox(tr("Open Quillmarsh at &login"))),
      checkForUpdates(new QCheckBox(tr("Check for &updates")))
{
    openAtLogin->setAccessibleName(tr("Open at login"));
    checkForUpdates->setAccessibleName(tr("Check for updates"));
    auto *choices = new QHBoxLayout;
    choices->setSpacing(28);
    choices->addWidget(openAtLogin);
    choices->addWidget(checkForUpdates);
    choices->addStretch();
    column()->addSpacing(6);
    column()->addLayout(choices);
}
