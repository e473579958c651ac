#include "history/ClipItem.h"

#include "history/ClipContext.h"
#include "history/CopiedFiles.h"

#include <QTimeZone>

#include <cmath>

ClipItem::ClipItem(ClipContext &context) : m_context(&context) {}

ClipItem::~ClipItem() = default;

std::optional<qint64> ClipItem::id() const
{
    return m_context ? m_context->details(*this).id : std::nullopt;
}

/// What is not saved yet goes before what is; null when there is none.
const Clip *ClipItem::unsavedClip() const
{
    return m_unsaved && m_unsaved->clip ? &*m_unsaved->clip : nullptr;
}

std::optional<QString> ClipItem::strValue() const
{
    if (const Clip *clip = unsavedClip())
        return clip->text;
    return m_context ? m_context->text(*this) : std::nullopt;
}

std::optional<QString> ClipItem::rtfValue() const
{
    return clip().rtf;
}

std::optional<QString> ClipItem::applicationName() const
{
    if (const Clip *clip = unsavedClip())
        return clip->applicationName;
    return m_context ? m_context->details(*this).applicationName : std::nullopt;
}

std::optional<QString> ClipItem::filepath() const
{
    if (const Clip *clip = unsavedClip())
        return clip->filepath();
    return m_context && m_hasFilepath ? m_context->details(*this).filepath : std::nullopt;
}

Clip ClipItem::clip() const
{
    if (const Clip *clip = unsavedClip())
        return *clip;
    Clip clip(strValue(), std::nullopt, applicationName(), filepath());
    for (const CopyFormat &format : storedFormats())
        clip.*format.source = m_context ? m_context->format(*this, format) : std::nullopt;
    return clip;
}

std::optional<QDateTime> ClipItem::createDate() const
{
    if (std::isnan(m_createDate))
        return std::nullopt;
    return QDateTime::fromMSecsSinceEpoch(std::llround(m_createDate * 1000), QTimeZone::utc());
}

std::optional<qint32> ClipItem::pasteCount() const
{
    if (m_unsaved && m_unsaved->pasteCount)
        return m_unsaved->pasteCount;
    return m_context ? m_context->details(*this).pasteCount : std::nullopt;
}

bool ClipItem::isNewerThan(const ClipItem &other) const
{
    const bool hasDate = !std::isnan(m_createDate);
    if (hasDate != !std::isnan(other.m_createDate))
        return hasDate;
    if (hasDate && m_createDate != other.m_createDate)
        return m_createDate > other.m_createDate;
    return rank() > other.rank();
}

qint64 ClipItem::rank() const
{
    if (m_pk != 0)
        return m_pk;
    // A new record gets the highest key when it is saved.
    return m_unsaved && m_unsaved->formerPk != 0 ? m_unsaved->formerPk
                                                 : std::numeric_limits<qint64>::max();
}

QString ClipItem::drawnText() const
{
    return m_context ? m_context->drawnText(*this) : QString();
}

QStringList ClipItem::copiedFiles() const
{
    return CopiedFiles::of(strValue(), filepath());
}

int ClipItem::copiedFileCount() const
{
    return m_context && m_hasFilepath ? m_context->copiedFileCount(*this) : 0;
}

std::optional<QString> ClipItem::shortText() const
{
    return m_context ? m_context->shortText(*this) : std::nullopt;
}
