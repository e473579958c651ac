#include "Clipboard/preview/FileFacts.h"

#include "Clipboard/preview/PreviewFile.h"

#include <QFileInfo>
#include <QMimeDatabase>

namespace {

constexpr qint64 kTellingBytes = 16 << 10;

} // namespace

std::optional<FileFacts> FileFacts::read(PreviewFile &file, QMimeType *type)
{
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
    else if (info.exists())
        *type = types.mimeTypeForFile(info);
    else
        *type = types.mimeTypeForName(QStringLiteral("inode/symlink"));
    FileFacts facts;
    facts.kind = type->isDefault() ? QString() : type->comment();
    facts.iconName = type->iconName();
    facts.genericIconName = type->genericIconName();
    facts.isFolder = info.isDir();
    if (info.isFile())
        facts.size = info.size();
    facts.created = info.birthTime();
    facts.modified = info.lastModified();
    facts.linkTarget = info.symLinkTarget();
    return facts;
}

QMimeType FileFacts::typeByContent(PreviewFile &file)
{
    file.seek(0);
    return QMimeDatabase().mimeTypeForData(file.peek(kTellingBytes));
}
