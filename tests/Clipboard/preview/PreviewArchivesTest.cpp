#include "Clipboard/preview/ListBody.h"
#include "PreviewRig.h"

#include <QLocale>

#include <archive.h>
#include <archive_entry.h>

namespace {

using namespace Qt::StringLiterals;

using PreviewArchivesTest = PreviewRig;

/// What `write` writes into an archive of that format and filter.
template <typename Write>
QByteArray packed(int format, int filter, Write write)
{
    QByteArray bytes(1 << 20, '\0');
    size_t used = 0;
    archive *made = archive_write_new();
    archive_write_set_format(made, format);
    archive_write_add_filter(made, filter);
    archive_write_set_bytes_in_last_block(made, 1);
    archive_write_open_memory(made, bytes.data(), static_cast<size_t>(bytes.size()), &used);
    write(made);
    archive_write_free(made);
    bytes.truncate(static_cast<qsizetype>(used));
    return bytes;
}

void add(archive *made, const char *name, const QByteArray &content, qint64 claimed)
{
    archive_entry *entry = archive_entry_new();
    archive_entry_set_pathname(entry, name);
    archive_entry_set_filetype(entry, qstrcmp(name, "./") == 0 ? AE_IFDIR : AE_IFREG);
    archive_entry_set_size(entry, claimed);
    archive_write_header(made, entry);
    archive_write_data(made, content.constData(), static_cast<size_t>(content.size()));
    archive_entry_free(entry);
}

QByteArray twoFiles(int format, int filter)
{
    return packed(format, filter, [](archive *made) {
        add(made, "./", "", 0);
        add(made, "below/first.txt", "content", 7);
        add(made, "b\xFFt\n.zip", QByteArray(1000, 'x'), 1000);
    });
}

QByteArray zstd(const QByteArray &bytes)
{
    return packed(ARCHIVE_FORMAT_RAW, ARCHIVE_FILTER_ZSTD,
                  [&bytes](archive *made) { add(made, "raw", bytes, bytes.size()); });
}

TEST_F(PreviewArchivesTest, anArchiveTellsItsEntriesHoweverItIsPacked)
{
    const struct
    {
        const char *name;
        int format;
        int filter;
    } kTable[] = {
        {"files.zip", ARCHIVE_FORMAT_ZIP, ARCHIVE_FILTER_NONE},
        {"files.tar", ARCHIVE_FORMAT_TAR_GNUTAR, ARCHIVE_FILTER_NONE},
        {"files.tar.gz", ARCHIVE_FORMAT_TAR_GNUTAR, ARCHIVE_FILTER_GZIP},
        {"files.tar.xz", ARCHIVE_FORMAT_TAR_GNUTAR, ARCHIVE_FILTER_XZ},
        {"files.tar.bz2", ARCHIVE_FORMAT_TAR_GNUTAR, ARCHIVE_FILTER_BZIP2},
        {"files.tar.zst", ARCHIVE_FORMAT_TAR_GNUTAR, ARCHIVE_FILTER_ZSTD},
        {"files.jar", ARCHIVE_FORMAT_ZIP, ARCHIVE_FILTER_NONE},
        {"files.cpio", ARCHIVE_FORMAT_CPIO_POSIX, ARCHIVE_FILTER_NONE},
    };
    for (const auto &row : kTable) {
        // What is left of a name that is no text although its archive says so.
        const QString second = row.format == ARCHIVE_FORMAT_ZIP ? u"\uFFFD"_s : u"b\uFFFDt\n.zip"_s;
        const auto list = readAs<ListContent>(
            write(QString::fromLatin1(row.name), twoFiles(row.format, row.filter)));
        ASSERT_TRUE(list) << row.name;
        EXPECT_EQ(list->entries(), QStringList({u"below/first.txt"_s, second})) << row.name;
        EXPECT_EQ(ListBody::summed(list->count()),
                  u"2 entries, "_s + QLocale().formattedDataSize(1007))
            << row.name;
    }
}

TEST_F(PreviewArchivesTest, anArchiveThatOnlyOthersWriteTellsItsEntriesToo)
{
    for (const char *name : {"files.rar", "files.7z", "locked.7z"}) {
        const auto list = readAs<ListContent>(sample(name));
        ASSERT_TRUE(list) << name;
        EXPECT_TRUE(list->entries().contains(u"inner.txt"_s)) << name;
    }
}

TEST_F(PreviewArchivesTest, aTruncatedArchiveTellsWhatIsLeftOfItAndABrokenOneNothing)
{
    QByteArray bytes = twoFiles(ARCHIVE_FORMAT_TAR_GNUTAR, ARCHIVE_FILTER_NONE);
    bytes.truncate(1536 + 100); // Within the third header.
    const auto list = readAs<ListContent>(write(u"cut.tar"_s, bytes));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->entries(), QStringList(u"below/first.txt"_s));
    EXPECT_TRUE(ListBody::summed(list->count()).endsWith(u"or more"_s));

    for (const QString &path : {write(u"noise.zip"_s, "PK\x03\x04" + QByteArray(5000, '\x7f')),
                                write(u"cut.tar.gz"_s, QByteArray("\x1f\x8b\x08\0\0\0\0\0", 8))})
        EXPECT_FALSE(read(path).content) << path.toStdString();
}

TEST_F(PreviewArchivesTest, anArchiveThatUnpacksWithoutEndIsGivenUp)
{
    constexpr qint64 kClaimed = qint64(100) << 30;
    QByteArray header = packed(ARCHIVE_FORMAT_TAR_GNUTAR, ARCHIVE_FILTER_NONE,
                               [](archive *made) { add(made, "zeros", "", kClaimed); });
    header.truncate(512);
    const QByteArray frame = zstd(QByteArray(32 << 20, '\0'));
    ASSERT_LT(frame.size(), 16 << 10);
    const QString bomb = write(u"bomb.tar.zst"_s, zstd(header) + frame.repeated(kClaimed >> 25));
    const auto list = readAs<ListContent>(bomb);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->entries(), QStringList(u"zeros"_s));
    EXPECT_TRUE(ListBody::summed(list->count()).endsWith(u"or more"_s));
}

} // namespace
