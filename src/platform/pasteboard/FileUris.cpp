#include "platform/pasteboard/FileUris.h"

#include <QFile>
#include <QSysInfo>

#include <optional>

namespace {

const QByteArray kScheme = QByteArrayLiteral("file:");

bool isThisMachine(const QByteArray &host)
{
    // A file address may name the machine, and many programs do so with their own. The file of
    // another machine would be a wrong one here.
    return host.isEmpty() || host.compare("localhost", Qt::CaseInsensitive) == 0 ||
           host.compare(QSysInfo::machineHostName().toUtf8(), Qt::CaseInsensitive) == 0;
}

std::optional<QString> localFile(const QByteArray &uri)
{
    if (uri.left(kScheme.size()).compare(kScheme, Qt::CaseInsensitive) != 0)
        return std::nullopt;
    QByteArray path = uri.mid(kScheme.size());
    if (path.startsWith("//")) {
        const qsizetype hostEnd = path.indexOf('/', 2);
        if (hostEnd < 0 || !isThisMachine(path.mid(2, hostEnd - 2)))
            return std::nullopt;
        path = path.mid(hostEnd);
    }
    path = QByteArray::fromPercentEncoding(path);
    // No file has a NUL in its path, and what follows it would be lost on the way to the system.
    if (!path.startsWith('/') || path.contains('\0'))
        return std::nullopt;
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return QFile::decodeName(path);
}

QByteArray uriOf(const QString &path)
{
    // By the bytes of its name: names in no encoding at all must be found again.
    return "file://" + QFile::encodeName(path).toPercentEncoding("/");
}

QList<QByteArray> linesOf(QByteArray list)
{
    // Some owners end their list as C strings end.
    while (list.endsWith('\0'))
        list.chop(1);
    // RFC 2483 ends lines with CRLF; many programs write LF alone. Its comments, which begin with
    // #, are no addresses and fall out by themselves.
    list.replace('\r', '\n');
    return list.split('\n');
}

QStringList filesOf(const QList<QByteArray> &lines)
{
    QStringList paths;
    for (const QByteArray &line : lines) {
        if (const std::optional<QString> path = localFile(line.trimmed()))
            paths.append(*path);
    }
    return paths;
}

} // namespace

QStringList FileUris::filesOfUriList(const QByteArray &uriList)
{
    return filesOf(linesOf(uriList));
}

QStringList FileUris::filesOfGnomeList(const QByteArray &gnomeList)
{
    const QList<QByteArray> lines = linesOf(gnomeList);
    if (lines.first() != "copy" && lines.first() != "cut")
        return {};
    return filesOf(lines.mid(1));
}

QByteArray FileUris::uriList(const QStringList &paths)
{
    QByteArray list;
    for (const QString &path : paths)
        list += uriOf(path) + "\r\n";
    return list;
}

QByteArray FileUris::gnomeList(const QStringList &paths, Action action)
{
    QByteArray list = action == Action::Cut ? "cut" : "copy";
    for (const QString &path : paths)
        // Before each, because a newline behind the last one would begin an empty address.
        list += '\n' + uriOf(path);
    return list;
}

FileUris::Action FileUris::actionOfGnomeList(const QByteArray &gnomeList)
{
    return linesOf(gnomeList).first() == "cut" ? Action::Cut : Action::Copy;
}

bool FileUris::areAddresses(const QByteArray &text, qsizetype count)
{
    QList<QByteArray> lines = linesOf(text);
    lines.removeIf([](const QByteArray &line) { return line.trimmed().isEmpty(); });
    return lines.size() == count && filesOf(lines).size() == count;
}
