#include "platform/kde/KGlobalAccelHotKeys.h"

#include "GlobalAccelStandIn.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/freedesktop/BusService.h"
#include "platform/kde/QtKeyCodes.h"
#include "platform/memory/MemoryPlatform.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr quint32 kSuperShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;
constexpr int kMetaShift = int(Qt::MetaModifier) | int(Qt::ShiftModifier);
constexpr int kMetaShiftV = kMetaShift | Qt::Key_V;
const HotKeyId kId{1, 1};
const auto kOpen = QStringLiteral("openShortCut");
const HotKeyAction kAction{kOpen, QStringLiteral("Show clipboard history")};

/// A keyboard whose 1 is another sign with Shift.
class ShiftedLayout : public MemoryKeyboardLayout
{
public:
    // ^KeyboardLayout
    QString characters(quint32 keyCode, quint32 carbonModifiers) const override
    {
        return keyCode == VirtualKey::kDigit1 && carbonModifiers == CarbonModifiers::kShift
                   ? QStringLiteral("!")
                   : MemoryKeyboardLayout::characters(keyCode, carbonModifiers);
    }
};

class PlasmaHotKeys : public ::testing::Test
{
protected:
    void SetUp() override
    {
        qDBusRegisterMetaType<QList<int>>();
        qDBusRegisterMetaType<ListedShortcut>();
        qDBusRegisterMetaType<QList<ListedShortcut>>();
        qDBusRegisterMetaType<KeySequence>();
        qDBusRegisterMetaType<QList<KeySequence>>();
    }

    void start(KGlobalAccelHotKeys::Keys keys = KGlobalAccelHotKeys::Keys::Service)
    {
        m_service = std::make_unique<BusService<GlobalAccelStandIn>>(
            QStringLiteral("org.kde.kglobalaccel"), QStringLiteral("/kglobalaccel"));
        make(QDBusConnection::sessionBus(), keys);
    }
    void make(const QDBusConnection &bus,
              KGlobalAccelHotKeys::Keys keys = KGlobalAccelHotKeys::Keys::Service)
    {
        auto otherwise = std::make_unique<MemoryHotKeys>();
        m_otherwise = otherwise.get();
        m_hotKeys =
            std::make_unique<KGlobalAccelHotKeys>(bus, m_layout, keys, std::move(otherwise));
    }

    template <typename Question>
    auto ask(Question question)
    {
        return m_service->ask(question);
    }
    QList<int> stored()
    {
        return ask([](GlobalAccelStandIn &service) { return service.stored.value(kOpen); });
    }
    bool isActive()
    {
        return ask([](GlobalAccelStandIn &service) { return service.active.contains(kOpen); });
    }
    bool registerOpen(HotKeyId id = kId, quint32 key = VirtualKey::kV)
    {
        return m_hotKeys->registerAction(id, key, kSuperShift, kAction);
    }
    void registerAndWait()
    {
        ASSERT_TRUE(registerOpen());
        ASSERT_TRUE(QTest::qWaitFor([this] { return isActive(); }));
    }
    void send(const QString &path, const QString &interface, const QString &name,
              const QVariantList &arguments)
    {
        m_service->tell([&](GlobalAccelStandIn &) {
            auto signal = QDBusMessage::createSignal(path, interface, name);
            signal.setArguments(arguments);
            QDBusConnection(QStringLiteral("test service org.kde.kglobalaccel")).send(signal);
        });
    }
    void sendKey(const QString &signal)
    {
        send(QLatin1String(GlobalAccelStandIn::kOwnPath),
             QStringLiteral("org.kde.kglobalaccel.Component"), signal,
             {QStringLiteral("org.quillmarsh.Quillmarsh"), kOpen, qlonglong(42)});
    }

    MemoryKeyboardLayout m_layout;
    std::unique_ptr<BusService<GlobalAccelStandIn>> m_service;
    MemoryHotKeys *m_otherwise = nullptr;
    std::unique_ptr<KGlobalAccelHotKeys> m_hotKeys;
};

TEST_F(PlasmaHotKeys, anActionIsListedByItsTitleAndReportsEachHoldOnce)
{
    start();
    registerAndWait();
    EXPECT_EQ(stored(), QList<int>{kMetaShiftV});
    EXPECT_EQ(ask([](GlobalAccelStandIn &service) { return service.titles.value(kOpen); }),
              kAction.title);
    QSignalSpy pressed(m_hotKeys.get(), &HotKeys::pressed);
    QSignalSpy released(m_hotKeys.get(), &HotKeys::released);
    for (const char *signal :
         {"globalShortcutPressed", "globalShortcutPressed", "globalShortcutReleased",
          "globalShortcutPressed", "globalShortcutReleased"})
        sendKey(QLatin1String(signal));
    ASSERT_TRUE(QTest::qWaitFor([&] { return released.size() == 2; }));
    ASSERT_EQ(pressed.size(), 2);
    const auto event = pressed.first().first().value<HotKeyEvent>();
    EXPECT_EQ(event.id, kId);
    EXPECT_EQ(event.timestamp, 42U);
    EXPECT_EQ(event.carbonModifiers, kSuperShift);

    // In one go nothing is given back that is taken again.
    m_hotKeys->unregisterHotKey(kId);
    ASSERT_TRUE(registerOpen({1, 2}, VirtualKey::kX));
    ASSERT_TRUE(QTest::qWaitFor([&] { return stored() == QList<int>{kMetaShift | Qt::Key_X}; }));
    m_hotKeys->unregisterHotKey({1, 2});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !isActive(); }));
    EXPECT_EQ(stored(), QList<int>());
}

TEST_F(PlasmaHotKeys, whatTypesWaitsUntilItsKeyIsUp)
{
    start();
    HotKeyAction action = kAction;
    action.types = true;
    ASSERT_TRUE(m_hotKeys->registerAction(kId, VirtualKey::kV, kSuperShift, action));
    ASSERT_TRUE(QTest::qWaitFor([this] { return isActive(); }));
    QStringList told;
    QObject::connect(m_hotKeys.get(), &HotKeys::pressed, m_hotKeys.get(),
                     [&] { told << QStringLiteral("pressed"); });
    sendKey(QStringLiteral("globalShortcutPressed"));
    // The answer to a question comes behind it.
    QSignalSpy changed(m_hotKeys.get(), &HotKeys::availabilityChanged);
    m_service->tell([](GlobalAccelStandIn &service) { service.foreign = {Qt::Key_F5}; });
    ASSERT_TRUE(m_hotKeys->registerHotKey({1, 2}, VirtualKey::kF5, 0));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !changed.isEmpty(); }));
    EXPECT_EQ(told, QStringList());
    QObject::connect(m_hotKeys.get(), &HotKeys::released, m_hotKeys.get(),
                     [&] { told << QStringLiteral("released"); });
    sendKey(QStringLiteral("globalShortcutReleased"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return told.size() >= 2; }));
    EXPECT_EQ(told, (QStringList{QStringLiteral("pressed"), QStringLiteral("released")}));
}

TEST_F(PlasmaHotKeys, whatTheUserChoosesInTheDesktopsSettingsIsTold)
{
    struct Row
    {
        const char *name;
        QList<int> keys;
        std::optional<HotKeyCombination> combination;
        QString description;
    };
    const std::vector<Row> rows{
        {"another letter",
         {int(Qt::MetaModifier) | Qt::Key_U},
         HotKeyCombination{VirtualKey::kU, CarbonModifiers::kCommand},
         QStringLiteral("Meta+U")},
        {"a key that is none of ours", {Qt::Key_Tools}, std::nullopt, QStringLiteral("Tools")},
        {"none", {}, std::nullopt, QString()},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        start();
        registerAndWait();
        QSignalSpy chosen(m_hotKeys.get(), &HotKeys::chosenElsewhere);
        QList<KeySequence> sequences;
        for (const int key : row.keys)
            sequences.append({{key, 0, 0, 0}});
        send(QStringLiteral("/kglobalaccel"), QStringLiteral("org.kde.KGlobalAccel"),
             QStringLiteral("yourShortcutsChanged"),
             {QStringList{QStringLiteral("org.quillmarsh.Quillmarsh"), kOpen},
              QVariant::fromValue(sequences)});
        ASSERT_TRUE(QTest::qWaitFor([&] { return !chosen.isEmpty(); }));
        const auto choice = chosen.first().at(1).value<HotKeyChoice>();
        EXPECT_EQ(choice.combination, row.combination);
        EXPECT_EQ(choice.description, row.description);
        m_hotKeys.reset();
        m_service.reset();
    }
    // While we did not run.
    start();
    m_service->tell([](GlobalAccelStandIn &service) {
        service.stored[kOpen] = {int(Qt::MetaModifier) | Qt::Key_U};
    });
    QSignalSpy chosen(m_hotKeys.get(), &HotKeys::chosenElsewhere);
    ASSERT_TRUE(registerOpen());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !chosen.isEmpty(); }));
    EXPECT_EQ(chosen.first().at(1).value<HotKeyChoice>().combination,
              (HotKeyCombination{VirtualKey::kU, CarbonModifiers::kCommand}));
    EXPECT_EQ(stored(), QList<int>{int(Qt::MetaModifier) | Qt::Key_U});
}

TEST_F(PlasmaHotKeys, whatAnotherProgramHasIsRefusedUntilItIsFree)
{
    start();
    m_service->tell([](GlobalAccelStandIn &service) { service.foreign = {kMetaShiftV}; });
    QSignalSpy changed(m_hotKeys.get(), &HotKeys::availabilityChanged);
    ASSERT_TRUE(registerOpen());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !changed.isEmpty(); }));
    EXPECT_FALSE(m_hotKeys->isGranted(kId));
    EXPECT_FALSE(m_hotKeys->isAvailable(VirtualKey::kV, kSuperShift));
    EXPECT_FALSE(registerOpen({1, 2}));

    m_service->tell([](GlobalAccelStandIn &service) { service.foreign.clear(); });
    changed.clear();
    // Each try asks anew, which takes its time.
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return !changed.isEmpty() || registerOpen({1, 2}) || !changed.isEmpty();
    }));
    ASSERT_TRUE(m_hotKeys->isGranted({1, 2}) || registerOpen({1, 2}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return stored() == QList<int>{kMetaShiftV}; }));
    EXPECT_TRUE(m_hotKeys->isGranted({1, 2}));
}

TEST_F(PlasmaHotKeys, whileARecorderRecordsNothingIsOursAndOthersAreKnown)
{
    start();
    ForeignComponent other;
    other.keys = {kMetaShift | Qt::Key_W};
    QDBusConnection bus(QStringLiteral("test service org.kde.kglobalaccel"));
    bus.registerObject(QStringLiteral("/component/other"), &other, QDBusConnection::ExportAllSlots);
    registerAndWait();
    EXPECT_TRUE(m_hotKeys->isAvailable(VirtualKey::kW, kSuperShift));
    m_hotKeys->setSuspended(true);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return !isActive() && !m_hotKeys->isAvailable(VirtualKey::kW, kSuperShift); }));
    EXPECT_EQ(stored(), QList<int>{kMetaShiftV});
    EXPECT_TRUE(m_hotKeys->isAvailable(VirtualKey::kV, kSuperShift));
    m_hotKeys->setSuspended(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isActive(); }));
    EXPECT_TRUE(m_hotKeys->isGranted(kId));
}

TEST_F(PlasmaHotKeys, aServiceThatStartsAnewIsToldAgain)
{
    start();
    registerAndWait();
    m_service->vanish();
    m_service->appear();
    ASSERT_TRUE(QTest::qWaitFor([&] { return isActive(); }));
    EXPECT_EQ(stored(), QList<int>{kMetaShiftV});
}

TEST_F(PlasmaHotKeys, withoutTheServiceTheOtherHotKeysTakeItsPlace)
{
    // Such a bus has no service, and starts none.
    make(QDBusConnection(QStringLiteral("none")));
    QSignalSpy changed(m_hotKeys.get(), &HotKeys::availabilityChanged);
    ASSERT_TRUE(registerOpen());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !changed.isEmpty(); }));
    EXPECT_TRUE(m_hotKeys->isGranted(kId));
    QSignalSpy pressed(m_hotKeys.get(), &HotKeys::pressed);
    m_otherwise->press(VirtualKey::kV, kSuperShift);
    EXPECT_EQ(pressed.size(), 1);
    m_hotKeys->unregisterHotKey(kId);
    EXPECT_TRUE(m_otherwise->idsOf(VirtualKey::kV, kSuperShift).empty());
}

TEST_F(PlasmaHotKeys, whereGrabsTakeTheKeysTheServiceKeepsTheChoiceAlone)
{
    start(KGlobalAccelHotKeys::Keys::Otherwise);
    ASSERT_TRUE(registerOpen());
    ASSERT_TRUE(QTest::qWaitFor([&] { return stored() == QList<int>{kMetaShiftV}; }));
    QSignalSpy pressed(m_hotKeys.get(), &HotKeys::pressed);
    m_otherwise->press(VirtualKey::kV, kSuperShift);
    EXPECT_EQ(pressed.size(), 1);
    m_hotKeys->setSuspended(true);
    EXPECT_TRUE(m_otherwise->isSuspended());
    m_hotKeys->setSuspended(false);

    QSignalSpy chosen(m_hotKeys.get(), &HotKeys::chosenElsewhere);
    const QList<KeySequence> sequences{{{int(Qt::MetaModifier) | Qt::Key_U, 0, 0, 0}}};
    send(QStringLiteral("/kglobalaccel"), QStringLiteral("org.kde.KGlobalAccel"),
         QStringLiteral("yourShortcutsChanged"),
         {QStringList{QStringLiteral("org.quillmarsh.Quillmarsh"), kOpen},
          QVariant::fromValue(sequences)});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !chosen.isEmpty(); }));
    // Whoever registered it follows.
    m_hotKeys->unregisterHotKey(kId);
    ASSERT_TRUE(
        m_hotKeys->registerAction({1, 2}, VirtualKey::kU, CarbonModifiers::kCommand, kAction));
    EXPECT_FALSE(m_otherwise->idsOf(VirtualKey::kU, CarbonModifiers::kCommand).empty());
    EXPECT_TRUE(m_otherwise->idsOf(VirtualKey::kV, kSuperShift).empty());
}

TEST(QtKeyCodesTest, nameKeysAsPlasmaDoes)
{
    struct Row
    {
        const char *name;
        HotKeyCombination combination;
        std::optional<int> code;
    };
    const std::vector<Row> rows{
        {"letter", {VirtualKey::kV, kSuperShift}, kMetaShiftV},
        {"where a German Z is",
         {VirtualKey::kY, CarbonModifiers::kControl},
         int(Qt::ControlModifier) | Qt::Key_Z},
        {"sign of its own with Shift",
         {VirtualKey::kDigit1, kSuperShift},
         int(Qt::MetaModifier) | Qt::Key_Exclam},
        {"digit",
         {VirtualKey::kDigit1, CarbonModifiers::kOption},
         int(Qt::AltModifier) | Qt::Key_1},
        {"keypad",
         {VirtualKey::kKeypad1, CarbonModifiers::kCommand},
         int(Qt::MetaModifier) | int(Qt::KeypadModifier) | Qt::Key_1},
        {"function key", {VirtualKey::kF5, 0}, Qt::Key_F5},
        {"space", {VirtualKey::kSpace, kSuperShift}, kMetaShift | Qt::Key_Space},
        {"Caps Lock", {VirtualKey::kV, CarbonModifiers::kCapsLock}, std::nullopt},
        {"key that prints nothing", {VirtualKey::kJISKana, 0}, std::nullopt},
    };
    ShiftedLayout layout;
    layout.setName(VirtualKey::kY, QStringLiteral("z"));
    layout.setName(VirtualKey::kZ, QStringLiteral("y"));
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(QtKeyCodes::of(row.combination, layout), row.code);
        if (row.code) {
            EXPECT_EQ(QtKeyCodes::combinationOf(*row.code, layout), row.combination);
        }
    }
    EXPECT_EQ(QtKeyCodes::combinationOf(Qt::Key_Tools, layout), std::nullopt);
}

} // namespace
