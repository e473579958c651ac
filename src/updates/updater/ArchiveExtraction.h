#pragma once

#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <optional>

class QFile;

/// Unpacks a tar archive (gzip or xz) into a folder that was made for it. Nothing is ever written
/// outside that folder, whatever the archive says: names are taken apart and followed one by one,
/// never through a link. Only folders, plain files and links to a file of the same folder are
/// known; anything else, and more than the bounds allow, refuses the archive.
class ArchiveExtraction
{
    Q_DECLARE_TR_FUNCTIONS(ArchiveExtraction)

public:
    static constexpr qint64 kMaxBytes = 2LL * 1024 * 1024 * 1024;
    static constexpr int kMaxEntries = 20000;

    /// Reads `archive` from its beginning into the empty `folder`; gives up when `isCancelled`
    /// becomes true. Nothing on success, else a sentence for the user; the folder then holds what
    /// was written until then.
    static std::optional<QString> extract(QFile &archive, const QString &folder,
                                          const std::atomic<bool> &isCancelled);
};
