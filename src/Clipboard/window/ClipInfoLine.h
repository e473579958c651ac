#pragma once

#include "Clipboard/window/CharacterCounter.h"
#include "looks/ClipColors.h"

#include <QDateTime>
#include <QString>
#include <QWidget>

#include <memory>

class ClipItem;
class Clock;
class QTimer;

/// The quiet line under the preview: where the clip came from, when, its size and how often it was
/// pasted. Owned by the preview pane. While it is seen it keeps step with the time.
class ClipInfoLine : public QWidget
{
    Q_OBJECT

public:
    /// `clock` must outlive the line.
    explicit ClipInfoLine(Clock &clock, QWidget *parent = nullptr);

    /// Describes `item`, and says first how many clips are marked; nothing when it is null.
    void setClipItem(const std::shared_ptr<ClipItem> &item, int markCount);

    /// That so many clips are marked.
    static QString markedText(int count) { return tr("%Ln marked", nullptr, count); }

    /// The whole line, however much of it fits.
    QString text() const { return m_text; }

    void setColors(const ClipColors &colors);

    QSize sizeHint() const override;

    /// `time` as somebody at `now` would say it.
    static QString relativeTime(const QDateTime &time, const QDateTime &now);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void update();
    QString size() const;
    QFont lineFont() const;

    Clock &m_clock;
    std::shared_ptr<ClipItem> m_item;
    int m_markCount = 0;
    CharacterCounter m_counter;
    QString m_text;
    ClipColors m_colors;
    QTimer *m_timer;
};
