#pragma once

#include <QSize>
#include <QString>
#include <QWidget>

#include <chrono>
#include <memory>

class PreviewFile;
class Patience;
class FileQuestions;
class QMimeType;
class QScrollBar;
struct ClipColors;

/// The widget that shows a file's content. Owned by its FilePreview.
class PreviewBody : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    virtual void setColors(const ClipColors &colors) = 0;

    /// By which it is scrolled; null when it is shown whole.
    virtual QScrollBar *scrollBar() const { return nullptr; }

protected:
    /// Where, close to `point`, one of the screen's pixels begins, also at fractional scales; a
    /// picture in its own size that is painted from there stays sharp.
    QPointF onPixel(QPointF point) const
    {
        const QPointF origin = mapTo(window(), QPoint());
        const qreal scale = devicePixelRatioF();
        return QPointF(((origin + point) * scale).toPoint()) / scale - origin;
    }
};

/// What was read of a file, ready to be shown. Made on a helper thread, immutable from then on,
/// and kept for when the file is looked at again.
class PreviewContent
{
public:
    PreviewContent() = default;
    PreviewContent(const PreviewContent &) = delete;
    PreviewContent &operator=(const PreviewContent &) = delete;
    virtual ~PreviewContent() = default;

    /// A widget that shows it, a child of `parent`; on the main thread, within a frame. What it
    /// still has to read it asks `questions` for.
    virtual PreviewBody *makeBody(FileQuestions &questions, QWidget *parent) const = 0;

    /// Bytes of memory it holds, roughly.
    virtual qint64 byteCount() const = 0;

    /// Whether it was made for a view of one size and must be made anew for a larger one.
    virtual bool dependsOnSize() const { return false; }
};

/// Knows how to read files of some kinds. Owned by PreviewRegistry; without state, because reads
/// run on several threads at once.
class PreviewReader
{
public:
    /// For which a read is waited for.
    static constexpr std::chrono::milliseconds kMaxTime{2000};

    PreviewReader() = default;
    PreviewReader(const PreviewReader &) = delete;
    PreviewReader &operator=(const PreviewReader &) = delete;
    virtual ~PreviewReader() = default;

    virtual bool accepts(const QMimeType &type) const = 0;

    /// Reads what a view of `pixels` needs, on a helper thread; none when the file is not what its
    /// type says, or too much. `file` is open at its beginning, but for folders, which it only
    /// names. A read that takes long asks `patience` now and then.
    virtual std::shared_ptr<const PreviewContent> read(PreviewFile &file, const QMimeType &type,
                                                       QSize pixels,
                                                       const Patience &patience) const = 0;
};
