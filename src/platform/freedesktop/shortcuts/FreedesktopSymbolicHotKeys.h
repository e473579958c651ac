#pragma once

#include "platform/SymbolicHotKeys.h"

#include <QStringList>
#include <QThreadPool>

#include <atomic>
#include <chrono>

/// Reads the shortcuts of the desktop that is running, and only of that one: the settings of
/// others are often installed too and say nothing about this session. Files are read and programs
/// asked on a thread of its own.
class FreedesktopSymbolicHotKeys : public SymbolicHotKeys
{
    Q_OBJECT

public:
    /// The desktops that XDG_CURRENT_DESKTOP names.
    static QStringList currentDesktops();

    /// How long a program that tells of them is given.
    static constexpr std::chrono::milliseconds kAnswerLimit{5000};

    explicit FreedesktopSymbolicHotKeys(const QStringList &desktops = currentDesktops(),
                                        std::chrono::milliseconds answerLimit = kAnswerLimit);
    ~FreedesktopSymbolicHotKeys() override;

    // ^SymbolicHotKeys
    QList<SymbolicHotKey> hotKeys() const override { return m_hotKeys; }
    void refresh() override;

private:
    QList<SymbolicHotKey> read() const;
    QList<SymbolicHotKey> readGSettings(const QStringList &schemas) const;
    QByteArray output(const QStringList &arguments) const;

    const QStringList m_desktops;
    const std::chrono::milliseconds m_answerLimit;
    QList<SymbolicHotKey> m_hotKeys;
    bool m_isReading = false;
    std::atomic<bool> m_isEnding = false;
    QThreadPool m_thread; ///< Last, so that its work ends before what it works on goes.
};
