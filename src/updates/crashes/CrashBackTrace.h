#pragma once

#include <array>
#include <climits>
#include <cstdint>

class CrashReportWriter;

/// Writes where in the program the calling thread is, so that it can be looked up later: each
/// frame as a module and an offset, each module with its build identifier. An address outside of
/// every module is left out, because on a damaged stack it may be anything, a clip's bytes too.
/// Made before the crash, because what it needs must be there by then; write() is for a signal
/// handler.
class CrashBackTrace
{
public:
    /// Paths below `home` are written with "~" in its place.
    explicit CrashBackTrace(const char *home);

    void write(CrashReportWriter &writer) const;

private:
    struct Walk;

    void writeFrame(Walk &walk, uintptr_t address) const;
    void writePath(CrashReportWriter &writer, const char *path) const;
    void writeModule(CrashReportWriter &writer, const char *path, const void *start,
                     uintptr_t bias) const;

    std::array<char, PATH_MAX> m_program{}; ///< The dynamic linker has no name for it.
    std::array<char, PATH_MAX> m_home{};
    std::array<char, PATH_MAX> m_realHome{}; ///< The same without symbolic links.
};
