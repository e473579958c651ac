#include "Clipboard/window/CharacterCounter.h"

#include "Clipboard/window/VisibleCharacters.h"

CharacterCounter::CharacterCounter(QObject *parent) : QObject(parent)
{
    m_idleTimer.setInterval(0);
    connect(&m_idleTimer, &QTimer::timeout, this, [this] {
        work();
        if (characters())
            Q_EMIT counted();
    });
}

void CharacterCounter::count(const QString &text, qsizetype begin)
{
    m_text = text;
    m_position = begin;
    m_characters = 0;
    work();
    if (!characters())
        m_idleTimer.start();
}

std::optional<qint64> CharacterCounter::characters() const
{
    return m_text.isEmpty() ? std::optional(m_characters) : std::nullopt;
}

void CharacterCounter::work()
{
    const VisibleCharacters::Counted some = VisibleCharacters::countSome(m_text, m_position);
    m_position = some.end;
    m_characters += some.characters;
    if (m_position < m_text.size())
        return;
    m_idleTimer.stop();
    m_text.clear();
}
