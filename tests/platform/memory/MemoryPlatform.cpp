#include "platform/memory/MemoryPlatform.h"

#include "platform/PointerScreen.h"
#include "platform/VirtualKeys.h"

#include <QScreen>
#include <QTimer>

namespace {

template <typename Fake, typename Capability>
Fake &put(std::unique_ptr<Capability> &place)
{
    auto fake = std::make_unique<Fake>();
    Fake &reference = *fake;
    place = std::move(fake);
    return reference;
}

} // namespace

void MemoryClock::wait(std::chrono::milliseconds duration)
{
    m_waits.append(duration);
    advance(duration);
    if (m_duringWait)
        m_duringWait();
}

KeySender::Outcome MemoryKeySender::sendCommand(quint32 keyCode)
{
    if (m_refused.contains(keyCode))
        return m_refused.value(keyCode);
    m_sent.append(keyCode);
    if (m_reaction)
        m_reaction(keyCode);
    return Outcome::Sent;
}

KeySender::Outcome MemoryKeySender::sendPasteOverCopied()
{
    ++m_sentOverCopied;
    return sendCommand(VirtualKey::kV);
}

void MemoryConsent::setState(State state)
{
    if (std::exchange(m_state, state) != state)
        Q_EMIT stateChanged();
}

void MemoryFrontApplication::activate(QWindow *window)
{
    m_activated = window;
    if (window)
        window->requestActivate();
}

void MemoryAppearance::setColorScheme(ColorScheme colorScheme)
{
    if (std::exchange(m_colorScheme, colorScheme) != colorScheme)
        Q_EMIT changed();
}

void MemoryAppearance::setAccentColor(const std::optional<QColor> &color)
{
    if (std::exchange(m_accentColor, color) != color)
        Q_EMIT changed();
}

void MemoryWorkspace::askFileExists(const QString &path, QObject *context,
                                    std::function<void(bool)> answer)
{
    QTimer::singleShot(0, context, [this, path, answer] { answer(fileExists(path)); });
}

bool MemoryWorkspace::openFile(const QString &path)
{
    m_opened.append(path);
    return true;
}

bool MemoryWorkspace::openUrl(const QUrl &url)
{
    m_opened.append(url.toString());
    return true;
}

void MemoryWindowSpace::setCompositing(bool isCompositing)
{
    m_isCompositing = isCompositing;
    Q_EMIT isCompositingChanged(isCompositing);
}

QRect MemoryWindowSpace::visibleFrame(const QScreen &screen) const
{
    return m_visibleFrame.value_or(screen.availableGeometry());
}

QRect MemoryWindowSpace::placeUtilityWindow(QWindow *, const QSize &size, const QMargins &)
{
    return PointerScreen::utilityFrame(PointerScreen::visibleFrame(*this), size);
}

void MemoryKeyboardLayout::setName(quint32 keyCode, const QString &name)
{
    m_names.insert(keyCode, name);
    Q_EMIT changed();
}

QString MemoryKeyboardLayout::asciiCapableName(quint32 keyCode) const
{
    return characters(keyCode, 0);
}

QString MemoryKeyboardLayout::characters(quint32 keyCode, quint32) const
{
    if (m_names.contains(keyCode))
        return m_names.value(keyCode);
    static const QMap<quint32, QChar> kUs{
        {VirtualKey::kA, u'a'},      {VirtualKey::kB, u'b'},     {VirtualKey::kC, u'c'},
        {VirtualKey::kD, u'd'},      {VirtualKey::kE, u'e'},     {VirtualKey::kF, u'f'},
        {VirtualKey::kG, u'g'},      {VirtualKey::kH, u'h'},     {VirtualKey::kI, u'i'},
        {VirtualKey::kJ, u'j'},      {VirtualKey::kK, u'k'},     {VirtualKey::kL, u'l'},
        {VirtualKey::kM, u'm'},      {VirtualKey::kN, u'n'},     {VirtualKey::kO, u'o'},
        {VirtualKey::kP, u'p'},      {VirtualKey::kQ, u'q'},     {VirtualKey::kR, u'r'},
        {VirtualKey::kS, u's'},      {VirtualKey::kT, u't'},     {VirtualKey::kU, u'u'},
        {VirtualKey::kV, u'v'},      {VirtualKey::kW, u'w'},     {VirtualKey::kX, u'x'},
        {VirtualKey::kY, u'y'},      {VirtualKey::kZ, u'z'},     {VirtualKey::kDigit1, u'1'},
        {VirtualKey::kDigit2, u'2'}, {VirtualKey::kComma, u','}, {VirtualKey::kPeriod, u'.'},
        {VirtualKey::kSlash, u'/'},  {VirtualKey::kMinus, u'-'}, {VirtualKey::kEqual, u'='},
    };
    const auto found = kUs.find(keyCode);
    return found == kUs.end() ? QString() : QString(*found);
}

void MemoryStatusBar::showItem(const QIcon &, const QString &toolTip, QMenu *menu)
{
    m_menu = menu;
    m_toolTip = toolTip;
    Q_EMIT isItemVisibleChanged(true);
}

MemoryPlatform::MemoryPlatform()
    : clock(put<MemoryClock>(platform.clock)),
      settings(put<MemorySettingsStore>(platform.settings)),
      consent(put<MemoryConsent>(platform.consent)),
      appearance(put<MemoryAppearance>(platform.appearance)),
      installedApplications(put<MemoryInstalledApplications>(platform.installedApplications)),
      loginItems(put<MemoryLoginItems>(platform.loginItems)),
      runningApplications(put<MemoryRunningApplications>(platform.runningApplications)),
      notifications(put<MemoryNotifications>(platform.notifications)),
      workspace(put<MemoryWorkspace>(platform.workspace)),
      windowSpace(put<MemoryWindowSpace>(platform.windowSpace)),
      keyboardLayout(put<MemoryKeyboardLayout>(platform.keyboardLayout)),
      hotKeys(put<MemoryHotKeys>(platform.hotKeys)),
      symbolicHotKeys(put<MemorySymbolicHotKeys>(platform.symbolicHotKeys)),
      frontApplication(put<MemoryFrontApplication>(platform.frontApplication)),
      pasteboard(put<MemoryPasteboard>(platform.pasteboard)),
      keySender(put<MemoryKeySender>(platform.keySender)),
      statusBar(put<MemoryStatusBar>(platform.statusBar))
{
    put<Capabilities>(platform.capabilities);
    put<MemoryApplicationNames>(platform.applicationNames);
    platform.fileQuestions = std::make_unique<FileQuestions>();
}
