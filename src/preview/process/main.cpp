/// Reads files for the previews of another process, which hands them over one by one through the
/// socket that this one is started with, and can do nothing else: what is in such a file may take
/// over whatever reads it.

#include "preview/PreviewFile.h"
#include "preview/decoders/Decoders.h"
#include "preview/decoders/PreparedFonts.h"
#include "preview/process/PreviewService.h"
#include "preview/process/Sandbox.h"

#include <QGuiApplication>

#include <cstdlib>
#include <new>

#include <unistd.h>

namespace {

// What libraries say of a file is nothing for a log.
void saySilently(QtMsgType, const QMessageLogContext &, const QString &) {}

[[noreturn]] void endWithoutMemory()
{
    ::_exit(PreviewService::kOutOfMemory);
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler(saySilently);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_NO_GLIB", "1"); // Whose event loops want more than they are given.
    PreparedFonts::chooseFew();
    {
        const QGuiApplication application(argc, argv);
        Decoders::prepare();
        std::set_new_handler(endWithoutMemory);
        if (!Sandbox::close())
            ::_exit(PreviewService::kNotApart);
        PreviewService::run(PreviewService::kSocket, Decoders::answer);
        // What a file may have damaged is not cleaned up.
        ::_exit(EXIT_SUCCESS);
    }
}
