#pragma once

#include "platform/HotKeys.h"

#include <map>
#include <set>
#include <utility>

/// Hot keys within the process. Tests press and release combinations, and take some for another
/// program with holdElsewhere().
class MemoryHotKeys : public HotKeys
{
    Q_OBJECT

public:
    using Combination = std::pair<quint32, quint32>; ///< Virtual key code, Carbon modifiers.

    using HotKeys::HotKeys;

    /// Reports a press of the combination to every id registered for it.
    void press(quint32 keyCode, quint32 carbonModifiers) { report(keyCode, carbonModifiers, true); }
    void release(quint32 keyCode, quint32 carbonModifiers)
    {
        report(keyCode, carbonModifiers, false);
    }
    /// The combination belongs to another program from now on, but for who has it already.
    void holdElsewhere(quint32 keyCode, quint32 carbonModifiers)
    {
        m_heldElsewhere.insert({keyCode, carbonModifiers});
    }
    /// The other program lets go of it, which nobody is told.
    void freeElsewhere(quint32 keyCode, quint32 carbonModifiers)
    {
        m_heldElsewhere.erase({keyCode, carbonModifiers});
    }
    /// The ids registered for a combination.
    std::vector<HotKeyId> idsOf(quint32 keyCode, quint32 carbonModifiers) const;
    bool isSuspended() const { return m_isSuspended; }

    /// Whether this desktop gives programs hot keys.
    void setControl(Control control)
    {
        m_control = control;
        Q_EMIT controlChanged();
    }

    /// How often the desktop was to show where keys are chosen.
    int configurations() const { return m_configurations; }

    // ^HotKeys
    Control control() const override { return m_control; }
    void configure() override { ++m_configurations; }
    QString configurationFor(const HotKeyCombination &combination,
                             const QString &word) const override;
    bool registerHotKey(HotKeyId id, quint32 keyCode, quint32 carbonModifiers) override;
    void unregisterHotKey(HotKeyId id) override { m_registrations.erase(id); }
    bool isAvailable(quint32 keyCode, quint32 carbonModifiers) override;
    bool isGranted(HotKeyId id) override;
    void setSuspended(bool isSuspended) override;

private:
    void report(quint32 keyCode, quint32 carbonModifiers, bool isPress);

    std::map<HotKeyId, Combination> m_registrations;
    std::set<Combination> m_heldElsewhere;
    std::set<Combination> m_lost; ///< Registered, but taken by another program since.
    bool m_isSuspended = false;
    Control m_control = Control::Ours;
    int m_configurations = 0;
};
