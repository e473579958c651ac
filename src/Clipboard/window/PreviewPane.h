#pragma once

#include "Clipboard/window/RichTextPreparation.h"
#include "history/FoundPlaces.h"
#include "looks/ClipColors.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

class ClipInfoLine;
class ClipTextView;
class Clock;
class QKeyEvent;
class RichTextView;

/// The preview side of the history window: the preview of a text above the line that describes the
/// clip. A text is there at once; its formatting takes its place as soon as it is ready, unless
/// somebody reads on in the text by then. The file preview is put into the pane by the view
/// controller. Owned by the split view.
class PreviewPane : public QWidget
{
    Q_OBJECT

public:
    /// The RTF of a text, one character a byte; absent when it has no formatting.
    using RtfSource = std::function<std::optional<QString>()>;

    /// `clock` must outlive the pane.
    explicit PreviewPane(Clock &clock, QWidget *parent = nullptr);
    ~PreviewPane() override;

    /// Shows a text from its beginning. `rtf`, which may be empty, is asked while there is nothing
    /// else to do once the text has been painted.
    void showText(const QString &text, RtfSource rtf);
    /// Asks again for the formatting of what is shown, which may have come late.
    void lookForFormatting();
    /// What a search has found is marked in whatever text is shown, which begins where the first
    /// of it stands.
    void setFound(const FoundPlaces &found);
    /// Makes room for the preview of a file.
    void hideText();

    /// Always holds the text; hidden while there is something to show instead.
    ClipTextView *textView() const { return m_textView; }
    /// Shown while the text has its formatting; null before there was any.
    RichTextView *richTextView() const { return m_richTextView; }
    ClipInfoLine *infoLine() const { return m_infoLine; }

    void setColors(const ClipColors &colors);

Q_SIGNALS:
    void resized();
    /// A key in the text that is neither for reading nor for copying from it.
    void otherKeyPressed(const QKeyEvent &event);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void readFormatting();
    void prepareFormatting();
    void showFormatted(std::unique_ptr<RichTextDocument> document);
    void showPlain();
    bool isFormatted() const;
    void makeRichTextView();
    void placeViews();

    ClipTextView *m_textView;
    RichTextView *m_richTextView = nullptr;
    ClipInfoLine *m_infoLine;
    ClipColors m_colors;
    FoundPlaces m_found;

    RtfSource m_rtfSource; ///< Empty when there is nothing to ask.
    QString m_rtf;         ///< What was asked last; empty for none.
    bool m_isDue = false;  ///< It is to be asked after the next painting.
    QTimer m_idleTimer;    ///< Fires once there is nothing else to do.
    RichTextPreparation m_preparation;
};
