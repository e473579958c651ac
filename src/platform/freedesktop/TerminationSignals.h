#pragma once

#include <QObject>

/// Turns SIGTERM, SIGINT and SIGHUP into an ordinary signal on the main thread, so that the end of
/// a session, Ctrl-C and kill all leave through the same clean quit. Owned by main; at most one at
/// a time. A signal that the process was started with ignored (nohup) stays ignored. Only the
/// first of each kind is caught: a second one ends a process that hangs while quitting.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void terminationRequested();

private:
    void drain();

    int m_readEnd = -1;
};
