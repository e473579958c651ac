#include "Clipboard/preview/FileFacts.h"

#include "Clipboard/preview/PreviewFile.h"

#include <QFileInfo>
#include <QMimeDatabase>

std::optional<FileFacts> FileFacts::read(PreviewFile &file, QMimeType *type)
{
    constexpr qint64 kTellingBytes = 16 << 10;
    const QFileInfo info(file.path());
    if (!info.exists() && !info.isSymLink())
        return std::nullopt;
    const QMimeDatabase types;
    // A folder or a device is told by what it is and a file also by how it begins; both without
    // the database's own reading, which knows no bounds.
    if (info.isFile() && file.openRegular())
        *type = types.mimeTypeForFileNameAndData(info.fileName(), file.peek(kTellingBytes));
    else if (info.isFile())
        *type = types.mimeTypeForFile(info, QMimeDatabase::MatchExtension);
    else
        *type = types.mimeTypeForFile(info);
    FileFacts facts;
    facts.kind = type->comment();
    facts.iconName = type->iconName();
    facts.genericIconName = type->genericIconName();
    facts.isFolder = info.isDir();
    if (info.isFile())
        facts.size = info.size();
    facts.modified = info.lastModified();
    facts.linkTarget = info.symLinkTarget();
    return facts;
}
