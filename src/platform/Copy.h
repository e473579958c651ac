#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// What was copied, in every format that is known here: the one value that goes from the
/// pasteboard into the history and back. Its strings are implicitly shared, so a copy of it is
/// cheap however large the text.
struct Copy
{
    /// The plain text; of files whatever their owner offered with them.
    std::optional<QString> text = {};
    /// The RTF source, one character a byte.
    std::optional<QString> rtf = {};
    /// Absolute paths of copied files, in the owner's order; empty for a text.
    QStringList fileNames = {};
    /// The HTML source as its owner sent it, one character a byte.
    std::optional<QString> html = {};

    /// Which of it an owner offers. HTML is offered as it is here, else made of the RTF.
    enum class Offer {
        Everything,
        NoHtml, ///< The text is not the one that RTF and HTML have, which programs prefer.
        PlainText,
        Picture, ///< The text only names the picture, and many programs would prefer it.
    };
    Offer offer = Offer::Everything;

    /// Of a copied picture: encoded as its owner sent it, or PNG where we offer it; empty where
    /// there is none.
    QByteArray picture = {};

    /// The same, where files without a text have their whole paths for one, one a line: files of
    /// one name are not one clip.
    Copy withText() const;
};

/// A format that a copy may have beside its text and its files. One row of copyFormats() is all
/// that the pasteboards and the store know of it: it is read, kept, stored and offered by that.
/// HTML has no attribute of its own, as a clip keeps it within its RTF.
struct CopyFormat
{
    std::optional<QString> Copy::*source;
    /// The clip's attribute, and the store's column for it; null when it is not stored.
    const char *attribute;
    /// What programs call it, all with the same bytes: asked for in this order, offered under each.
    QStringList names;
    QString (*fromBytes)(const QByteArray &bytes);
    QByteArray (*toBytes)(const QString &source);
    /// What is larger is left out, beside a text of so many bytes.
    qint64 (*maxBytes)(qint64 textBytes);
};

/// In the order in which they are asked for, stored and offered.
const QList<CopyFormat> &copyFormats();
/// Those with an attribute.
const QList<CopyFormat> &storedFormats();
