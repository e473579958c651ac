#include "Clipboard/welcome/WelcomePage1Controller.h"

#include "Clipboard/settings/ConsentWords.h"
#include "Clipboard/welcome/RecordPicture.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

WelcomePage1Controller::WelcomePage1Controller()
    : WelcomePage(new RecordPicture, tr("Everything you copy, at hand"),
                  tr("Quillmarsh keeps each text and each file you copy, and pastes any of them "
                     "again wherever you are typing.")),
      openAtLogin(new QCheckBox(tr("Open Quillmarsh at &login"))),
      checkForUpdates(new QCheckBox(tr("Check for &updates"))),
      ask(new QCheckBox(tr("Have the &desktop ask when I go on"))), moveIn(new QCheckBox),
      m_question(new QLabel(ConsentWords::explanation()))
{
    openAtLogin->setAccessibleName(tr("Open at login"));
    checkForUpdates->setAccessibleName(tr("Check for updates"));
    auto *choices = new QHBoxLayout;
    choices->setSpacing(28);
    choices->addWidget(openAtLogin);
    choices->addWidget(checkForUpdates);
    choices->addStretch();
    auto *all = new QVBoxLayout;
    all->setSpacing(8);
    all->addLayout(choices);
    all->addWidget(m_question);
    all->addWidget(ask, 0, Qt::AlignLeft);
    all->addWidget(moveIn, 0, Qt::AlignLeft);
    addBelow(all);
    m_question->setWordWrap(true);
    ask->setChecked(true);
    offerToAsk(false);
    moveIn->hide();
}

void WelcomePage1Controller::setColors(const ClipColors &colors)
{
    WelcomePage::setColors(colors);
    // The page is darker than the windows that a dark desktop's style draws its boxes for.
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, colors.quietText);
    palette.setColor(QPalette::Base, colors.isDark ? colors.control : colors.paper);
    openAtLogin->setPalette(palette);
    checkForUpdates->setPalette(palette);
    ask->setPalette(palette);
    moveIn->setPalette(palette);
    palette.setColor(QPalette::WindowText, colors.quietText);
    m_question->setPalette(palette);
}

void WelcomePage1Controller::offerToAsk(bool isOffered)
{
    m_question->setVisible(isOffered);
    ask->setVisible(isOffered);
}
