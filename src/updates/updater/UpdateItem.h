#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

/// One file that the feed offers. What the signature covers is said with UpdateSignature; until it
/// has been checked, all of this is only what the server says.
struct UpdateItem
{
    QString version;       ///< Compared; a form that UpdateVersion reads.
    QString shortVersion;  ///< Shown.
    QString channel;       ///< "release", "beta" or "test".
    QString minimumSystem; ///< The least version of the C library; empty for any.
    QString kind;          ///< "appimage" or "prefix".
    QString machine;       ///< As Qt names what a program is built for: "x86_64", "arm64".
    qint64 size = 0;       ///< Bytes.
    QByteArray signature;  ///< 64 bytes.
    QUrl url;
    QString notes; ///< Plain text; may be empty.
};
