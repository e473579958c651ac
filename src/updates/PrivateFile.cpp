#include "updates/PrivateFile.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSaveFile>

namespace {

Q_LOGGING_CATEGORY(lcFile, "quillmarsh.updates.file", QtInfoMsg)

constexpr auto kOwnersFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr auto kOwnersFolder = kOwnersFile | QFileDevice::ExeOwner;

} // namespace

void PrivateFile::makeFolder(const QString &path)
{
    if (!QFileInfo::exists(path) && QDir().mkpath(path))
        QFile::setPermissions(path, kOwnersFolder);
}

bool PrivateFile::write(const QString &path, const QByteArray &bytes)
{
    makeFolder(QFileInfo(path).path());
    QSaveFile file(path);
    // Without the flush, commit() would not notice that a full disk took nothing.
    if (file.open(QIODevice::WriteOnly) && file.setPermissions(kOwnersFile) &&
        file.write(bytes) == bytes.size() && file.flush() && file.commit())
        return true;
    qCWarning(lcFile).noquote() << path << "could not be written:" << file.errorString();
    return false;
}
