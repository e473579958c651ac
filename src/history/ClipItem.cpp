#include "history/ClipItem.h"

#include "history/ClipContext.h"
#include "history/ClipValues.h"

#include <QTimeZone>

#include <cmath>

ClipItem::ClipItem(ClipContext &context) : m_context(&context) {}

ClipItem::~ClipItem() = default;

std::optional<qint64> ClipItem::id() const
{
    return m_context ? m_context->facts(*this).id : std::nullopt;
}

std::optional<QString> ClipItem::strValue() const
{
    if (m_unsaved && (m_unsaved->attributes & ClipAttribute::kStrValue))
        return m_unsaved->values.strValue;
    return m_context ? m_context->text(*this) : std::nullopt;
}

std::optional<QString> ClipItem::rtfValue() const
{
    if (m_unsaved && (m_unsaved->attributes & ClipAttribute::kRtfValue))
        return m_unsaved->values.rtfValue;
    return m_context ? m_context->rtf(*this) : std::nullopt;
}

std::optional<QString> ClipItem::applicationName() const
{
    if (m_unsaved && (m_unsaved->attributes & ClipAttribute::kApplicationName))
        return m_unsaved->values.applicationName;
    return m_context ? m_context->facts(*this).applicationName : std::nullopt;
}

std::optional<QString> ClipItem::filepath() const
{
    if (m_unsaved && (m_unsaved->attributes & ClipAttribute::kFilepath))
        return m_unsaved->values.filepath;
    return m_context && m_hasFilepath ? m_context->facts(*this).filepath : std::nullopt;
}

std::optional<QDateTime> ClipItem::createDate() const
{
    if (std::isnan(m_createDate))
        return std::nullopt;
    return QDateTime::fromMSecsSinceEpoch(std::llround(m_createDate * 1000), QTimeZone::utc());
}

std::optional<qint32> ClipItem::pasteCount() const
{
    if (m_unsaved && (m_unsaved->attributes & ClipAttribute::kPasteCount))
        return m_unsaved->values.pasteCount;
    return m_context ? m_context->facts(*this).pasteCount : std::nullopt;
}

QString ClipItem::drawnText() const
{
    return m_context ? m_context->drawnText(*this) : QString();
}

std::optional<QString> ClipItem::shortText() const
{
    return m_context ? m_context->shortText(*this) : std::nullopt;
}
