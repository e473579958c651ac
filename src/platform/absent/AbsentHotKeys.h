#pragma once

#include "platform/HotKeys.h"
#include "platform/absent/CompositorBindings.h"

class KeyboardLayout;

/// Where no program may have hot keys: every registration is refused, and the compositor's own
/// configuration can run our command instead.
class AbsentHotKeys : public HotKeys
{
    Q_OBJECT

public:
    /// `layout` must outlive this object. `program` is how a command starts Quillmarsh.
    AbsentHotKeys(const KeyboardLayout &layout, CompositorBindings::Compositor compositor,
                  QString program, QObject *parent = nullptr);

    // ^HotKeys
    Control control() const override { return Control::Nobody; }
    QString configurationFor(const HotKeyCombination &combination,
                             const QString &word) const override;
    bool registerHotKey(HotKeyId, quint32, quint32) override { return false; }
    void unregisterHotKey(HotKeyId) override {}
    /// Whoever writes the compositor's configuration knows what else stands there; we do not.
    bool isAvailable(quint32, quint32) override { return true; }
    bool isGranted(HotKeyId) override { return false; }
    void setSuspended(bool) override {}

private:
    const KeyboardLayout &m_layout;
    const CompositorBindings::Compositor m_compositor;
    const QString m_program;
};
