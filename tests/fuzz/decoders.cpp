/// What reads files for previews, on any file: the input's first byte chooses the type that the
/// file is taken for, the rest is the file. Kept inputs: tests/data/fuzz/decoders.

#include "preview/decoders/Decoders.h"
#include "platform/FileQuestions.h"
#include "preview/PreviewFile.h"

#include <QGuiApplication>

#include <array>
#include <cstdlib>

#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr std::array kTypes{
    "image/svg+xml",
    "image/png",
    "image/jpeg",
    "image/gif",
    "image/bmp",
    "image/x-icon",
    "image/x-xpixmap",
    "image/x-portable-pixmap",
    "application/pdf",
    "application/zip",
    "application/x-7z-compressed",
    "application/vnd.rar",
    "application/x-tar",
    "application/x-compressed-tar",
    "application/x-xz-compressed-tar",
    "application/x-cd-image",
    "application/vnd.ms-cab-compressed",
    "application/x-lha",
    "application/x-xar",
    "application/x-cpio",
    "font/ttf",
    "font/otf",
    "font/woff",
    "font/woff2",
    "text/plain",
    "text/html",
    "text/markdown",
};

void saySilently(QtMsgType, const QMessageLogContext &, const QString &) {}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(saySilently);
    new QGuiApplication(*argc, *argv); // For as long as the program runs.
    Decoders::prepare();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2)
        return -1;
    const int file = ::memfd_create("input", MFD_CLOEXEC);
    if (file < 0 || ::write(file, data + 1, size - 1) != ssize_t(size - 1))
        std::abort();
    const std::stop_source nobodyStops;
    const Patience patience(nobodyStops.get_token(), &std::chrono::steady_clock::now,
                            std::chrono::steady_clock::now() + std::chrono::seconds(2));
    PreviewFile input(file, qint64(size) - 1, patience);
    PreviewOrder order;
    order.type = PreviewType(QStringList(QString::fromLatin1(kTypes[data[0] % kTypes.size()])));
    order.pixels = QSize(256, 256);
    order.size = input.size();
    const QByteArray answer = PreviewMessages::encoded(Decoders::answer(order, input, patience));
    // What a reader makes in good faith is never taken for a forgery.
    if (!PreviewMessages::decodedAnswer(answer))
        std::abort();
    return 0;
}
