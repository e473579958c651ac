#include "BusService.h"
#include "platform/freedesktop/PortalAppearance.h"
#include "platform/memory/MemoryPlatform.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const auto kService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto kSpace = QStringLiteral("org.freedesktop.appearance");
const auto kColorScheme = QStringLiteral("color-scheme");
const auto kAccentColor = QStringLiteral("accent-color");

using Scheme = Appearance::ColorScheme;

} // namespace

class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    void reset() {}

    void set(const QString &key, const QVariant &value, const QString &space = kSpace)
    {
        settings[space][key] = value;
        auto signal =
            QDBusMessage::createSignal(kPath, QStringLiteral("org.freedesktop.portal.Settings"),
                                       QStringLiteral("SettingChanged"));
        signal << space << key << QVariant::fromValue(QDBusVariant(value));
        QDBusConnection(QStringLiteral("test service ") + kService).send(signal);
    }

    QMap<QString, QVariantMap> settings;

public Q_SLOTS:
    QMap<QString, QVariantMap> ReadAll(const QStringList &) { return settings; }
};

namespace {

QVariant triple(double red, double green, double blue)
{
    QDBusArgument argument;
    argument.beginStructure();
    argument << red << green << blue;
    argument.endStructure();
    return QVariant::fromValue(argument);
}

class MemoryDesktop
{
public:
    void setScheme(Scheme scheme) { appearance.setColorScheme(scheme); }
    void setAccent(const std::optional<QColor> &color) { appearance.setAccentColor(color); }

    MemoryAppearance appearance;
};

class PortalDesktop
{
public:
    PortalDesktop() { qDBusRegisterMetaType<QMap<QString, QVariantMap>>(); }

    void set(const QString &key, const QVariant &value, const QString &space = kSpace)
    {
        portal.tell([&](FakePortal &fake) { fake.set(key, value, space); });
    }
    void setScheme(Scheme scheme) { set(kColorScheme, uint(scheme)); }
    void setAccent(const std::optional<QColor> &color)
    {
        set(kAccentColor,
            color ? triple(color->redF(), color->greenF(), color->blueF()) : triple(-1, -1, -1));
    }

    BusService<FakePortal> portal{kService, kPath};
    PortalAppearance appearance;
};

template <typename Desktop>
class AppearanceContract : public testing::Test
{
protected:
    Desktop m_desktop;
};

using Desktops = testing::Types<MemoryDesktop, PortalDesktop>;
TYPED_TEST_SUITE(AppearanceContract, Desktops, );

TYPED_TEST(AppearanceContract, eachChangeIsToldOnceAndStays)
{
    Appearance &appearance = this->m_desktop.appearance;
    int changes = 0;
    QObject::connect(&appearance, &Appearance::changed, &appearance, [&] { ++changes; });
    EXPECT_EQ(appearance.colorScheme(), Scheme::Unspecified);
    EXPECT_FALSE(appearance.accentColor());
    for (const Scheme scheme : {Scheme::Dark, Scheme::Dark, Scheme::Light, Scheme::Unspecified}) {
        this->m_desktop.setScheme(scheme);
        EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.colorScheme() == scheme; }));
    }
    const QColor violet = QColor::fromRgbF(0.5F, 0, 1);
    this->m_desktop.setAccent(violet);
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.accentColor() == violet; }));
    this->m_desktop.setAccent(std::nullopt);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !appearance.accentColor(); }));
    EXPECT_EQ(changes, 5);
}

TEST(PortalAppearance, aPortalThatStartsLaterIsReadAndWhatItCannotMeanIsPassedOver)
{
    PortalDesktop desktop;
    desktop.portal.vanish();
    desktop.portal.tell([](FakePortal &fake) {
        fake.settings[kSpace] = {{kColorScheme, 1U}, {kAccentColor, QStringLiteral("red")}};
    });
    desktop.portal.appear();
    ASSERT_TRUE(QTest::qWaitFor([&] { return desktop.appearance.colorScheme() == Scheme::Dark; }));
    EXPECT_FALSE(desktop.appearance.accentColor());

    desktop.set(kColorScheme, 2U, QStringLiteral("org.other"));
    desktop.set(QStringLiteral("contrast"), 2U);
    desktop.set(kAccentColor, triple(0, 1, 0));
    ASSERT_TRUE(QTest::qWaitFor([&] { return desktop.appearance.accentColor().has_value(); }));
    EXPECT_EQ(desktop.appearance.colorScheme(), Scheme::Dark);
    for (const QVariant &strange : {QVariant(7U), QVariant(QStringLiteral("1"))}) {
        desktop.setScheme(Scheme::Dark);
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return desktop.appearance.colorScheme() == Scheme::Dark; }));
        desktop.set(kColorScheme, strange);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return desktop.appearance.colorScheme() == Scheme::Unspecified; }));
    }
}

TEST(PortalAppearance, animationsAreAsEitherDesktopSays)
{
    const auto gnome = QStringLiteral("org.gnome.desktop.interface");
    const auto kde = QStringLiteral("org.kde.kdeglobals.KDE");
    const auto switchOf = QStringLiteral("enable-animations");
    const auto factorOf = QStringLiteral("AnimationDurationFactor");
    PortalDesktop desktop;
    EXPECT_TRUE(desktop.appearance.areAnimationsWanted()) << "nothing said";
    const std::tuple<QString, QString, QVariant, bool> rows[] = {
        {gnome, switchOf, false, false},
        {gnome, switchOf, true, true},
        {kde, factorOf, QStringLiteral("0"), false},
        {kde, factorOf, QStringLiteral("nonsense"), false},
        {kde, factorOf, QStringLiteral("0.5"), true},
    };
    for (const auto &[space, key, value, wanted] : rows) {
        desktop.set(key, value, space);
        const auto scheme = wanted ? Scheme::Dark : Scheme::Light;
        desktop.setScheme(scheme);
        ASSERT_TRUE(QTest::qWaitFor([&] { return desktop.appearance.colorScheme() == scheme; }));
        EXPECT_EQ(desktop.appearance.areAnimationsWanted(), wanted) << qPrintable(value.toString());
        desktop.setScheme(Scheme::Unspecified);
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return desktop.appearance.colorScheme() == Scheme::Unspecified; }));
    }
    desktop.portal.vanish();
    desktop.portal.tell([&](FakePortal &fake) {
        fake.settings[gnome] = {{switchOf, false}};
        fake.settings[kSpace] = {{kColorScheme, 1U}};
    });
    desktop.portal.appear();
    ASSERT_TRUE(QTest::qWaitFor([&] { return desktop.appearance.colorScheme() == Scheme::Dark; }));
    EXPECT_FALSE(desktop.appearance.areAnimationsWanted()) << "a portal that starts later";
}

} // namespace

#include "AppearanceTest.moc"
