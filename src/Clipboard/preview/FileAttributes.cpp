#include "Clipboard/preview/FileAttributes.h"

#include "preview/PreviewFile.h"

#include <QFileInfo>
#include <QMimeDatabase>

namespace {

constexpr qint64 kTellingBytes = 16 << 10;

} // namespace

std::optional<FileAttributes> FileAttributes::read(PreviewFile &file, QMimeType *type)
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
    FileAttributes attributes;
    attributes.kind = type->isDefault() ? QString() : type->comment();
    attributes.iconName = type->iconName();
    attributes.genericIconName = type->genericIconName();
    attributes.isFolder = info.isDir();
    if (info.isFile())
        attributes.size = info.size();
    attributes.created = info.birthTime();
    attributes.modified = info.lastModified();
    attributes.linkTarget = info.symLinkTarget();
    return attributes;
}

QMimeType FileAttributes::typeByContent(PreviewFile &file)
{
    file.seek(0);
    return QMimeDatabase().mimeTypeForData(file.peek(kTellingBytes));
}
