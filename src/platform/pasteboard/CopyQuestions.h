#pragma once

#include "platform/pasteboard/FetchedCopy.h"

#include <QList>
#include <QStringList>

/// What an owner is asked for that is of use of its copy, and what the answers mean: the same
/// wherever copies are exchanged by the names of their formats.
namespace CopyQuestions {

/// Whoever lists it marks a copy as a secret. It comes from one desktop's clipboard manager, and
/// password managers set it everywhere.
const QString kSecretMark = QStringLiteral("x-kde-passwordManagerHint");

/// No more names than these are looked at.
constexpr qsizetype kMaxNamed = 1024;

/// How much of a copy is of use, in bytes.
struct Useful
{
    qint64 text = 0;
    qint64 picture = 0; ///< Of a PNG; 0 where no picture is.
};

struct Question
{
    enum class Part { Text, Format, Files, CutMark, Picture };

    Part part = Part::Text;
    QString name = {};
    qsizetype row = 0; ///< In copyFormats(), of a Format.
    qint64 most = 0;   ///< Bytes of a Picture.

    /// Whether what answers one of them answers the other, too.
    bool isLike(const Question &other) const;
    /// What is larger is of no use, as far as the text is known already.
    qint64 maxBytes(const FetchedCopy &fetched) const;
};

/// Those for an owner that offers `names`, the most important first: the text comes first, so that
/// it is there when the owner does not live long, and a picture last, because it may turn out that
/// it is not asked for.
QList<Question> of(const QStringList &names, const Useful &useful);

/// Whether the answer is of use, as far as what was fetched tells: a picture is nothing but
/// another view of a text or of files.
bool isOfUse(const Question &question, const FetchedCopy &fetched);

/// The answer is larger than is of use.
void refuse(const Question &question, FetchedCopy &fetched);

/// Takes a whole answer, which its owner calls `type`, into what was fetched.
void use(const Question &question, const QByteArray &bytes, const QString &type,
         FetchedCopy &fetched);

/// Nothing more is to come.
void complete(FetchedCopy &fetched);

} // namespace CopyQuestions
