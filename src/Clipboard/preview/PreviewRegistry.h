#pragma once

#include "Clipboard/preview/FileAttributes.h"
#include "Clipboard/preview/FileWatch.h"
#include "platform/FileQuestions.h"
#include "preview/PreviewTrouble.h"

#include <QSize>
#include <QTimer>

#include <list>
#include <memory>

class FilePreview;
class PreviewContent;
class PreviewFile;
class PreviewProcess;
class QImage;
class QMimeType;
class QWidget;

/// What was found of a file. A value.
struct PreviewResult
{
    std::optional<FileAttributes> attributes;      ///< None when there is no such file.
    std::shared_ptr<const PreviewContent> content; ///< Null where only a card can be shown.
    PreviewTrouble trouble = PreviewTrouble::None; ///< Why, where the card has more to say.
};

/// Has files read for their previews, each in a process of its own that can reach nothing else, and
/// keeps the latest results. Owned by FileViewController. A kept result is shown only if the file
/// is still as it was.
class PreviewRegistry
{
public:
    static constexpr size_t kMaxKept = 32;
    static constexpr qint64 kMaxKeptBytes = 96 << 20;

    /// For which a file may be read, and for which that is waited for: its turn may have to come
    /// first, and a process to start.
    static constexpr std::chrono::milliseconds kMaxTime{2000};
    static constexpr std::chrono::milliseconds kMaxWait{4000};
    /// After which a process that has nothing to read ends.
    static constexpr std::chrono::seconds kRestAfter{30};

    /// `questions` must outlive the registry.
    explicit PreviewRegistry(FileQuestions &questions);
    PreviewRegistry(FileQuestions &questions, std::shared_ptr<PreviewProcess> process);
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

    /// Has one page of the document at `path` drawn in `width` pixels; a null picture when it
    /// cannot be. The rest as above.
    [[nodiscard]] FileTicket askPage(const QString &path, int page, int width,
                                     std::function<void(const QImage &)> receive);

    /// Lets go of the results that are kept, and of their memory.
    void forget();

    FileQuestions &questions() const { return m_questions; }

    /// Number of results kept.
    size_t keptCount() const { return m_kept.size(); }

private:
    struct Kept
    {
        QString path;
        QSize pixels;
        PreviewResult result;
    };

    static PreviewResult read(PreviewProcess &process, const QString &path, QSize pixels,
                              const std::optional<Kept> &kept, const Patience &patience);
    static void readContent(PreviewProcess &process, PreviewFile &file, const QMimeType &type,
                            QSize pixels, const Patience &patience, PreviewResult *result);
    std::optional<Kept> kept(const QString &path) const;
    void keep(Kept fresh);

    FileQuestions &m_questions;
    std::shared_ptr<PreviewProcess> m_process; ///< Shared with threads that hang.
    QTimer m_resting;                          ///< Since it was last used.
    std::list<Kept> m_kept;                    ///< The latest first.
    FileTicket m_trimming;
    FileTicket m_rest;
};
