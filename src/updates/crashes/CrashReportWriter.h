#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// Writes a crash report from inside a signal handler: nothing here allocates, locks or throws.
/// Lives on the handler's stack. What cannot be written is dropped.
class CrashReportWriter
{
public:
    /// `descriptor` stays the caller's.
    explicit CrashReportWriter(int descriptor) : m_descriptor(descriptor) {}
    CrashReportWriter(const CrashReportWriter &) = delete;
    CrashReportWriter &operator=(const CrashReportWriter &) = delete;
    ~CrashReportWriter() { flush(); }

    void put(const char *text);
    void putDecimal(uint64_t number) { putNumber(number, 10); }
    void putHex(uint64_t number) { putNumber(number, 16); }
    /// Two digits, for the bytes of an identifier.
    void putHexByte(unsigned char byte);
    void flush();

private:
    void putNumber(uint64_t number, unsigned base);
    void putCharacter(char character);

    const int m_descriptor;
    std::array<char, 1024> m_buffer{};
    size_t m_used = 0;
};
