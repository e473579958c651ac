#include "platform/memory/MemorySettingsStore.h"

#include <gtest/gtest.h>

namespace {

struct Conversion
{
    const char *name;
    QVariant stored;
    bool asBool;
    qint64 asInteger;
};

using SettingsConversion = testing::TestWithParam<Conversion>;

TEST_P(SettingsConversion, readsAnyStoredTypeAsBooleanAndInteger)
{
    MemorySettingsStore settings;
    settings.setValue(QStringLiteral("key"), GetParam().stored);
    EXPECT_EQ(settings.boolForKey(QStringLiteral("key")), GetParam().asBool);
    EXPECT_EQ(settings.integerForKey(QStringLiteral("key")), GetParam().asInteger);
}

INSTANTIATE_TEST_SUITE_P(
    Types, SettingsConversion,
    testing::Values(Conversion{"absent", QVariant(), false, 0}, Conversion{"yes", true, true, 1},
                    Conversion{"integer", qlonglong(-7), true, -7},
                    Conversion{"real", 12.9, true, 12}, Conversion{"hugeReal", 1e300, true, 0},
                    Conversion{"text", QStringLiteral(" 42 clips"), true, 42},
                    Conversion{"twentyDigits", QStringLiteral("99999999999999999999"), true,
                               std::numeric_limits<qint64>::max()},
                    Conversion{"word", QStringLiteral("YES"), true, 0},
                    Conversion{"data", QByteArray("12"), false, 0},
                    Conversion{"array", QVariantList{qlonglong(1)}, false, 0}),
    [](const auto &row) { return std::string(row.param.name); });

} // namespace
