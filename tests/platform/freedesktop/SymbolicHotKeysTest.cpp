#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/freedesktop/shortcuts/FreedesktopSymbolicHotKeys.h"
#include "platform/freedesktop/shortcuts/GSettingsShortcuts.h"
#include "platform/freedesktop/shortcuts/PlasmaShortcuts.h"
#include "platform/freedesktop/shortcuts/ShortcutText.h"
#include "platform/freedesktop/shortcuts/XfceShortcuts.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace CarbonModifiers;

QByteArray sample(const char *name)
{
    QFile file(QStringLiteral(TEST_DATA_DIR "/shortcuts/") + QString::fromUtf8(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll();
}

bool takes(const QList<SymbolicHotKey> &hotKeys, quint32 keyCode, quint32 modifiers)
{
    return hotKeys.contains({keyCode, modifiers, true});
}

struct Text
{
    const char *name;
    const char *text;
    std::optional<SymbolicHotKey> hotKey;
};

SymbolicHotKey hotKey(quint32 keyCode, quint32 modifiers)
{
    return {keyCode, modifiers, true};
}

using GtkText = testing::TestWithParam<Text>;

TEST_P(GtkText, isThePlaceOfTheKeyAndItsModifiers)
{
    EXPECT_EQ(ShortcutText::fromGtk(QString::fromUtf8(GetParam().text)), GetParam().hotKey);
}

INSTANTIATE_TEST_SUITE_P(
    Accelerators, GtkText,
    testing::Values(Text{"primary", "<Primary><Shift>v", hotKey(VirtualKey::kV, kControl | kShift)},
                    Text{"capital", "<super>V", hotKey(VirtualKey::kV, kCommand)},
                    Text{"mod4", "<Mod4><Alt>Page_Up",
                         hotKey(VirtualKey::kPageUp, kCommand | kOption)},
                    Text{"aboveTab", "<Super>Above_Tab", hotKey(VirtualKey::kGrave, kCommand)},
                    Text{"plain", "F10", hotKey(VirtualKey::kF10, 0)},
                    Text{"digit", "<Super>1", hotKey(VirtualKey::kDigit1, kCommand)},
                    Text{"keypad", "<Control>KP_Add", hotKey(VirtualKey::kKeypadPlus, kControl)},
                    Text{"media", "XF86AudioMute", hotKey(VirtualKey::kMute, 0)},
                    Text{"noVirtualKey", "<Alt>Print", {}}, Text{"foreignModifier", "<Hyper>v", {}},
                    Text{"disabled", "disabled", {}}, Text{"empty", "", {}},
                    Text{"open", "<Super", {}}, Text{"modifierOnly", "<Super>", {}},
                    Text{"path", "/org/gnome/custom0/", {}}),
    [](const auto &row) { return std::string(row.param.name); });

using QtText = testing::TestWithParam<Text>;

TEST_P(QtText, isThePlaceOfTheKeyAndItsModifiers)
{
    EXPECT_EQ(ShortcutText::fromQt(QString::fromUtf8(GetParam().text)), GetParam().hotKey);
}

INSTANTIATE_TEST_SUITE_P(
    Shortcuts, QtText,
    testing::Values(
        Text{"letter", "Meta+Ctrl+A", hotKey(VirtualKey::kA, kCommand | kControl)},
        Text{"plus", "Meta++", hotKey(VirtualKey::kEqual, kCommand | kShift)},
        Text{"impliedShift", "Alt+~", hotKey(VirtualKey::kGrave, kOption | kShift)},
        Text{"backtab", "Alt+Shift+Backtab", hotKey(VirtualKey::kTab, kOption | kShift)},
        Text{"page", "Meta+PgDown", hotKey(VirtualKey::kPageDown, kCommand)},
        Text{"escape", "Meta+Ctrl+Esc", hotKey(VirtualKey::kEscape, kCommand | kControl)},
        Text{"function", "Ctrl+F9", hotKey(VirtualKey::kF9, kControl)},
        Text{"unknownKey", "Launch (C)", {}}, Text{"chord", "Ctrl+K, Ctrl+C", {}},
        Text{"none", "none", {}}, Text{"empty", "", {}}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(GSettingsShortcuts, gnomesListsAndTheUsersOwnAreRead)
{
    const QStringList schemas = GSettingsShortcuts::schemasOf(QStringLiteral("gnome"));
    const auto hotKeys = GSettingsShortcuts::parse(sample("gnome.txt"), schemas);
    EXPECT_TRUE(takes(hotKeys, VirtualKey::kF4, kOption));
    EXPECT_TRUE(takes(hotKeys, VirtualKey::kN, kCommand));
    EXPECT_TRUE(takes(hotKeys, VirtualKey::kLeftArrow, kCommand | kShift | kOption));
    EXPECT_TRUE(takes(hotKeys, VirtualKey::kL, kCommand));
    EXPECT_FALSE(takes(hotKeys, VirtualKey::kX, kCommand | kShift));
    const QString custom = QStringLiteral("org.gnome.settings-daemon.plugins.media-keys");
    EXPECT_EQ(
        GSettingsShortcuts::customSchemas(sample("gnome.txt"), schemas),
        QStringList{custom + QStringLiteral(".custom-keybinding:/org/gnome/settings-daemon/plugins/"
                                            "media-keys/custom-keybindings/custom0/")});
    const QByteArray own = "org.x.custom-keybinding binding '<Shift><Super>v'\n"
                           "org.x.custom-keybinding command \"xterm -e 'a b'\"\n"
                           "org.x.custom-keybinding name 'x'\n";
    EXPECT_EQ(GSettingsShortcuts::parseCustom(own),
              QList{hotKey(VirtualKey::kV, kCommand | kShift)});
}

TEST(GSettingsShortcuts, cinnamonsAndMatesListsAreRead)
{
    const QStringList cinnamon = GSettingsShortcuts::schemasOf(QStringLiteral("X-Cinnamon"));
    const auto ofCinnamon = GSettingsShortcuts::parse(sample("cinnamon.txt"), cinnamon);
    EXPECT_TRUE(takes(ofCinnamon, VirtualKey::kD, kCommand));
    EXPECT_TRUE(takes(ofCinnamon, VirtualKey::kL, kCommand));
    EXPECT_TRUE(GSettingsShortcuts::customSchemas(sample("cinnamon.txt"), cinnamon)
                    .contains(QStringLiteral(
                        "org.cinnamon.desktop.keybindings.custom-keybinding:/org/cinnamon/desktop/"
                        "keybindings/custom-keybindings/custom0/")));
    const QStringList mate = GSettingsShortcuts::schemasOf(QStringLiteral("MATE"));
    const auto ofMate = GSettingsShortcuts::parse(sample("mate.txt"), mate);
    EXPECT_TRUE(takes(ofMate, VirtualKey::kD, kControl | kOption));
    EXPECT_FALSE(takes(ofMate, VirtualKey::kD, kCommand));
    // The settings of a desktop that is not running are no shortcuts of this session.
    EXPECT_TRUE(GSettingsShortcuts::parse(sample("gnome.txt"), mate).isEmpty());
}

TEST(XfceShortcuts, theUsersSetReplacesTheDefaultOfItsProvider)
{
    const QByteArray user = sample("xfce-user.xml");
    const QByteArray system = sample("xfce-system.xml");
    const auto untouched = XfceShortcuts::parse({system});
    EXPECT_TRUE(takes(untouched, VirtualKey::kF1, kOption));
    EXPECT_FALSE(takes(untouched, VirtualKey::kV, kCommand));
    const auto changed = XfceShortcuts::parse({user, system});
    EXPECT_TRUE(takes(changed, VirtualKey::kV, kCommand));
    EXPECT_TRUE(takes(changed, VirtualKey::kF2, kOption));
    // Alt-F1 is not in the user's set of commands; Alt-F4 is the window manager's, left as it was.
    EXPECT_FALSE(takes(changed, VirtualKey::kF1, kOption));
    EXPECT_TRUE(takes(changed, VirtualKey::kF4, kOption));
    EXPECT_TRUE(XfceShortcuts::parse({"<channel><property", "", "\xff"}).isEmpty());
}

TEST(PlasmaShortcuts, onlyWhatIsInForceIsTaken)
{
    const auto hotKeys = PlasmaShortcuts::parse(
        sample("kglobalshortcutsrc") +
        "\n[services][org.kde.konsole.desktop]\n_launch=Ctrl+Alt+T\n_k_friendly_name=Meta+K\n"
        "Comma=Meta+\\\\,,none,Comma\nChanged=none,Meta+Y,Changed\n"
        "[org.quillmarsh.Quillmarsh]\nopenShortCut=Meta+Shift+V,none,Show\n[kded]\nx=Meta+U,,x\n");
    EXPECT_FALSE(takes(hotKeys, VirtualKey::kV, kCommand | kShift)); // Our own.
    EXPECT_TRUE(takes(hotKeys, VirtualKey::kU, kCommand));
    EXPECT_TRUE(takes(hotKeys, VirtualKey::kW, kCommand));
    EXPECT_TRUE(takes(hotKeys, VirtualKey::kEqual, kCommand));
    EXPECT_TRUE(takes(hotKeys, VirtualKey::kF10, kControl));
    EXPECT_TRUE(takes(hotKeys, VirtualKey::kT, kControl | kOption));
    EXPECT_TRUE(takes(hotKeys, VirtualKey::kComma, kCommand));
    EXPECT_FALSE(takes(hotKeys, VirtualKey::kY, kCommand));
    EXPECT_FALSE(takes(hotKeys, VirtualKey::kK, kCommand));
}

/// A `gsettings` of our own first on the PATH.
class FakeGSettings : public testing::Test
{
protected:
    void install(const QByteArray &script) const
    {
        QFile file(m_folder.filePath(QStringLiteral("gsettings")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        qputenv("PATH", m_folder.path().toUtf8() + ':' + m_path);
    }

    ~FakeGSettings() override { qputenv("PATH", m_path); }

    QTemporaryDir m_folder;
    const QByteArray m_path = qgetenv("PATH");
};

TEST_F(FakeGSettings, theRunningDesktopsShortcutsArriveLater)
{
    install("if [ $# = 1 ]; then cat " TEST_DATA_DIR "/shortcuts/gnome.txt\n"
            "else echo \"s binding '<Super>v'\"; fi\n");
    FreedesktopSymbolicHotKeys symbolic({QStringLiteral("ubuntu"), QStringLiteral("GNOME")});
    QSignalSpy refreshed(&symbolic, &SymbolicHotKeys::refreshed);
    symbolic.refresh();
    EXPECT_TRUE(symbolic.hotKeys().isEmpty());
    ASSERT_TRUE(refreshed.wait());
    EXPECT_TRUE(takes(symbolic.hotKeys(), VirtualKey::kF4, kOption));
    EXPECT_TRUE(takes(symbolic.hotKeys(), VirtualKey::kV, kCommand));
}

TEST_F(FakeGSettings, aDesktopWithoutAListContributesNone)
{
    install("cat " TEST_DATA_DIR "/shortcuts/gnome.txt\n");
    FreedesktopSymbolicHotKeys symbolic({QStringLiteral("openbox")});
    QSignalSpy refreshed(&symbolic, &SymbolicHotKeys::refreshed);
    symbolic.refresh();
    ASSERT_TRUE(refreshed.wait());
    EXPECT_TRUE(symbolic.hotKeys().isEmpty());
}

TEST_F(FakeGSettings, aProgramThatHangsHoldsNothingUp)
{
    install("exec sleep 3600\n");
    // Were it waited for, this would not end in its time.
    FreedesktopSymbolicHotKeys symbolic({QStringLiteral("GNOME")}, std::chrono::hours(1));
    symbolic.refresh();
    symbolic.refresh();
}

} // namespace
