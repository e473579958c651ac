#include "ForeignProgram.h"

#include <QFileInfo>

namespace {

const QString kPython = QStringLiteral("/usr/bin/python3");

} // namespace

ForeignProgram::ForeignProgram()
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(kPython, {QStringLiteral("-B"),
                              QStringLiteral(TEST_DATA_DIR "/../support/foreign_program.py")});
}

ForeignProgram::~ForeignProgram()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished();
}

bool ForeignProgram::tell(const QByteArray &command)
{
    m_process.write(command + '\n');
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead())
            return false;
    }
    return m_process.readLine() == "done\n";
}

QString ForeignProgram::processName()
{
    return QFileInfo(QFileInfo(kPython).canonicalFilePath()).fileName();
}
