#include "preview/decoders/ArchiveReader.h"

#include "platform/FileQuestions.h"
#include "preview/ListContent.h"
#include "preview/PreviewFile.h"

#include <array>
#include <optional>

#include <archive.h>
#include <archive_entry.h>

namespace {

constexpr std::chrono::milliseconds kMaxTime{300};
constexpr qint64 kMaxClaimed = qint64(1) << 48; ///< Bytes of one entry, so that a sum stays one.

struct Kind
{
    const char *type;
    int filter; ///< Around the archive as a whole.
};

/// The filter is taken from the type and not tried out, because an archive may pretend to be
/// wrapped many times. Documents that happen to be archives are missing: nobody wants their parts.
constexpr std::array kKinds{
    Kind{"application/zip", ARCHIVE_FILTER_NONE},
    Kind{"application/x-java-archive", ARCHIVE_FILTER_NONE},
    Kind{"application/vnd.android.package-archive", ARCHIVE_FILTER_NONE},
    Kind{"application/x-7z-compressed", ARCHIVE_FILTER_NONE},
    Kind{"application/vnd.rar", ARCHIVE_FILTER_NONE},
    Kind{"application/vnd.ms-cab-compressed", ARCHIVE_FILTER_NONE},
    Kind{"application/x-lha", ARCHIVE_FILTER_NONE},
    Kind{"application/x-xar", ARCHIVE_FILTER_NONE},
    Kind{"application/x-cpio", ARCHIVE_FILTER_NONE},
    Kind{"application/x-archive", ARCHIVE_FILTER_NONE},
    Kind{"application/vnd.debian.binary-package", ARCHIVE_FILTER_NONE},
    Kind{"application/x-cd-image", ARCHIVE_FILTER_NONE},
    Kind{"application/x-tar", ARCHIVE_FILTER_NONE},
    Kind{"application/x-compressed-tar", ARCHIVE_FILTER_GZIP},
    Kind{"application/x-bzip-compressed-tar", ARCHIVE_FILTER_BZIP2},
    Kind{"application/x-bzip2-compressed-tar", ARCHIVE_FILTER_BZIP2}, // Its newer name.
    Kind{"application/x-xz-compressed-tar", ARCHIVE_FILTER_XZ},
    Kind{"application/x-lzma-compressed-tar", ARCHIVE_FILTER_LZMA},
    Kind{"application/x-zstd-compressed-tar", ARCHIVE_FILTER_ZSTD},
    Kind{"application/x-lz4-compressed-tar", ARCHIVE_FILTER_LZ4},
};

std::optional<int> filterOf(const PreviewType &type)
{
    for (const Kind &kind : kKinds)
        if (type.name() == QLatin1String(kind.type))
            return kind.filter;
    return std::nullopt;
}

/// An archive that is read from a file, for as long as a preview may take.
class Reading
{
public:
    Reading(PreviewFile &file, const Patience &patience)
        : m_file(file), m_patience(patience.atMost(kMaxTime))
    {
    }
    Reading(const Reading &) = delete;
    Reading &operator=(const Reading &) = delete;
    ~Reading() { archive_read_free(m_archive); }

    bool open(int filter)
    {
        for (const auto support :
             {archive_read_support_format_zip, archive_read_support_format_tar,
              archive_read_support_format_7zip, archive_read_support_format_rar,
              archive_read_support_format_rar5, archive_read_support_format_cab,
              archive_read_support_format_lha, archive_read_support_format_xar,
              archive_read_support_format_cpio, archive_read_support_format_ar,
              archive_read_support_format_iso9660})
            support(m_archive);
        archive_read_set_read_callback(m_archive, readPart);
        archive_read_set_seek_callback(m_archive, seek);
        archive_read_set_callback_data(m_archive, this);
        return archive_read_append_filter(m_archive, filter) == ARCHIVE_OK &&
               archive_read_open1(m_archive) == ARCHIVE_OK;
    }

    /// One of the results of libarchive; `entry` is valid until the next.
    int next(archive_entry **entry)
    {
        return m_patience.isOver() ? ARCHIVE_FATAL : archive_read_next_header(m_archive, entry);
    }

private:
    static la_ssize_t readPart(archive *, void *data, const void **part)
    {
        auto *self = static_cast<Reading *>(data);
        *part = self->m_part.data();
        return self->m_patience.isOver()
                   ? -1
                   : self->m_file.read(self->m_part.data(), self->m_part.size());
    }

    static la_int64_t seek(archive *, void *data, la_int64_t offset, int whence)
    {
        PreviewFile &file = static_cast<Reading *>(data)->m_file;
        if (whence == SEEK_CUR)
            offset += file.pos();
        else if (whence == SEEK_END)
            offset += file.size();
        return offset >= 0 && file.seek(offset) ? offset : la_int64_t(ARCHIVE_FATAL);
    }

    PreviewFile &m_file;
    const Patience m_patience;
    /// Small, because the time is looked at between two parts, and one may unpack to 100,000 times
    /// its size.
    std::array<char, 4096> m_part;
    archive *const m_archive = archive_read_new();
};

QString nameOf(archive_entry *entry)
{
    // Names that are not what the archive claims are shown with replacement characters.
    const char *name = archive_entry_pathname_utf8(entry);
    if (!name)
        name = archive_entry_pathname(entry);
    QString shown = QString::fromUtf8(name ? name : "\xEF\xBF\xBD");
    if (shown.startsWith(QLatin1String("./")) && shown.size() > 2)
        shown.remove(0, 2);
    if (archive_entry_filetype(entry) == AE_IFDIR && !shown.endsWith(u'/'))
        shown += u'/';
    return shown;
}

} // namespace

bool ArchiveReader::accepts(const PreviewType &type) const
{
    return filterOf(type).has_value();
}

std::shared_ptr<const PreviewContent> ArchiveReader::read(PreviewFile &file,
                                                          const PreviewType &type, QSize,
                                                          const Patience &patience) const
{
    Reading reading(file, patience);
    if (!reading.open(filterOf(type).value_or(ARCHIVE_FILTER_NONE)))
        return nullptr;
    ListCount count;
    QStringList entries;
    archive_entry *entry = nullptr;
    int result = ARCHIVE_OK;
    while (count.entries < kMaxCounted && (result = reading.next(&entry)) != ARCHIVE_EOF) {
        if (result < ARCHIVE_WARN)
            break;
        // The folder that is packed, or a disk's topmost, is no entry of its own.
        const QString name = nameOf(entry);
        if (name == QLatin1String("./"))
            continue;
        ++count.entries;
        count.bytes += qBound(qint64(0), qint64(archive_entry_size(entry)), kMaxClaimed);
        if (entries.size() < ListContent::kMaxEntries)
            entries.append(name);
    }
    count.isWhole = result == ARCHIVE_EOF;
    if (!count.isWhole && entries.isEmpty())
        return nullptr;
    return std::make_shared<ListContent>(count, entries);
}
