#include "hotkey/HotKeyTextField.h"

#include "hotkey/HotKeyTextFieldEditor.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/memory/MemoryPlatform.h"
#include "support/ExpectedWarnings.h"

#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

using namespace ModifierFlags;
using VirtualKey::kV;

/// One event of a keyboard.
struct Stroke
{
    QEvent::Type type;
    quint16 keyCode;
    int key;
    Qt::KeyboardModifiers modifiers;
    const char16_t *text = u"";
    quint32 nativeModifiers = 0;
    bool isAutoRepeat = false;
};

constexpr QEvent::Type kDown = QEvent::KeyPress;
constexpr QEvent::Type kUp = QEvent::KeyRelease;
constexpr quint32 kLock = 2;

// A modifier key's event comes with the modifiers before it.
const Stroke kCommandDown{kDown, VirtualKey::kCommand, Qt::Key_Meta, {}};
const Stroke kCommandUp{kUp, VirtualKey::kCommand, Qt::Key_Meta, Qt::MetaModifier};
const Stroke kControlDown{kDown, VirtualKey::kControl, Qt::Key_Control, Qt::MetaModifier};
const Stroke kControlUp{kUp, VirtualKey::kControl, Qt::Key_Control,
                        Qt::MetaModifier | Qt::ControlModifier};
const Stroke kCapsLockDown{kDown, VirtualKey::kCapsLock, Qt::Key_CapsLock, {}, u"", kLock};
const Stroke kPlainV{kDown, kV, Qt::Key_V, {}, u"v", kLock};
const Stroke kCommandV{kDown, kV, Qt::Key_V, Qt::MetaModifier, u"v"};
const Stroke kLockedCommandV{kDown, kV, Qt::Key_V, Qt::MetaModifier, u"V", kLock};
const Stroke kOptionF5{kDown, VirtualKey::kF5, Qt::Key_F5, Qt::AltModifier};
const Stroke kTab{kDown, VirtualKey::kTab, Qt::Key_Tab, {}, u"\t"};
const Stroke kCommandPrint{kDown, 0xFFFF, Qt::Key_Print, Qt::MetaModifier};
const Stroke kReturn{kDown, VirtualKey::kReturn, Qt::Key_Return, {}, u"\r"};
const Stroke kHeldReturn{kDown, VirtualKey::kReturn, Qt::Key_Return, {}, u"\r", 0, true};
const Stroke kShiftReturn{kDown, VirtualKey::kReturn, Qt::Key_Return, Qt::ShiftModifier, u"\r"};
const Stroke kLineSeparator{kDown, kV, Qt::Key_unknown, {}, u"\u2028"};
const Stroke kEscape{kDown, VirtualKey::kEscape, Qt::Key_Escape, {}, u"\u001B"};

/// What the field holds afterwards.
struct Outcome
{
    quint16 keyCode;
    quint64 flags;
    const char16_t *name;
};

constexpr Outcome kOld{VirtualKey::kX, kControl, u"⌃X"};
constexpr Outcome kNew{kV, kCommand, u"⌘V"};

struct Recording
{
    const char *row;
    std::vector<Stroke> strokes;
    Outcome outcome;
    bool isEditing = true;
};

const Recording kRecordings[] = {
    {"a combination", {kCommandDown, kCommandV, kCommandUp}, kNew},
    {"the latest one", {kOptionF5, kCommandV}, kNew},
    {"command alone", {kCommandDown, kCommandUp}, {VirtualKey::kCommand, kCommand, u"⌘"}},
    {"one of two let go", {kControlDown, kControlUp}, {VirtualKey::kControl, kCommand, u"⌘"}},
    {"a modifier after a combination", {kCommandV, kCommandUp, kCommandDown}, kNew},
    {"a modifier after a plain key", {kPlainV, kCommandDown}, kOld},
    {"caps lock beside command", {kLockedCommandV}, {kV, kCommand | kCapsLock, u"⌘V"}},
    {"caps lock alone", {kCapsLockDown, kPlainV}, kOld},
    {"a plain key", {kTab, kPlainV}, kOld},
    {"a key without a code", {kCommandPrint}, kOld},
    {"return", {kCommandV, kReturn}, kNew, false},
    {"another newline", {kLineSeparator}, kOld, false},
    {"return held since before", {kHeldReturn}, kOld},
    {"return with a modifier", {kShiftReturn}, {VirtualKey::kReturn, kShift, u"⇧↩"}},
    {"escape", {kCommandV, kEscape}, kOld, false},
};

class Field : public testing::Test
{
protected:
    Field()
    {
        auto *layout = new QVBoxLayout(&m_window);
        layout->addWidget(m_field);
        layout->addWidget(m_other);
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_window.setFocus();
    }

    static void send(const Stroke &stroke)
    {
        constexpr quint32 kScanCodeOffset = 8;
        const quint32 scanCode = VirtualKey::toEvdev(stroke.keyCode).value_or(99) + kScanCodeOffset;
        QKeyEvent event(stroke.type, stroke.key, stroke.modifiers, scanCode, 0,
                        stroke.nativeModifiers, QString::fromUtf16(stroke.text),
                        stroke.isAutoRepeat);
        event.setAccepted(false);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }

    static std::shared_ptr<HotKey> hotKey(quint16 keyCode, quint64 flags, HotKey::Task task = {})
    {
        return std::make_shared<HotKey>(keyCode, flags, std::move(task));
    }

    MemoryHotKeys m_hotKeys;
    MemoryKeyboardLayout m_layout;
    QWidget m_window;
    HotKeyTextField *m_field = new HotKeyTextField(m_hotKeys, m_layout);
    HotKeyTextField *m_other = new HotKeyTextField(m_hotKeys, m_layout);
};

TEST_F(Field, showsTheNameInUpperCaseAndFollowsTheLayout)
{
    m_field->setHotKey(hotKey(kV, kCommand));
    EXPECT_EQ(m_field->text(), QStringLiteral("⌘V"));
    m_layout.setName(kV, QStringLiteral("м"));
    EXPECT_EQ(m_field->text(), QStringLiteral("⌘М"));
    m_field->setHotKey(nullptr);
    EXPECT_EQ(m_field->text(), QString());
}

TEST_F(Field, theBareTextWorksAndIsLogged)
{
    ExpectedWarnings::expect(QStringLiteral("-[HotKeyTextField setStringValue:] is not what you "
                                            "want. Use -[HotKeyTextField setHotKey:] instead."));
    m_field->setStringValue(QStringLiteral("bare"));
    m_layout.setName(kV, QStringLiteral("x"));
    ExpectedWarnings::expect(QStringLiteral("-[HotKeyTextField stringValue] is not what you want. "
                                            "Use -[HotKeyTextField hotKey] instead."));
    EXPECT_EQ(m_field->stringValue(), QStringLiteral("bare"));
}

TEST_F(Field, recordsWhatThePressedKeysSay)
{
    for (const Recording &each : kRecordings) {
        SCOPED_TRACE(each.row);
        int runs = 0;
        m_field->clearFocus();
        m_field->setHotKey(
            hotKey(kOld.keyCode, kOld.flags, [&runs](const KeyUpEvent &) { ++runs; }));
        m_field->setFocus();
        for (const Stroke &stroke : each.strokes)
            send(stroke);
        EXPECT_EQ(*m_field->hotKey(), *hotKey(each.outcome.keyCode, each.outcome.flags));
        EXPECT_EQ(m_field->text(), QString::fromUtf16(each.outcome.name));
        EXPECT_EQ(m_field->hasFocus(), each.isEditing);
        EXPECT_EQ(m_field->currentEditor() != nullptr, each.isEditing);
        m_field->hotKey()->invokeWithEvent({});
        EXPECT_EQ(runs, 1) << "the task is kept";
    }
}

TEST_F(Field, escapeRestoresTheVeryRecordOrNone)
{
    for (const std::shared_ptr<HotKey> &original : {hotKey(kV, kShift), {}}) {
        m_field->setHotKey(original);
        m_field->setFocus();
        send(kCommandV);
        ASSERT_NE(m_field->hotKey(), original);
        send(kEscape);
        EXPECT_EQ(m_field->hotKey(), original);
    }
}

TEST_F(Field, everyEditingBeginsAfresh)
{
    m_field->setFocus();
    send(kCommandV);
    EXPECT_TRUE(m_field->currentEditor()->hasSeenKeyDown());
    const std::shared_ptr<HotKey> recorded = m_field->hotKey();
    HotKeyTextFieldEditor *const editor = m_field->currentEditor();
    m_other->setFocus();
    EXPECT_EQ(m_other->currentEditor(), editor) << "there is one for all";
    EXPECT_EQ(editor->hotKeyField(), m_other);
    send(kCommandDown);
    EXPECT_EQ(m_other->text(), QStringLiteral("⌘"));
    EXPECT_EQ(m_field->hotKey(), recorded);
    m_field->setFocus();
    EXPECT_EQ(editor->originalHotKey(), recorded);
    EXPECT_FALSE(editor->hasSeenKeyDown());
}

TEST_F(Field, hotKeysAndOtherKeysAreHeldBackWhileItRecordsAndNoLonger)
{
    m_other->setFocus();
    m_field->setFocus();
    EXPECT_TRUE(m_hotKeys.isSuspended());
    send(kReturn);
    EXPECT_FALSE(m_hotKeys.isSuspended());
    m_field->setFocus();
    delete m_field;
    EXPECT_FALSE(m_hotKeys.isSuspended());
    QLineEdit plain(&m_window);
    plain.show();
    plain.setFocus();
    send(kPlainV);
    EXPECT_EQ(plain.text(), QStringLiteral("v"));
}

TEST_F(Field, noShortcutOfTheApplicationTakesAKeyFromIt)
{
    QShortcut shortcut(QKeySequence(Qt::META | Qt::Key_V), &m_window);
    QSignalSpy fired(&shortcut, &QShortcut::activated);
    QSignalSpy changes(m_field, &HotKeyTextField::hotKeyChanged);
    const auto type = [this] {
        QTest::keyClick(m_window.windowHandle(), Qt::Key_V, Qt::MetaModifier);
    };
    m_field->setFocus();
    type();
    send(kCommandV);
    EXPECT_EQ(fired.count(), 0);
    EXPECT_EQ(changes.count(), 1) << "one press, one record";
    send(kReturn);
    type();
    EXPECT_EQ(fired.count(), 1);
}

} // namespace
