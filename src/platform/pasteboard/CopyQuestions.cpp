#include "platform/pasteboard/CopyQuestions.h"

#include "platform/pasteboard/PasteboardLimits.h"
#include "platform/pasteboard/PictureFormats.h"
#include "platform/pasteboard/TextFormats.h"

#include <algorithm>

namespace CopyQuestions {

namespace {

void useFiles(const QString &name, const QByteArray &bytes, CopyBytes &copy)
{
    if (name == FileUris::kUriList) {
        copy.uriList = bytes;
        copy.fileNames = FileUris::filesOfUriList(bytes);
        return;
    }
    if (copy.fileNames.isEmpty())
        copy.fileNames = FileUris::filesOfGnomeList(bytes);
    copy.fileAction = FileUris::actionOfGnomeList(bytes);
}

} // namespace

bool Question::isLike(const Question &other) const
{
    const bool hasOneAnswer = part == Part::Text || part == Part::Format || part == Part::Picture;
    return hasOneAnswer && part == other.part && row == other.row;
}

qint64 Question::maxBytes(const FetchedCopy &fetched) const
{
    if (part == Part::Picture)
        return std::min(PasteboardLimits::kMaxFormat, most);
    if (part != Part::Format)
        return PasteboardLimits::kMaxFormat;
    const qint64 textBytes = fetched.copy.text.value_or(QByteArray()).size();
    return std::min(PasteboardLimits::kMaxFormat, copyFormats().at(row).maxBytes(textBytes));
}

QList<Question> of(const QStringList &names, const Useful &useful)
{
    using Part = Question::Part;
    QList<Question> questions;
    for (const QString &name : TextFormats::inOrder(names))
        questions.append({Part::Text, name});
    const auto plan = [&](Part part, const QString &name, qsizetype row = 0) {
        if (names.contains(name))
            questions.append({part, name, row});
    };
    for (qsizetype row = 0; row < copyFormats().size(); ++row) {
        for (const QString &name : copyFormats()[row].names)
            plan(Part::Format, name, row);
    }
    plan(Part::Files, FileUris::kUriList);
    // Asked for beside the other list, because only this one may say that the files were cut.
    plan(Part::Files, FileUris::kGnomeList);
    plan(Part::CutMark, FileUris::kKdeCut);
    const bool mayBePicture =
        TextFormats::inOrder(names).isEmpty() || TextFormats::mayHoldNone(names);
    if (useful.picture > 0 && mayBePicture) {
        // Whatever is no PNG becomes one, and how large that is shows then.
        for (const QString &name : PictureFormats::inOrder(names))
            questions.append(
                {Part::Picture, name, 0,
                 name == PictureFormats::kPng ? useful.picture : PasteboardLimits::kMaxFormat});
    }
    return questions;
}

bool isOfUse(const Question &question, const FetchedCopy &fetched)
{
    const CopyBytes &copy = fetched.copy;
    return question.part != Question::Part::Picture ||
           (copy.text.value_or(QByteArray()).isEmpty() && copy.fileNames.isEmpty() &&
            copy.picture.isEmpty() && !fetched.isPictureTooLarge);
}

void refuse(const Question &question, FetchedCopy &fetched)
{
    if (question.part == Question::Part::Picture)
        fetched.isPictureTooLarge = true;
}

void use(const Question &question, const QByteArray &bytes, const QString &type,
         FetchedCopy &fetched)
{
    CopyBytes &copy = fetched.copy;
    switch (question.part) {
    case Question::Part::Text: {
        const QByteArray text = TextFormats::toUtf8(bytes, question.name, type);
        // Drawing programs may as well answer with nothing as refuse.
        if (!text.isEmpty() || !TextFormats::mayHoldNone(fetched.names))
            copy.text = text;
        break;
    }
    case Question::Part::Format:
        copy.formats[&copyFormats()[question.row]] = bytes;
        break;
    case Question::Part::Files:
        useFiles(question.name, bytes, copy);
        break;
    case Question::Part::CutMark:
        if (bytes.startsWith('1'))
            copy.fileAction = FileUris::Action::Cut;
        break;
    case Question::Part::Picture:
        copy.picture = bytes;
        copy.pictureName = bytes.isEmpty() ? QString() : question.name;
        break;
    }
}

void complete(FetchedCopy &fetched)
{
    CopyBytes &copy = fetched.copy;
    const qsizetype files = copy.fileNames.size();
    if (files == 0 || fetched.isTextTooLarge)
        return;
    // Many file managers offer no text, or what they have as the list already.
    if (!copy.text || FileUris::areAddresses(*copy.text, files))
        copy.text = CopyBytes::of(Copy{{}, {}, copy.fileNames}.withText()).text;
}

} // namespace CopyQuestions
