#pragma once

#include "preview/PreviewContent.h"
#include "preview/PreviewType.h"

#include <QByteArray>
#include <QSize>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

/// What is wanted of one open file. A value.
struct PreviewOrder
{
    enum class Kind : quint8 {
        File,      ///< What a view of `pixels` needs of it.
        Page,      ///< Of a document `page`, in the width of `pixels`, as a picture.
        Thumbnail, ///< The picture that it is, if made of a file written at `written`.
    };

    Kind kind = Kind::File;
    PreviewType type{};
    QSize pixels{};
    int page = 0;
    QString written{};
    qint64 size = 0; ///< Of the file, in bytes.
    std::chrono::milliseconds time{0};
};

/// What was made of it. A value.
struct PreviewAnswer
{
    std::shared_ptr<const PreviewContent> content{}; ///< Null when there is nothing to be shown.
    bool isTimeUp = false;                           ///< Then there might have been something.
    bool isLast = false;                             ///< Who answers has worked enough, and ends.
};

/// Both as bytes, between two processes of the same version. An answer comes from who may have been
/// taken over by a file: what is not exactly as a reader may make it, in every bound, is no answer.
namespace PreviewMessages {

/// Of an answer: the pictures of an animation and one that fills a large screen.
constexpr qsizetype kMaxBytes = 128 << 20;
constexpr qsizetype kMaxOrderBytes = 64 << 10;

QByteArray encoded(const PreviewOrder &order);
QByteArray encoded(const PreviewAnswer &answer);
std::optional<PreviewOrder> decodedOrder(const QByteArray &bytes);
std::optional<PreviewAnswer> decodedAnswer(const QByteArray &bytes);

} // namespace PreviewMessages
