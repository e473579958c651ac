#pragma once

#include "platform/Mutex.h"
#include "platform/wayland/Toplevels.h"

#include <QString>

#include <atomic>
#include <memory>

class ApplicationNames;

/// Names the application in front. Asked on the connection's thread when a copy is told of, it
/// names the one of the copy, because the compositor tells of both in their order. Any thread.
class FrontNames
{
public:
    struct Front
    {
        QString applicationName; ///< Empty when there is none to name.
        bool isOurs = false;     ///< One of our own windows.
    };

    /// `names` must outlive this object.
    FrontNames(std::shared_ptr<const Toplevels> toplevels, const ApplicationNames &names);

    /// Of the window in front; while none is, of the last one of another program that still has a
    /// window open.
    Front front() const;

    /// Whether a window of ours has the keyboard, as the toolkit says: the compositor tells only
    /// of ordinary windows.
    void setOursHasKeyboard(bool hasKeyboard) { m_oursHasKeyboard = hasKeyboard; }

private:
    QString ownName() const;

    const std::shared_ptr<const Toplevels> m_toplevels;
    const ApplicationNames &m_names;
    std::atomic<bool> m_oursHasKeyboard = false;
    mutable Mutex m_mutex;
    mutable QString m_lastApplicationId QUILLMARSH_GUARDED_BY(m_mutex);
};
