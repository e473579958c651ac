#include "platform/absent/AbsentHotKeys.h"

#include "platform/KeyboardLayout.h"

#include <utility>

AbsentHotKeys::AbsentHotKeys(const KeyboardLayout &layout,
                             CompositorBindings::Compositor compositor, QString program,
                             QObject *parent)
    : HotKeys(parent), m_layout(layout), m_compositor(compositor), m_program(std::move(program))
{
}

QString AbsentHotKeys::configurationFor(const HotKeyCombination &combination,
                                        const QString &word) const
{
    return CompositorBindings::lineFor(m_compositor, combination,
                                       m_layout.asciiCapableName(combination.keyCode),
                                       {m_program, word});
}
