#pragma once

#include "Clipboard/preview/FileAttributes.h"
#include "Clipboard/preview/FileWatch.h"
#include "platform/FileQuestions.h"

#include <QSize>

#include <list>
#include <memory>
#include <vector>

class FilePreview;
class PreviewContent;
class PreviewFile;
class PreviewReader;
class QMimeType;
class QWidget;

/// What was found of a file. A value.
struct PreviewResult
{
    std::optional<FileAttributes> attributes;      ///< None when there is no such file.
    std::shared_ptr<const PreviewContent> content; ///< Null where only a card can be shown.
};

/// Chooses, by the type of a file, what reads it, and keeps the latest results. Owned
/// by FileViewController. A kept result is shown only if the file is still as it was.
class PreviewRegistry
{
public:
    static constexpr size_t kMaxKept = 32;
    static constexpr qint64 kMaxKeptBytes = 96 << 20;

    /// `questions` must outlive the registry.
    explicit PreviewRegistry(FileQuestions &questions);
    ~PreviewRegistry();

    /// An empty view for the file at `path`, a child of `parent`. The file itself is not touched
    /// before the view's refresh().
    FilePreview *makeView(const QString &path, QWidget *parent);

    /// Reads the file for a view of `pixels` on a helper thread and hands the result to `receive`
    /// on the main thread, while the ticket is held. A file system that hangs never answers. The
    /// file is followed by `watch`, unless null, from before it is read.
    [[nodiscard]] FileTicket ask(const QString &path, QSize pixels,
                                 std::function<void(const PreviewResult &)> receive,
                                 std::shared_ptr<FileWatch::Descriptor> watch = nullptr);

    /// Lets go of the results that are kept, and of their memory.
    void forget();

    FileQuestions &questions() const { return m_questions; }

    /// Number of results kept.
    size_t keptCount() const { return m_kept.size(); }

private:
    using Readers = std::vector<std::unique_ptr<const PreviewReader>>;
    struct Kept
    {
        QString path;
        QSize pixels;
        PreviewResult result;
    };

    static PreviewResult read(const Readers &readers, const QString &path, QSize pixels,
                              const std::optional<Kept> &kept, const Patience &patience);
    static std::shared_ptr<const PreviewContent> contentAs(const QMimeType &type,
                                                           const Readers &readers,
                                                           PreviewFile &file, QSize pixels,
                                                           const Patience &patience);
    std::optional<Kept> kept(const QString &path) const;
    void keep(Kept fresh);

    FileQuestions &m_questions;
    std::shared_ptr<const Readers> m_readers; ///< Shared with threads that hang.
    std::list<Kept> m_kept;                   ///< The latest first.
    FileTicket m_trimming;
};
