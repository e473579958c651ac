#pragma once

#include "looks/ClipColors.h"
#include "looks/FormattedText.h"

#include <QTextDocument>
#include <QTextEdit>

#include <memory>

class FoundPlaces;
class PacedLayout;
class RichTextDocument;

/// The read-only preview of a text with its formatting. Owned by the preview pane. A link looks
/// like one and is none: nothing here is followed, fetched or opened.
class RichTextView : public QTextEdit, public FormattedText
{
    Q_OBJECT

public:
    explicit RichTextView(QWidget *parent = nullptr);
    ~RichTextView() override;

    /// Shows itself with a document that RichTextLooks::fit() has given its looks.
    void setRichText(std::unique_ptr<RichTextDocument> document);
    /// The same text in other looks: what is marked and in sight stays so.
    void changeLooks(std::unique_ptr<RichTextDocument> document);

    /// Marks what a search has found.
    void markFound(const FoundPlaces &found);
    /// Besides, scrolls to the first of it.
    void showFound(const FoundPlaces &found);

    void setColors(const ClipColors &colors);

    // ^FormattedText
    Copy selectedCopy() const override;

Q_SIGNALS:
    /// A key that is neither for reading nor for copying from the preview.
    void otherKeyPressed(const QKeyEvent &event);

protected:
    QMimeData *createMimeDataFromSelection() const override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    bool isSurelyHigher(const QTextDocument &document) const;

    /// Shown where there is nothing to show: a null document has the toolkit take on the palette of
    /// the application.
    QTextDocument m_blank;
    std::unique_ptr<RichTextDocument> m_document; ///< Null before the first.
    QColor m_matchColor;
    PacedLayout *m_layout = nullptr; ///< The document's.
};
