#pragma once

#include "platform/pasteboard/CopyBytes.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

/// What is served to those who ask for it by the name of a format. Immutable and held by shared
/// pointer: a transfer that runs when new contents are written keeps the bytes it needs, and the
/// bytes are never copied.
class CopyOffer
{
public:
    struct Format
    {
        QString name;
        QByteArray bytes;
        /// Makes of the bytes what is asked for; null where they are that already.
        std::function<std::optional<QByteArray>(const QByteArray &bytes)> convert;
    };

    static std::shared_ptr<const CopyOffer> of(const CopyBytes &copy);

    /// The same text and nothing else; null when there is no text.
    std::shared_ptr<const CopyOffer> textAlone() const;

    /// The same, and what was read besides. A picture among it is offered as PNG, too, and under
    /// those of `names` that it can be written as.
    std::shared_ptr<const CopyOffer> with(const QList<Format> &formats,
                                          const QStringList &names) const;

    bool isEmpty() const { return m_formats.isEmpty(); }
    /// UTF-8; absent when there is none.
    const std::optional<QByteArray> &text() const { return m_text; }
    QStringList names() const;
    /// Absent when the contents do not exist in this format.
    std::optional<QByteArray> convert(const QString &name) const;

private:
    CopyOffer() = default;

    QList<Format>::const_iterator find(const QString &name) const;

    std::optional<QByteArray> m_text;
    QList<Format> m_formats;
};
