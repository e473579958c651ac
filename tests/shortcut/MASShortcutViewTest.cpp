#include "shortcut/MASShortcutView.h"

#include "platform/memory/MemoryPlatform.h"
#include "shortcut/KeyNames.h"
#include "shortcut/MASShortcutBinder.h"
#include "shortcut/MASShortcutMonitor.h"
#include "shortcut/MASShortcutValidator.h"
#include "support/ExpectedWarnings.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

using namespace VirtualKey;
using Glyph = MASShortcutView::Glyph;

const QString kKey = QStringLiteral("openShortCut");
const MASShortcut kCommandV(kV, ModifierFlags::kCommand);
const MASShortcut kControlK(kK, ModifierFlags::kControl);

class Recorder : public testing::Test
{
protected:
    Recorder()
    {
        KeyNames::current().setKeyboardLayout(&m_layout);
        auto *layout = new QVBoxLayout(&m_window);
        for (MASShortcutView *view : {&m_view, &m_second}) {
            layout->addWidget(view);
            view->setShortcutMonitor(&m_monitor);
            view->setShortcutValidator(m_validator);
            view->setBeep([this] { ++m_beeps; });
        }
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    ~Recorder() override
    {
        m_view.setParent(nullptr);
        m_second.setParent(nullptr);
        KeyNames::current().setKeyboardLayout(nullptr);
    }

    /// Sends one key event where the focus is. True when somebody accepted it.
    static bool send(QEvent::Type type, quint16 virtualKey, Qt::KeyboardModifiers modifiers,
                     int key = Qt::Key_unknown, bool isAutoRepeat = false, quint64 timestamp = 0)
    {
        constexpr quint32 kScanCodeOffset = 8;
        const quint32 scanCode = toEvdev(virtualKey).value_or(0) + kScanCodeOffset;
        QKeyEvent event(type, key, modifiers, scanCode, 0, 0, {}, isAutoRepeat);
        event.setTimestamp(timestamp);
        event.setAccepted(false);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
        return event.isAccepted();
    }

    /// A key as it comes from a keyboard: offered to the application's shortcuts, pressed, let go.
    /// True when a shortcut of the application could have had it.
    static bool type(quint16 virtualKey, Qt::KeyboardModifiers modifiers = {},
                     int key = Qt::Key_unknown)
    {
        const bool isClaimed = send(QEvent::ShortcutOverride, virtualKey, modifiers, key);
        if (isClaimed)
            send(QEvent::KeyPress, virtualKey, modifiers, key);
        send(QEvent::KeyRelease, virtualKey, modifiers, key);
        return !isClaimed;
    }

    void click(MASShortcutView &view, const QRect &part)
    {
        QTest::mouseClick(&view, Qt::LeftButton, {}, part.center());
    }
    /// What says that a combination is taken.
    static QMessageBox *alert()
    {
        return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    }
    void dismissAlert()
    {
        ASSERT_TRUE(QTest::qWaitForWindowActive(alert()));
        EXPECT_TRUE(m_view.isRecording());
        QTest::mouseClick(alert()->buttons().at(0), Qt::LeftButton);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    void record(const std::optional<MASShortcut> &old = {})
    {
        m_view.setShortcutValue(old);
        click(m_view, m_view.shortcutRect());
        ASSERT_TRUE(m_view.isRecording());
    }

    MemoryKeyboardLayout m_layout;
    MemoryHotKeys m_hotKeys;
    MemorySettingsStore m_settings;
    MASShortcutMonitor m_monitor{m_hotKeys};
    MASShortcutValidator m_validator{nullptr, &m_hotKeys};
    QWidget m_window;
    MASShortcutView m_view{&m_settings};
    MASShortcutView m_second{&m_settings};
    int m_beeps = 0;
};

TEST_F(Recorder, aValidCombinationIsStoredAndEndsTheRecording)
{
    m_view.setAssociatedUserDefaultsKey(kKey);
    record();
    EXPECT_FALSE(type(kV, Qt::MetaModifier)) << "a shortcut of the application stole the key";
    EXPECT_FALSE(m_view.isRecording());
    EXPECT_EQ(m_view.shortcutValue(), kCommandV);
    EXPECT_EQ(m_settings.value(kKey), QVariant(kCommandV.archive()));
}

TEST_F(Recorder, anInvalidCombinationBeepsAndIsToldToTheEye)
{
    QSignalSpy tellings(&m_view, &MASShortcutView::isInvalidChanged);
    record(kCommandV);
    EXPECT_FALSE(type(kA));
    EXPECT_FALSE(type(kTab));
    send(QEvent::KeyPress, kA, {}, Qt::Key_A, true);
    EXPECT_EQ(m_beeps, 2) << "a held key beeps once";
    EXPECT_TRUE(m_view.isRecording());
    EXPECT_EQ(m_view.shortcutValue(), kCommandV);
    EXPECT_TRUE(m_view.isInvalid());
    EXPECT_EQ(tellings.size(), 1);
    type(kJ, Qt::ControlModifier);
    EXPECT_FALSE(m_view.isInvalid());
    EXPECT_EQ(tellings.size(), 2);
}

TEST_F(Recorder, deletingClearsAndStoresAnEmptyValue)
{
    for (const quint16 key : {kDelete, kForwardDelete}) {
        m_view.setAssociatedUserDefaultsKey(kKey);
        record(kCommandV);
        EXPECT_FALSE(type(key));
        EXPECT_FALSE(m_view.isRecording());
        EXPECT_EQ(m_view.shortcutValue(), std::nullopt);
        ASSERT_TRUE(m_settings.contains(kKey)) << "the default would come back";
        EXPECT_TRUE(m_settings.value(kKey).toByteArray().isEmpty());
    }
}

TEST_F(Recorder, escapeKeepsTheOldShortcut)
{
    record(kCommandV);
    EXPECT_FALSE(type(kEscape, {}, Qt::Key_Escape));
    EXPECT_FALSE(m_view.isRecording());
    EXPECT_EQ(m_view.shortcutValue(), kCommandV);
}

TEST_F(Recorder, whatClosesAndQuitsByItsPrintedNameStopsItAndGoesThrough)
{
    const auto goThrough = [this](std::initializer_list<quint16> keys) {
        for (const quint16 key : keys) {
            record(kCommandV);
            EXPECT_TRUE(type(key, Qt::MetaModifier));
            EXPECT_FALSE(m_view.isRecording());
            EXPECT_EQ(m_view.shortcutValue(), kCommandV);
        }
    };
    goThrough({kW, kQ});
    record(kCommandV);
    EXPECT_FALSE(type(kQ, Qt::MetaModifier | Qt::ShiftModifier));
    EXPECT_EQ(m_view.shortcutValue()->keyCode(), kQ) << "with Shift it is like any other";

    const std::pair<quint32, const char *> azerty[] = {{kA, "q"}, {kQ, "a"}, {kZ, "w"}, {kW, "z"}};
    for (const auto &[key, name] : azerty)
        m_layout.setName(key, QString::fromLatin1(name));
    goThrough({kA, kZ});
    for (const quint16 key : {kQ, kW}) {
        record(kCommandV);
        EXPECT_FALSE(type(key, Qt::MetaModifier));
        EXPECT_EQ(m_view.shortcutValue(), MASShortcut(key, ModifierFlags::kCommand));
    }
}

TEST_F(Recorder, heldModifiersAreShown)
{
    record();
    EXPECT_EQ(m_view.title(), QStringLiteral("Type Shortcut"));
    // Qt tells the modifiers before the event and adds the key's own.
    send(QEvent::KeyPress, kShift, {}, Qt::Key_Shift);
    EXPECT_EQ(m_view.title(), QStringLiteral("⇧"));
    send(QEvent::KeyPress, kControl, Qt::ShiftModifier, Qt::Key_Control);
    EXPECT_EQ(m_view.title(), QStringLiteral("⌃⇧"));
    send(QEvent::KeyRelease, kShift, Qt::ShiftModifier | Qt::ControlModifier, Qt::Key_Shift);
    EXPECT_EQ(m_view.title(), QStringLiteral("⌃"));
    send(QEvent::KeyRelease, kControl, Qt::ControlModifier, Qt::Key_Control);
    EXPECT_EQ(m_view.title(), QStringLiteral("Type Shortcut"));
    EXPECT_TRUE(m_view.isRecording());
}

TEST_F(Recorder, modifiersWithoutAKeyAreReportedUntilAKeyComes)
{
    m_view.setWaitingForKeyDelay(std::chrono::milliseconds(1));
    QSignalSpy changes(&m_view, &MASShortcutView::isWaitingForKeyChanged);
    record();
    send(QEvent::KeyPress, kShift, {}, Qt::Key_Shift);
    ASSERT_TRUE(changes.wait());
    EXPECT_TRUE(m_view.isWaitingForKey());
    type(kA, Qt::ShiftModifier);
    EXPECT_FALSE(m_view.isWaitingForKey());
    EXPECT_EQ(m_beeps, 1);
}

TEST_F(Recorder, aTakenCombinationIsExplainedAndRecordingGoesOn)
{
    m_validator.setMainMenu([] {
        return MenuModel{{QStringLiteral("Save"), QStringLiteral("k"), 0x40000, {}}};
    });
    record(kCommandV);
    send(QEvent::ShortcutOverride, kK, Qt::ControlModifier);
    send(QEvent::KeyPress, kK, Qt::ControlModifier);

    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->text(), QStringLiteral("The key combination ⌃K cannot be used"));
    EXPECT_EQ(alert()->informativeText(),
              QStringLiteral("This shortcut cannot be used because it is already used by the menu "
                             "item ‘Save’."));
    EXPECT_EQ(alert()->icon(), QMessageBox::Critical);
    ASSERT_EQ(alert()->buttons().size(), 1);
    EXPECT_EQ(alert()->buttons().at(0)->text(), QStringLiteral("OK"));
    dismissAlert();
    EXPECT_TRUE(m_view.isRecording());
    EXPECT_EQ(m_view.title(), QStringLiteral("Type New Shortcut"));
    type(kJ, Qt::ControlModifier);
    EXPECT_EQ(m_view.shortcutValue(), MASShortcut(kJ, ModifierFlags::kControl));
}

TEST_F(Recorder, theOtherRecordersShortcutIsTakenAndItsOwnIsNot)
{
    const QString otherKey = QStringLiteral("swopShortCut");
    MASShortcutBinder binder(m_settings, &m_monitor);
    binder.setShortcutValidator(m_validator);
    m_validator.setBoundElsewhere([&binder](const MASShortcut &shortcut, const QString &key) {
        return binder.isBoundElsewhere(shortcut, key);
    });
    m_settings.setValue(kKey, kCommandV.archive());
    m_settings.setValue(otherKey, kControlK.archive());
    for (const QString &key : {kKey, otherKey})
        binder.bindShortcutWithDefaultsKey(key, [] {});
    m_view.setAssociatedUserDefaultsKey(kKey);
    m_second.setAssociatedUserDefaultsKey(otherKey);

    click(m_view, m_view.shortcutRect());
    type(kK, Qt::ControlModifier);
    ASSERT_TRUE(alert());
    EXPECT_TRUE(alert()->informativeText().startsWith(
        QStringLiteral("This combination cannot be used because it is already used by a "
                       "system-wide keyboard shortcut.")));
    dismissAlert();
    type(kV, Qt::MetaModifier);
    EXPECT_FALSE(m_view.isRecording()) << "it has it already";
    EXPECT_EQ(m_view.shortcutValue(), kCommandV);

    m_second.setShortcutValue(std::nullopt);
    click(m_view, m_view.shortcutRect());
    type(kK, Qt::ControlModifier);
    EXPECT_EQ(m_view.shortcutValue(), kControlK) << "nobody has it any more";
}

TEST_F(Recorder, onlyOneRecordsAtATime)
{
    record();
    click(m_second, m_second.rect());
    EXPECT_FALSE(m_view.isRecording());
    type(kV, Qt::MetaModifier);
    EXPECT_EQ(m_second.shortcutValue(), kCommandV);
    EXPECT_EQ(m_view.shortcutValue(), std::nullopt);

    record();
    m_second.setEnabled(false);
    m_second.setRecording(true);
    EXPECT_FALSE(m_second.isRecording());
    EXPECT_FALSE(m_view.isRecording()) << "a disabled control stops the other all the same";
}

TEST_F(Recorder, leavingEndsTheRecordingWithTheOldShortcut)
{
    QLineEdit elsewhere;
    const std::pair<const char *, std::function<void()>> ways[] = {
        {"another window",
         [&] {
             elsewhere.show();
             elsewhere.activateWindow();
             EXPECT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
         }},
        {"hidden", [&] { m_view.hide(); }},
        {"window closed", [&] { m_window.close(); }},
        {"disabled", [&] { m_view.setEnabled(false); }},
    };
    for (const auto &[name, leave] : ways) {
        SCOPED_TRACE(name);
        m_window.show();
        m_view.show();
        m_view.setEnabled(true);
        m_window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
        record(kCommandV);
        leave();
        EXPECT_FALSE(m_view.isRecording());
        EXPECT_EQ(m_view.shortcutValue(), kCommandV);
        EXPECT_FALSE(m_hotKeys.isSuspended());
    }
}

TEST_F(Recorder, ourHotKeysRestUntilTheRecordedKeyIsLetGo)
{
    record();
    EXPECT_TRUE(m_hotKeys.isSuspended());
    send(QEvent::KeyPress, kV, Qt::MetaModifier);
    EXPECT_FALSE(m_view.isRecording());
    EXPECT_TRUE(m_hotKeys.isSuspended());
    EXPECT_TRUE(send(QEvent::KeyPress, kV, Qt::MetaModifier, Qt::Key_V, true));
    // A repetition that Qt did not recognise: let go and pressed at the same moment.
    send(QEvent::KeyRelease, kV, Qt::MetaModifier, Qt::Key_V, false, 5000);
    EXPECT_TRUE(send(QEvent::KeyPress, kV, Qt::MetaModifier, Qt::Key_V, false, 5000));
    EXPECT_TRUE(m_hotKeys.isSuspended());
    send(QEvent::KeyRelease, kV, Qt::MetaModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_hotKeys.isSuspended(); }));

    record();
    click(m_view, m_view.hintRect());
    EXPECT_FALSE(m_hotKeys.isSuspended()) << "no key to wait for";
}

TEST_F(Recorder, aRecorderThatGoesAwayLeavesTheKeysAlone)
{
    {
        MASShortcutView passing(&m_settings);
        passing.setShortcutMonitor(&m_monitor);
        passing.setRecording(true);
        EXPECT_TRUE(m_hotKeys.isSuspended());
    }
    EXPECT_FALSE(m_hotKeys.isSuspended());
    EXPECT_TRUE(type(kV, Qt::MetaModifier));
}

TEST_F(Recorder, clicksDoWhatTheyHit)
{
    click(m_view, m_view.hintRect());
    EXPECT_TRUE(m_view.isRecording()) << "without a shortcut anywhere starts";
    click(m_view, m_view.shortcutRect());
    EXPECT_TRUE(m_view.isRecording());
    click(m_view, m_view.hintRect());
    EXPECT_FALSE(m_view.isRecording());

    record(kCommandV);
    click(m_view, m_view.shortcutRect());
    EXPECT_TRUE(m_view.isRecording());
    click(m_view, m_view.hintRect());
    EXPECT_FALSE(m_view.isRecording());
    EXPECT_EQ(m_view.shortcutValue(), kCommandV);
    click(m_view, m_view.hintRect());
    EXPECT_EQ(m_view.shortcutValue(), std::nullopt);
    EXPECT_FALSE(m_view.isRecording());
}

TEST_F(Recorder, titleGlyphAndToolTipsTellTheState)
{
    const QPoint onTitle = m_view.shortcutRect().center();
    const QPoint onGlyph = m_view.hintRect().center();
    EXPECT_EQ(m_view.title(), QStringLiteral("Record Shortcut"));
    EXPECT_EQ(m_view.buttonGlyph(), Glyph::None);
    EXPECT_EQ(m_view.toolTipAt(onTitle), QString());

    m_view.setRecording(true);
    QTest::mouseMove(&m_view, onGlyph);
    EXPECT_EQ(m_view.title(), QStringLiteral("Cancel"));
    EXPECT_EQ(m_view.buttonGlyph(), Glyph::Escape);
    QTest::mouseMove(&m_view, onTitle);
    EXPECT_EQ(m_view.title(), QStringLiteral("Type Shortcut"));

    m_view.setShortcutValue(kCommandV);
    QTest::mouseMove(&m_view, onGlyph);
    EXPECT_EQ(m_view.title(), QStringLiteral("Use Old Shortcut"));
    EXPECT_EQ(m_view.toolTipAt(onGlyph), QString());
    QTest::mouseMove(&m_view, onTitle);
    EXPECT_EQ(m_view.title(), QStringLiteral("Type New Shortcut"));

    m_view.setRecording(false);
    EXPECT_EQ(m_view.title(), QStringLiteral("⌘V"));
    EXPECT_EQ(m_view.buttonGlyph(), Glyph::Delete);
    EXPECT_EQ(m_view.toolTipAt(onTitle), QStringLiteral("Click to record new shortcut"));
    EXPECT_EQ(m_view.toolTipAt(onGlyph), QStringLiteral("Delete shortcut"));
    m_view.setEnabled(false);
    EXPECT_EQ(m_view.toolTipAt(onTitle), QString());
}

TEST_F(Recorder, worksFromTheKeyboardAndForScreenReaders)
{
    m_view.setAccessibleName(QStringLiteral("Open the history"));
    m_view.setShortcutValue(kCommandV);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&m_view);
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::HotkeyField);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Open the history"));
    EXPECT_EQ(accessible->text(QAccessible::Value), QStringLiteral("⌘V"));

    m_second.setFocus();
    QTest::keyClick(&m_second, Qt::Key_Tab, Qt::ShiftModifier);
    ASSERT_EQ(QApplication::focusWidget(), &m_view);
    for (const int key : {Qt::Key_Space, Qt::Key_Return}) {
        send(QEvent::KeyPress, kSpace, {}, key);
        EXPECT_TRUE(m_view.isRecording());
        m_view.setRecording(false);
    }
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(m_view.isRecording());
}

TEST_F(Recorder, theAssociatedKeyIsFollowedInBothDirections)
{
    int changes = 0;
    m_view.setShortcutValueChange([&changes](MASShortcutView &) { ++changes; });
    m_settings.setValue(kKey, kCommandV.archive());
    m_view.setAssociatedUserDefaultsKey(kKey);
    EXPECT_EQ(m_view.associatedUserDefaultsKey(), kKey);
    EXPECT_EQ(m_view.shortcutValue(), kCommandV);
    m_settings.setValue(kKey, kControlK.archive());
    EXPECT_EQ(m_view.shortcutValue(), kControlK);
    EXPECT_EQ(changes, 2);
    m_view.setShortcutValue(kCommandV);
    EXPECT_EQ(changes, 3) << "its own value came back as a change";
    EXPECT_EQ(m_settings.value(kKey), QVariant(kCommandV.archive()));

    m_view.setAssociatedUserDefaultsKey(std::nullopt);
    EXPECT_EQ(m_view.associatedUserDefaultsKey(), std::nullopt);
    m_view.setShortcutValue(std::nullopt);
    EXPECT_EQ(m_settings.value(kKey), QVariant(kCommandV.archive()));
}

TEST_F(Recorder, associatingWritesNothing)
{
    m_view.setAssociatedUserDefaultsKey(kKey);
    EXPECT_FALSE(m_settings.contains(kKey));
    const QByteArray unreadable("bplist00 and then nothing");
    m_settings.setValue(kKey, unreadable);
    EXPECT_EQ(m_view.shortcutValue(), std::nullopt);
    EXPECT_EQ(m_settings.value(kKey), QVariant(unreadable));
}

class OneWay : public ValueTransformer
{
public:
    // ^ValueTransformer
    QString name() const override { return QStringLiteral("OneWay"); }
    bool allowsReverseTransformation() const override { return false; }
    std::optional<MASShortcut> transformedValue(const QVariant &) const override
    {
        return std::nullopt;
    }
    QVariant reverseTransformedValue(const std::optional<MASShortcut> &) const override
    {
        return {};
    }
};

TEST_F(Recorder, bindingFaultsAreLogged)
{
    const QString method = QStringLiteral("-[MASShortcutView propagateValue:forBinding:]");
    const OneWay oneWay;
    m_view.setAssociatedUserDefaultsKey(kKey, &oneWay);
    ExpectedWarnings::expect(
        QStringLiteral("WARNING: binding \"shortcutValue\" has value transformer, but it doesn't "
                       "allow reverse transformations in ") +
        method);
    m_view.setShortcutValue(kCommandV);
    EXPECT_EQ(m_settings.value(kKey), QVariant::fromValue(kCommandV)) << "stored as it stands";
    EXPECT_EQ(m_view.shortcutValue(), kCommandV);

    MASShortcutView orphan(nullptr);
    orphan.setAssociatedUserDefaultsKey(kKey);
    ExpectedWarnings::expect(
        QStringLiteral("ERROR: NSObservedObjectKey was nil for binding \"shortcutValue\" in ") +
        method);
    orphan.setShortcutValue(kCommandV);

    m_second.setAssociatedUserDefaultsKey(QString());
    ExpectedWarnings::expect(
        QStringLiteral("ERROR: NSObservedKeyPathKey was nil for binding \"shortcutValue\" in ") +
        method);
    m_second.setShortcutValue(kCommandV);
}

} // namespace
