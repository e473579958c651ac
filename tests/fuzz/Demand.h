#pragma once

#include <QByteArray>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Ends the run with a word about what should have held for this input.
inline void demand(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Not so: %s\n", what);
    std::abort();
}

/// A fuzzer's input, taken off from its beginning. What is not there any more is 0 or empty.
class Input
{
public:
    Input(const uint8_t *data, size_t size)
        : m_bytes(reinterpret_cast<const char *>(data), qsizetype(size))
    {
    }

    bool isEmpty() const { return m_bytes.isEmpty(); }
    quint8 byte() { return quint8(bytes(1).leftJustified(1, '\0')[0]); }
    /// Of two bytes, the lower one first.
    quint16 number()
    {
        const quint8 low = byte();
        return quint16(low | byte() << 8);
    }
    QByteArray bytes(qsizetype count)
    {
        const QByteArray taken = m_bytes.left(count);
        m_bytes.remove(0, taken.size());
        return taken;
    }
    QByteArray rest() { return bytes(m_bytes.size()); }

private:
    QByteArray m_bytes;
};
