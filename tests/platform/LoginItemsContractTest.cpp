#include "platform/freedesktop/entries/FreedesktopLoginItems.h"
#include "platform/memory/MemoryDesktopLists.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QString kOther = QStringLiteral("/usr/bin/env");

QString us()
{
    return QCoreApplication::applicationFilePath();
}

class MemoryMaker
{
public:
    MemoryMaker() { items.setApplicationPath(us()); }
    void append(const QString &program) { items.append(program); }

    MemoryLoginItems items;
};

class FreedesktopMaker
{
public:
    /// Another program's entry, a minute younger than the one before.
    void append(const QString &program)
    {
        QFile file(folder.filePath(QStringLiteral("%1.desktop").arg(9 - ++count)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Desktop Entry]\nExec=" + program.toUtf8());
        file.flush();
        file.setFileTime(QDateTime::currentDateTime().addSecs(60 * count),
                         QFileDevice::FileModificationTime);
    }

    QTemporaryDir folder;
    FreedesktopLoginItems items{folder.path(), us()};
    int count = 0;
};

template <typename Maker>
class LoginItemsContract : public testing::Test
{
protected:
    /// The programs in order; a dash for what does not resolve.
    QStringList programs() const
    {
        QStringList programs;
        const QList<LoginItem> items = m_maker.items.snapshot().value();
        for (const LoginItem &item : items)
            programs.append(m_maker.items.resolvedPath(item).value_or(QStringLiteral("-")));
        return programs;
    }

    Maker m_maker;
    LoginItems &m_items = m_maker.items;
};

using Makers = testing::Types<MemoryMaker, FreedesktopMaker>;
TYPED_TEST_SUITE(LoginItemsContract, Makers, );

TYPED_TEST(LoginItemsContract, anInsertedEntryComesLastAndResolvesToOurselves)
{
    EXPECT_EQ(this->programs(), QStringList());
    this->m_maker.append(kOther);
    this->m_maker.append(QStringLiteral(""));
    this->m_items.insertLast(us());
    EXPECT_EQ(this->m_items.applicationPath(), us());
    EXPECT_EQ(this->programs(), (QStringList{kOther, QStringLiteral("-"), us()}));
}

TYPED_TEST(LoginItemsContract, anEntryThatIsRemovedAndInsertedMovesToTheEnd)
{
    this->m_items.insertLast(us());
    this->m_maker.append(kOther);
    EXPECT_EQ(this->programs(), (QStringList{us(), kOther}));
    this->m_items.remove(this->m_items.snapshot()->first());
    EXPECT_EQ(this->programs(), QStringList{kOther});
    this->m_items.insertLast(us());
    EXPECT_EQ(this->programs(), (QStringList{kOther, us()}));
}

} // namespace
