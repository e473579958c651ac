#pragma once

#include "platform/Copy.h"
#include "platform/pasteboard/FileUris.h"

#include <QHash>

#include <functional>

/// A copy as programs hand it to one another. What another program sent stays in its own bytes,
/// broken or not, so that it can be served on after its death.
struct CopyBytes
{
    /// One of the names under which it is offered, and what is behind that.
    struct Offer
    {
        QString name;
        QString type; ///< What the bytes are said to be.
        QByteArray bytes;
        /// Done when asked for; null for nothing.
        std::function<QByteArray(const QByteArray &bytes)> convert;
    };

    /// UTF-8, as it was sent unless it was sent in another encoding.
    std::optional<QByteArray> text;
    /// By the rows of copyFormats().
    QHash<const CopyFormat *, QByteArray> formats;
    /// A picture, and the name of its encoding; both empty where there is none.
    QString pictureName;
    QByteArray picture;
    /// As it was sent; empty where none was.
    QByteArray uriList;
    QStringList fileNames;
    FileUris::Action fileAction = FileUris::Action::Copy;
    /// HTML is made of the RTF for those who ask for it, where there is none.
    bool makesHtml = false;

    static CopyBytes of(const Copy &copy);
    Copy copy() const;

    qint64 byteCount() const;

    /// Most faithful first: some programs take the first that they know.
    QList<Offer> offers() const;
    /// Every name that an offer can have.
    static QStringList names();
};
