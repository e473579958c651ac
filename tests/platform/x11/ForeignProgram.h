#pragma once

#include <QProcess>
#include <QString>

/// A program of its own process, which tests/support/foreign_program.py describes. It ends with
/// this object.
class ForeignProgram
{
public:
    ForeignProgram();
    ~ForeignProgram();
    ForeignProgram(const ForeignProgram &) = delete;
    ForeignProgram &operator=(const ForeignProgram &) = delete;

    /// False when it was not done.
    [[nodiscard]] bool tell(const QByteArray &command);

    /// What its process is called.
    static QString processName();

private:
    QProcess m_process;
};
