#include "Clipboard/HelpPage.h"

#include "platform/OwnProgram.h"
#include "platform/Workspace.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QUrl>

namespace {

Q_LOGGING_CATEGORY(lcHelp, "quillmarsh.help")

/// The help page lies beside the program, in the build tree as after installation.
QUrl helpPageUrl()
{
    const QString path = OwnProgram::prefix() + QStringLiteral("/share/quillmarsh/help/index.html");
    return QFileInfo::exists(path) ? QUrl::fromLocalFile(path) : QUrl();
}

} // namespace

void openHelpPage(Workspace &workspace)
{
    const QUrl page = helpPageUrl();
    if (!page.isValid()) {
        qCWarning(lcHelp, "invalid help url");
        return;
    }
    if (workspace.openUrl(page))
        qCInfo(lcHelp, "url help successfully opened");
}
