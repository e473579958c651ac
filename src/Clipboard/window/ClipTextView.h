#pragma once

#include "Clipboard/window/CharacterCounter.h"
#include "history/FoundPlaces.h"
#include "looks/ClipColors.h"

#include <QPlainTextEdit>
#include <QTimer>

class QLabel;

/// The read-only text preview. Owned by the preview pane. It holds the whole text of a clip of up
/// to 1 MiB, and of a larger one the beginning, with a line below that says how much more there is.
/// What is laid out within a frame is there at once; the rest follows while nothing else is to be
/// done. A line that is longer than that is laid out in pieces, each beginning a line of its own on
/// the screen; what is selected and copied is whole.
class ClipTextView : public QPlainTextEdit
{
    Q_OBJECT

public:
    static constexpr qsizetype kShownBytes = 1024 * 1024; ///< Of UTF-8.
    /// Laid out within a frame, even when each is a line of its own.
    static constexpr qsizetype kShownAtOnce = 10'000;

    explicit ClipTextView(QWidget *parent = nullptr);

    /// Shows `text` from its beginning.
    void setString(const QString &text);

    /// Marks what a search has found, in this text and in those to come, and scrolls to the first
    /// of it.
    void setFound(const FoundPlaces &found);
    /// Whether somebody has scrolled it since.
    bool isMoved() const;

    void setColors(const ClipColors &colors);

    /// Keys with which a person reads and copies from a preview of text; any other key is meant for
    /// the list or the search field.
    static bool isReadingKey(const QKeyEvent &event);

    /// The line that says how much of the clip is not shown; hidden when all of it is.
    QLabel *moreLabel() const { return m_moreLabel; }

Q_SIGNALS:
    /// A key that is neither for reading nor for copying from the preview.
    void otherKeyPressed(const QKeyEvent &event);

protected:
    QMimeData *createMimeDataFromSelection() const override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showMore();
    void showRest();
    void placeMoreLabel();
    void showFound();

    QLabel *m_moreLabel;
    CharacterCounter m_rest; ///< Of what is not shown.
    QString m_text;          ///< All that is to be shown; empty once it is.
    qsizetype m_shown = 0;   ///< How much of it is.
    FoundPlaces m_found;
    QColor m_matchColor;
    int m_place = 0;    ///< Of the scroll bar, where the text was left.
    QTimer m_idleTimer; ///< Fires while there is nothing else to do.
};
