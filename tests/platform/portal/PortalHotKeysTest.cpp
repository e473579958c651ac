#include "platform/portal/PortalHotKeys.h"

#include "GlobalShortcutsStandIn.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/freedesktop/BusService.h"
#include "platform/memory/MemoryPlatform.h"
#include "platform/portal/PortalBus.h"
#include "platform/portal/PortalTriggers.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr quint32 kSuperShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;
const HotKeyId kOpenId{1, 1};
const HotKeyId kSwopId{1, 2};
const auto kOpen = QStringLiteral("openShortCut");
const auto kSwop = QStringLiteral("swopShortCut");
const QStringList kBothAsked{QStringLiteral("openShortCut=SHIFT+LOGO+v"),
                             QStringLiteral("swopShortCut=SHIFT+LOGO+x")};

class PortalShortcuts : public ::testing::Test
{
protected:
    using StandIn = GlobalShortcutsStandIn;

    void SetUp() override
    {
        qDBusRegisterMetaType<PortalShortcutStandIn>();
        qDBusRegisterMetaType<QList<PortalShortcutStandIn>>();
    }

    void startService(const std::function<void(StandIn &)> &change = [](StandIn &) {})
    {
        m_service = std::make_unique<BusService<StandIn>>(StandIn::serviceName(), StandIn::path());
        m_service->tell(change);
    }
    void make()
    {
        m_bus = std::make_shared<PortalBus>();
        auto otherwise = std::make_unique<MemoryHotKeys>();
        m_otherwise = otherwise.get();
        m_hotKeys = std::make_unique<PortalHotKeys>(m_bus, m_layout, std::move(otherwise));
        QObject::connect(m_hotKeys.get(), &HotKeys::chosenElsewhere, m_hotKeys.get(),
                         [this](HotKeyId id, const HotKeyChoice &choice) { m_told[id] = choice; });
        registerBoth();
    }
    void registerBoth()
    {
        ASSERT_TRUE(m_hotKeys->registerAction(kOpenId, VirtualKey::kV, kSuperShift,
                                              {kOpen, QStringLiteral("Open")}));
        ASSERT_TRUE(m_hotKeys->registerAction(kSwopId, VirtualKey::kX, kSuperShift,
                                              {kSwop, QStringLiteral("Swop")}));
    }
    /// Until the desktop has said what keys the first one has.
    bool awaitOpen(const QString &description)
    {
        return QTest::qWaitFor([&] {
            return m_told.contains(kOpenId) && m_told.at(kOpenId).description == description;
        });
    }
    QStringList asked()
    {
        return m_service->ask([](StandIn &service) { return service.asked; });
    }

    MemoryKeyboardLayout m_layout;
    std::unique_ptr<BusService<StandIn>> m_service;
    std::shared_ptr<PortalBus> m_bus;
    MemoryHotKeys *m_otherwise = nullptr;
    std::unique_ptr<PortalHotKeys> m_hotKeys;
    std::map<HotKeyId, HotKeyChoice> m_told;
};

TEST_F(PortalShortcuts, areAskedForOnceAndTogetherAndReportEachHoldOnce)
{
    startService();
    make();
    EXPECT_EQ(m_hotKeys->control(), HotKeys::Control::Desktop);
    m_hotKeys->begin();
    ASSERT_TRUE(awaitOpen(QStringLiteral("Press <super><shift>v")));
    EXPECT_EQ(asked(), kBothAsked);
    EXPECT_EQ(m_told[kOpenId].combination, (HotKeyCombination{VirtualKey::kV, kSuperShift}));

    QSignalSpy pressed(m_hotKeys.get(), &HotKeys::pressed);
    QSignalSpy released(m_hotKeys.get(), &HotKeys::released);
    QSignalSpy token(m_hotKeys.get(), &PortalHotKeys::activationTokenGiven);
    m_service->tell([](StandIn &service) {
        const QVariantMap options{{QStringLiteral("activation_token"), QStringLiteral("t")}};
        for (const char *signal : {"Activated", "Activated", "Deactivated", "Activated"})
            service.sendOf(QLatin1String(signal), kOpen, options);
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return pressed.size() == 2; }));
    EXPECT_EQ(released.size(), 1);
    EXPECT_EQ(pressed.first().first().value<HotKeyEvent>().id, kOpenId);
    EXPECT_EQ(pressed.first().first().value<HotKeyEvent>().timestamp, 42U);
    EXPECT_EQ(token.first().first().toString(), QStringLiteral("t"));

    // What is stored follows, which is nothing to ask about.
    m_hotKeys->unregisterHotKey(kOpenId);
    ASSERT_TRUE(m_hotKeys->registerAction({1, 3}, VirtualKey::kH, kSuperShift, {kOpen, {}}));
    QCoreApplication::processEvents();
    // A desktop that starts its portals anew asks nobody twice.
    m_service->vanish();
    m_told.clear();
    m_service->appear();
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_told.contains({1, 3}); }));
    EXPECT_EQ(asked().size(), 4);
}

TEST_F(PortalShortcuts, followTheDesktopsSettings)
{
    startService([](StandIn &service) { service.version = 2; });
    make();
    m_hotKeys->begin();
    ASSERT_TRUE(awaitOpen(QStringLiteral("Press <super><shift>v")));
    m_hotKeys->configure();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return m_service->ask([](StandIn &service) { return service.configurations; }) == 1;
    }));
    struct Row
    {
        const char *written;
        const char *told;
    };
    for (const Row &row : {Row{"Press Print", "Press Print"}, Row{"", "No keys"}}) {
        m_service->tell([&row](StandIn &service) {
            service.given[kOpen] = QLatin1String(row.written);
            service.sendChange();
        });
        EXPECT_TRUE(awaitOpen(QLatin1String(row.told))) << row.written;
        EXPECT_FALSE(m_told[kOpenId].combination);
        EXPECT_TRUE(m_hotKeys->isGranted(kOpenId));
    }
}

TEST_F(PortalShortcuts, thatAreRefusedAreAskedForAgainOnlyWhenTheUserWantsIt)
{
    startService([](StandIn &service) { service.refuses = true; });
    make();
    m_hotKeys->begin();
    ASSERT_TRUE(awaitOpen(QStringLiteral("No keys")));
    m_hotKeys->unregisterHotKey(kSwopId);
    ASSERT_TRUE(m_hotKeys->registerAction({1, 3}, VirtualKey::kH, kSuperShift, {kSwop, {}}));
    Q_EMIT m_layout.changed();
    QCoreApplication::processEvents();
    EXPECT_EQ(asked(), kBothAsked);
    m_service->tell([](StandIn &service) { service.refuses = false; });
    m_hotKeys->configure();
    EXPECT_TRUE(awaitOpen(QStringLiteral("Press <super><shift>v")));
}

TEST_F(PortalShortcuts, areLeftToOthersWhereThereIsNoPortal)
{
    make();
    m_otherwise->setControl(HotKeys::Control::Nobody);
    QSignalSpy controlChanged(m_hotKeys.get(), &HotKeys::controlChanged);
    m_hotKeys->begin();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !controlChanged.isEmpty(); }));
    EXPECT_EQ(m_hotKeys->control(), HotKeys::Control::Nobody);
    EXPECT_FALSE(m_hotKeys->isGranted(kOpenId));
    EXPECT_EQ(m_hotKeys->configurationFor({1, 0}, QStringLiteral("launch")),
              QStringLiteral("bind 1 quillmarsh launch"));
}

TEST(PortalTriggers, areWrittenAndReadInTheDesktopsWords)
{
    const MemoryKeyboardLayout layout;
    struct Row
    {
        HotKeyCombination combination;
        const char *asked;
        const char *told;
    };
    const Row rows[] = {
        {{VirtualKey::kV, kSuperShift}, "SHIFT+LOGO+v", "<Super><Shift>V drücken"},
        {{VirtualKey::kF5, CarbonModifiers::kControl | CarbonModifiers::kOption},
         "CTRL+ALT+F5",
         "Press <primary><alt>F5"},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(PortalTriggers::of(row.combination, layout), QLatin1String(row.asked));
        EXPECT_EQ(PortalTriggers::combinationIn(QString::fromUtf8(row.told), layout),
                  row.combination)
            << row.told;
    }
    EXPECT_EQ(PortalTriggers::of({VirtualKey::kV, CarbonModifiers::kCapsLock}, layout), QString());
    for (const char *unknown : {"", "Press v", "<hyper>v", "<super>nosuchkey", "<super>"})
        EXPECT_FALSE(PortalTriggers::combinationIn(QLatin1String(unknown), layout)) << unknown;
}

} // namespace
