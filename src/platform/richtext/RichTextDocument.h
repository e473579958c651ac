#pragma once

#include <QByteArray>
#include <QTextDocument>

#include <memory>

/// Rich text to be shown. It holds text and its formatting only: no picture, script or style sheet
/// is in it, and it reads and fetches nothing. Where a text is a link, its format is an anchor with
/// the address (http, https or mailto), which nothing follows by itself, and has no looks of its
/// own. Colours are those that were copied, fit for paper; a text without one has none.
class RichTextDocument : public QTextDocument
{
    Q_OBJECT

public:
    /// Of RTF as RichText::withHtml() makes it or an owner does: of the HTML that it carries, else
    /// of itself. Holds about `maxCharacters` of markup and text at most. Null when there is no
    /// text in it.
    ///
    /// May be made by any thread. It belongs to none until one takes it with moveToThread(), and
    /// has no layout until it is asked for one.
    static std::unique_ptr<RichTextDocument> of(const QByteArray &rtf, qsizetype maxCharacters);

    /// Whether there was more than it holds.
    bool isCut() const { return m_isCut; }

    /// The same of HTML as it was copied.
    static std::unique_ptr<RichTextDocument> ofHtml(const QByteArray &html,
                                                    qsizetype maxCharacters);

protected:
    QVariant loadResource(int type, const QUrl &name) override;

private:
    RichTextDocument();

    void makeAnchors();

    bool m_isCut = false;
};
