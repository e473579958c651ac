#include "platform/freedesktop/FreedesktopSettingsStore.h"
#include "platform/memory/MemorySettingsStore.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimeZone>

#include <gtest/gtest.h>

namespace {

const QString kKey = QStringLiteral("key");

class MemoryMaker
{
public:
    MemorySettingsStore store;
};

class FreedesktopMaker
{
public:
    QTemporaryDir folder;
    FreedesktopSettingsStore store{folder.filePath(QStringLiteral("settings.plist"))};
};

template <typename Maker>
class SettingsStoreContract : public testing::Test
{
protected:
    Maker m_maker;
    SettingsStore &m_settings = m_maker.store;
    QSignalSpy m_changes{&m_settings, &SettingsStore::valueChanged};
};

using Makers = testing::Types<MemoryMaker, FreedesktopMaker>;
TYPED_TEST_SUITE(SettingsStoreContract, Makers, );

TYPED_TEST(SettingsStoreContract, everyTypeComesBackAsItWasSet)
{
    const QVariantMap nested{{QStringLiteral("a"), QVariantList{qlonglong(1), true}}};
    const QVariantList values{true,
                              qlonglong(-1),
                              0.25,
                              QStringLiteral("Zwölf <&> 🗝"),
                              QByteArray("\0\1", 2),
                              QByteArray(""),
                              QString(QLatin1String("")),
                              QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), QTimeZone::utc()),
                              QVariantList(),
                              nested};
    for (const QVariant &value : values) {
        this->m_settings.setValue(kKey, value);
        EXPECT_EQ(this->m_settings.value(kKey), value);
        EXPECT_EQ(this->m_settings.value(kKey).typeId(), value.typeId());
    }
}

TYPED_TEST(SettingsStoreContract, aDefaultAnswersOnlyWhileNothingIsStored)
{
    this->m_settings.registerDefault(kKey, qlonglong(1));
    EXPECT_EQ(this->m_settings.value(kKey), qlonglong(1));
    EXPECT_FALSE(this->m_settings.contains(kKey));
    this->m_settings.setValue(kKey, qlonglong(2));
    EXPECT_EQ(this->m_settings.value(kKey), qlonglong(2));
    this->m_settings.setValue(kKey, QVariant());
    EXPECT_EQ(this->m_settings.value(kKey), qlonglong(1));
    EXPECT_FALSE(this->m_settings.contains(kKey));
}

TYPED_TEST(SettingsStoreContract, onlyADifferentValueIsAnnouncedButEveryOneAsStored)
{
    QSignalSpy stored(&this->m_settings, &SettingsStore::valueStored);
    this->m_settings.setValue(kKey, true);
    this->m_settings.setValue(kKey, true);
    EXPECT_EQ(this->m_changes.size(), 1);
    EXPECT_EQ(stored.size(), 2);
    this->m_settings.setValue(QStringLiteral("other"), QVariant());
    EXPECT_EQ(this->m_changes.size(), 1);
    this->m_settings.setValue(kKey, QVariant());
    EXPECT_EQ(this->m_changes.size(), 2);
    EXPECT_EQ(this->m_changes.last().first(), kKey);
}

} // namespace
