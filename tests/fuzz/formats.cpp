/// What the bytes of a copy mean, under the names that its owner gives them: lists of files, marks
/// of cut ones, texts in any encoding, pictures. The input is one answer after the other: a byte
/// that chooses its name, one that chooses its type, the length in two bytes, and the bytes. Kept
/// inputs: tests/data/fuzz/formats.

#include "fuzz/Demand.h"
#include "platform/pasteboard/CopyQuestions.h"

#include <QGuiApplication>
#include <QMap>

#include <array>

namespace {

constexpr std::array kNames{
    "UTF8_STRING",
    "STRING",
    "TEXT",
    "COMPOUND_TEXT",
    "text/plain",
    "text/plain;charset=utf-8",
    "text/plain;charset=utf-16",
    "text/plain;charset=UTF-16BE",
    "text/plain;charset=iso-8859-15",
    "text/plain;charset=shift_jis",
    "text/plain;charset=gb18030",
    "text/plain;charset=iso-2022-kr",
    "text/plain;charset=utf-7",
    "text/plain;charset=SCSU",
    "text/plain; charset=\"unicode\"",
    "text/uri-list",
    "x-special/gnome-copied-files",
    "application/x-kde-cutselection",
    "text/rtf",
    "text/html",
    "image/bmp",
    "image/x-portable-pixmap",
    "image/png",
    "x-kde-passwordManagerHint",
};

QString nameOf(quint8 number)
{
    return QString::fromLatin1(kNames[number % kNames.size()]);
}

void saySilently(QtMsgType, const QMessageLogContext &, const QString &) {}

struct Answer
{
    QString type;
    QByteArray bytes;
};

FetchedCopy fetched(Input input)
{
    FetchedCopy copy;
    QMap<QString, Answer> answers;
    while (!input.isEmpty() && copy.names.size() < CopyQuestions::kMaxNamed) {
        const QString name = nameOf(input.byte());
        const QString type = nameOf(input.byte());
        answers[name] = {type, input.bytes(input.number())};
        copy.names.append(name);
    }
    for (const CopyQuestions::Question &question :
         CopyQuestions::of(copy.names, {1 << 20, 1 << 20})) {
        const Answer answer = answers[question.name];
        if (!CopyQuestions::isOfUse(question, copy))
            continue;
        if (answer.bytes.size() > question.maxBytes(copy))
            CopyQuestions::refuse(question, copy);
        else
            CopyQuestions::use(question, answer.bytes, answer.type, copy);
    }
    CopyQuestions::complete(copy);
    return copy;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(saySilently);
    new QGuiApplication(*argc, *argv); // For as long as the program runs.
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const FetchedCopy copy = fetched(Input(data, size));
    const QStringList &files = copy.copy.fileNames;
    for (const QString &file : files)
        demand(file.startsWith(u'/') && !file.contains(QChar(0)), "a file has an absolute path");
    demand(FileUris::filesOfUriList(FileUris::uriList(files)) == files &&
               FileUris::filesOfGnomeList(FileUris::gnomeList(files, copy.copy.fileAction)) ==
                   files,
           "the same files come out of a list of them");
    // A byte of any encoding is a few characters at most, and of those a few bytes each.
    demand(copy.copy.byteCount() <= qint64(size) * 24 + 64, "no answer grows without bounds");
    const PasteboardContents contents = copy.contents(1 << 20);
    demand(contents.isTextTooLarge || contents.text.has_value() == copy.copy.text.has_value(),
           "a text that fits is told");
    for (const CopyBytes::Offer &offer : copy.copy.offers()) {
        if (offer.convert)
            static_cast<void>(offer.convert(offer.bytes));
    }
    // As the history gives it back.
    const CopyBytes again = CopyBytes::of(contents);
    demand(again.copy().text == contents.text, "a text survives being copied again");
    return 0;
}
