#include "platform/OwnProgram.h"

#include <QCoreApplication>

namespace {

const auto kApplication = QStringLiteral("/libexec/quillmarsh/quillmarsh");

} // namespace

QString OwnProgram::prefixOf(const QString &program)
{
    const bool isBeside = program.section(u'/', -3, -2) == u"libexec/quillmarsh";
    return program.section(u'/', 0, isBeside ? -4 : -3);
}

QString OwnProgram::prefix()
{
    return prefixOf(QCoreApplication::applicationFilePath());
}

QString OwnProgram::startPath()
{
    const QString program = QCoreApplication::applicationFilePath();
    return program.endsWith(kApplication) ? prefixOf(program) + QStringLiteral("/bin/quillmarsh")
                                          : program;
}
