#include "updates/crashes/CrashReportWriter.h"

#include <cerrno>

#include <unistd.h>

namespace {

constexpr char kDigits[] = "0123456789abcdef";

} // namespace

void CrashReportWriter::put(const char *text)
{
    while (*text)
        putCharacter(*text++);
}

void CrashReportWriter::putHexByte(unsigned char byte)
{
    putCharacter(kDigits[byte >> 4]);
    putCharacter(kDigits[byte & 0xf]);
}

void CrashReportWriter::putNumber(uint64_t number, unsigned base)
{
    char digits[20];
    size_t count = 0;
    do {
        digits[count++] = kDigits[number % base];
        number /= base;
    } while (number);
    while (count)
        putCharacter(digits[--count]);
}

void CrashReportWriter::putCharacter(char character)
{
    if (m_used == m_buffer.size())
        flush();
    m_buffer[m_used++] = character;
}

void CrashReportWriter::flush()
{
    size_t written = 0;
    while (written < m_used) {
        const ssize_t count = ::write(m_descriptor, m_buffer.data() + written, m_used - written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        written += static_cast<size_t>(count);
    }
    m_used = 0;
}
