#include "Clipboard/welcome/WelcomeWindowController.h"

#include "Clipboard/settings/GlobalShortcuts.h"
#include "Clipboard/settings/SettingsKeys.h"
#include "Clipboard/welcome/PageIndicator.h"
#include "Clipboard/welcome/WelcomeActions.h"
#include "Clipboard/welcome/WelcomePage1Controller.h"
#include "Clipboard/welcome/WelcomePages.h"
#include "Clipboard/welcome/WelcomeWindow.h"
#include "Clipboard/welcome/WelcomeWindowView.h"
#include "looks/ClipColors.h"
#include "looks/PaneButton.h"
#include "platform/Consent.h"
#include "platform/FrontApplication.h"
#include "platform/PointerScreen.h"
#include "platform/SettingsStore.h"
#include "platform/WindowSpace.h"

#include <QCheckBox>
#include <QLabel>
#include <QShortcut>
#include <QToolButton>

namespace {

constexpr int kLastPage = WelcomeWindowView::kPages - 1;

} // namespace

WelcomeWindowController::WelcomeWindowController(WelcomeActions &appDelegate,
                                                 const SettingsStore &settings,
                                                 WindowSpace &windowSpace,
                                                 FrontApplication &frontApplication,
                                                 Consent &consent, const QString &storeFolder)
    : m_appDelegate(appDelegate), m_settings(settings), m_windowSpace(windowSpace),
      m_frontApplication(frontApplication), m_consent(consent), m_storeFolder(storeFolder)
{
}

WelcomeWindowController::~WelcomeWindowController() = default;

void WelcomeWindowController::showWelcomeWindow()
{
    if (isModal()) {
        bringToFront();
        return;
    }
    loadWindow();
    m_page1->openAtLogin->setChecked(m_settings.boolForKey(SettingsKeys::kOpenAtLogin));
    showShortcuts();
    showPage(0, PageSlider::Movement::None);
    bringToFront();
    // What is not shown yet does not know the height that its words need.
    offerToAsk();
    m_session.run(*m_window);
    m_window->update();
    // Deliberately also when the session ended because the window was closed: the next press of
    // the shortcut then shows the welcome again, or closes a closed window.
    m_isWindowOpen = true;
}

void WelcomeWindowController::loadWindow()
{
    if (m_window)
        return;
    m_window = std::make_unique<WelcomeWindow>(m_windowSpace);
    m_view = new WelcomeWindowView(m_window.get());
    m_page1 = new WelcomePage1Controller;
    auto [page2, setOpenKeys] = WelcomePages::makePage2();
    auto [page3, setSwopKeys] = WelcomePages::makePage3();
    m_setOpenKeys = setOpenKeys;
    m_setSwopKeys = setSwopKeys;
    m_viewControllers = {m_page1, page2.release(), page3.release(),
                         WelcomePages::makePage4(m_storeFolder).release()};
    for (WelcomePage *page : m_viewControllers)
        m_view->mainContentView->addPage(page);
    showOffer();
    applyTheme();
    m_window->setContentView(m_view);

    connect(m_window.get(), &WelcomeWindow::willClose, this,
            &WelcomeWindowController::windowWillClose);
    connect(m_window.get(), &WelcomeWindow::returnPressed, this,
            &WelcomeWindowController::returnPressed);
    connect(m_window.get(), &FramelessWindow::themeChanged, this,
            &WelcomeWindowController::applyTheme);
    connect(m_view->nextButton, &QPushButton::clicked, this, &WelcomeWindowController::nextClicked);
    connect(m_view->previousButton, &QPushButton::clicked, this,
            &WelcomeWindowController::previousClicked);
    connect(m_view->tourButton, &QPushButton::clicked, this, &WelcomeWindowController::tourClicked);
    connect(m_view->doneButton, &QPushButton::clicked, this, &WelcomeWindowController::closeWindow);
    connect(m_view->closeButton, &QToolButton::clicked, this,
            &WelcomeWindowController::closeWindow);
    // The arrows point where the pages are, which is the other way round where one reads so.
    addShortcut(Qt::Key_Left,
                [this] { m_window->isRightToLeft() ? nextClicked() : previousClicked(); });
    addShortcut(Qt::Key_Right,
                [this] { m_window->isRightToLeft() ? previousClicked() : nextClicked(); });
    addShortcut(Qt::Key_Escape, [this] { closeWindow(); });
}

void WelcomeWindowController::offerToMoveIn(const QString &line)
{
    m_offer = line;
    if (!m_window)
        return;
    showOffer();
    askForRoom();
}

void WelcomeWindowController::showOffer()
{
    m_page1->moveIn->setText(m_offer);
    m_page1->moveIn->setVisible(!m_offer.isEmpty());
}

void WelcomeWindowController::offerToAsk()
{
    m_page1->offerToAsk(m_consent.isWanted());
    m_view->mainContentView->updateGeometry();
    applyTheme();
}

void WelcomeWindowController::addShortcut(const QKeySequence &keys,
                                          const std::function<void()> &action)
{
    connect(new QShortcut(keys, m_window.get()), &QShortcut::activated, this, action);
}

void WelcomeWindowController::setPageView(QWidget *page, PageSlider::Movement movement)
{
    m_view->mainContentView->setPage(
        page, m_windowSpace.areAnimationsEnabled() ? movement : PageSlider::Movement::None);
}

void WelcomeWindowController::showPage(int index, PageSlider::Movement movement)
{
    m_currentPageIdx = index;
    setPageView(m_viewControllers.at(static_cast<size_t>(index)), movement);
    for (int page = 0; page < WelcomeWindowView::kPages; ++page)
        m_view->pageIndicators.at(static_cast<size_t>(page))->setChecked(page == index);
    const bool isLast = index == kLastPage;
    // The keyboard goes on to the button that leads on, except for those who go back by button.
    PaneButton *ahead = isLast ? m_view->doneButton : m_view->nextButton;
    ahead->show();
    if (index == 0 || !m_view->previousButton->hasFocus())
        ahead->setFocus();
    m_view->nextButton->setVisible(!isLast);
    m_view->tourButton->setVisible(isLast);
    m_view->doneButton->setVisible(isLast);
    m_view->previousButton->setVisible(index > 0);
    m_view->cmdShiftVLabel->setVisible(isLast);
}

void WelcomeWindowController::nextClicked()
{
    // Each time the first page is left, not only the first time: deliberate.
    if (m_currentPageIdx == 0)
        applyPage1();
    if (m_currentPageIdx >= kLastPage)
        return;
    showPage(m_currentPageIdx + 1, PageSlider::Movement::Forward);
    if (m_currentPageIdx != kLastPage)
        return;
    m_appDelegate.setWelcomeWindowShown();
    m_session.stop();
}

void WelcomeWindowController::previousClicked()
{
    if (m_currentPageIdx > 0)
        showPage(m_currentPageIdx - 1, PageSlider::Movement::Back);
}

void WelcomeWindowController::returnPressed()
{
    if (m_currentPageIdx == kLastPage)
        closeWindow();
    else
        nextClicked();
}

void WelcomeWindowController::applyPage1()
{
    m_appDelegate.setOpenAtLogin(m_page1->openAtLogin->isChecked());
    // Deliberately off, whatever the box shows: what is handed over is whether the check box
    // itself, not its state, equals the number 1, and a check box equals no number.
    m_appDelegate.setCheckForUpdates(false);
    if (m_page1->ask->isVisible() && m_page1->ask->isChecked())
        m_consent.ask();
    // A key presses the box for a moment first, and the page may be left meanwhile.
    const QCheckBox &moveIn = *m_page1->moveIn;
    if (m_offer.isEmpty() || moveIn.isChecked() == moveIn.isDown())
        return;
    m_offer.clear();
    showOffer();
    m_appDelegate.moveIn();
}

void WelcomeWindowController::closeWindow()
{
    m_session.stop();
    if (m_window)
        m_window->close();
    m_isWindowOpen = false;
}

void WelcomeWindowController::windowWillClose()
{
    m_isWindowOpen = false;
    m_session.stop();
    Q_EMIT closed();
}

void WelcomeWindowController::tourClicked()
{
    closeWindow();
    m_appDelegate.startTour();
}

void WelcomeWindowController::showShortcuts()
{
    const auto keysOf = [this](const QString &key) {
        const auto shortcut = GlobalShortcuts::storedShortcut(m_settings, key);
        return shortcut ? GlobalShortcuts::keyCaps(*shortcut) : QStringList();
    };
    m_setOpenKeys(keysOf(SettingsKeys::kOpenShortCut));
    m_setSwopKeys(keysOf(SettingsKeys::kSwopShortCut));
    m_view->cmdShiftVLabel->setText(openShortcutLine());
    // The pages with keys, which do nothing until then.
    for (const size_t page : {1, 2})
        m_viewControllers.at(page)->setNote(absentShortcutsLine());
    askForRoom();
}

/// For what a page says more, which no layout between it and the window asks for.
void WelcomeWindowController::askForRoom()
{
    m_view->mainContentView->updateGeometry();
    applyTheme();
}

/// Empty where the shortcuts work.
QString WelcomeWindowController::absentShortcutsLine() const
{
    return GlobalShortcuts::canBeHad()
               ? QString()
               : tr("This desktop lets no program set shortcuts. Preferences has the line that its "
                    "configuration needs.");
}

QString WelcomeWindowController::openShortcutLine() const
{
    if (!GlobalShortcuts::canBeHad())
        return absentShortcutsLine();
    const MASShortcut usual = GlobalShortcuts::defaultOpenShortcut();
    const QString usualName = GlobalShortcuts::sentenceName(usual);
    const std::optional<MASShortcut> own =
        GlobalShortcuts::storedShortcut(m_settings, SettingsKeys::kOpenShortCut);
    if (own == usual)
        return tr("Open your history at any time: %1").arg(usualName);
    if (own)
        return tr("Open your history at any time: %1. The default is %2.")
            .arg(GlobalShortcuts::sentenceName(*own), usualName);
    return tr("The shortcut that opens the history, by default %1, is turned off.").arg(usualName);
}

void WelcomeWindowController::applyTheme()
{
    const ClipColors colors = ClipColors::ofPalette(m_window->palette());
    m_view->setColors(colors);
    for (WelcomePage *page : m_viewControllers)
        page->setColors(colors);
    m_window->setFrame(QRect(m_window->frame().topLeft(), m_view->fittingSize()));
}

void WelcomeWindowController::bringToFront()
{
    if (!m_window->isVisible()) {
        const QRect screen = PointerScreen::visibleFrame(m_windowSpace);
        QRect frame(QPoint(), m_view->fittingSize());
        frame.moveCenter(screen.center());
        m_window->setFrame(frame);
    }
    m_window->showNormal();
    m_window->raise();
    m_frontApplication.activate(m_window->windowHandle());
}
