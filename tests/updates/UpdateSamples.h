#pragma once

#include <QDir>
#include <QFile>
#include <QString>
#include <QSysInfo>

#include <gtest/gtest.h>

/// What tests of updates begin with.
namespace UpdateSamples {

inline QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// A prefix that holds a program.
inline QString makePrefix(const QString &path)
{
    QDir().mkpath(path + QStringLiteral("/bin"));
    QFile program(path + QStringLiteral("/bin/quillmarsh"));
    EXPECT_TRUE(program.open(QIODevice::WriteOnly));
    program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

/// A feed that offers 1.1 to a prefix.
inline QString feedOf11()
{
    return text(
               "<updates><item><version>1.1</version><channel>release</channel><file kind='prefix' "
               "machine='%1' size='9' url='https://example.org/f' "
               "signature='%2'/></item></updates>")
        .arg(QSysInfo::buildCpuArchitecture(), QString::fromLatin1(QByteArray(64, 's').toBase64()));
}

} // namespace UpdateSamples
