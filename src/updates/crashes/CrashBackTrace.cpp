#include "updates/crashes/CrashBackTrace.h"

#include "updates/crashes/CrashReportWriter.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <dlfcn.h>
#include <elf.h>
#include <link.h>
#include <unistd.h>
#include <unwind.h>

namespace {

constexpr int kMaxFrames = 64;
constexpr size_t kMaxModules = 24;

using Path = std::array<char, PATH_MAX>;

void copyText(Path &target, const char *text)
{
    std::strncpy(target.data(), text, target.size() - 1);
}

/// How many characters of `path` name the folder `home`; 0 when it lies elsewhere.
size_t lengthOfHome(const char *path, const Path &home)
{
    const size_t length = std::strlen(home.data());
    // A home of "/" would shorten every path.
    if (length < 2 || std::strncmp(path, home.data(), length) != 0)
        return 0;
    return path[length] == '/' || path[length] == '\0' ? length : 0;
}

} // namespace

/// One walk up the stack. Each line is written as soon as it is known, because on a damaged stack
/// the next step may be the last.
struct CrashBackTrace::Walk
{
    const CrashBackTrace &owner;
    CrashReportWriter &writer;
    int frames = 0;
    size_t modules = 0;
    std::array<const void *, kMaxModules> starts{}; ///< Of the modules that have been told.
};

namespace {

/// The build identifier's bytes in the memory of a module whose ELF header is at `start`
/// and whose addresses are moved by `bias`; an empty range when it has none.
std::pair<const unsigned char *, size_t> buildIdentifier(const void *start, uintptr_t bias)
{
    const auto *header = static_cast<const ElfW(Ehdr) *>(start);
    if (std::memcmp(header->e_ident, ELFMAG, SELFMAG) != 0)
        return {};
    const auto *segments = reinterpret_cast<const ElfW(Phdr) *>(
        static_cast<const unsigned char *>(start) + header->e_phoff);
    for (int i = 0; i < header->e_phnum; ++i) {
        if (segments[i].p_type != PT_NOTE)
            continue;
        const auto *note = std::bit_cast<const unsigned char *>(bias + segments[i].p_vaddr);
        const unsigned char *end = note + segments[i].p_memsz;
        while (note + sizeof(ElfW(Nhdr)) <= end) {
            const auto *head = reinterpret_cast<const ElfW(Nhdr) *>(note);
            const unsigned char *name = note + sizeof *head;
            const unsigned char *bytes = name + ((head->n_namesz + 3U) & ~3U);
            if (head->n_type == NT_GNU_BUILD_ID && head->n_namesz == 4 &&
                std::memcmp(name, "GNU", 4) == 0)
                return {bytes, head->n_descsz};
            note = bytes + ((head->n_descsz + 3U) & ~3U);
        }
    }
    return {};
}

} // namespace

CrashBackTrace::CrashBackTrace(const char *home)
{
    copyText(m_home, home);
    if (char *real = ::realpath(home, nullptr)) {
        copyText(m_realHome, real);
        std::free(real);
    }
    if (::readlink("/proc/self/exe", m_program.data(), m_program.size() - 1) < 0)
        copyText(m_program, "program");
}

void CrashBackTrace::write(CrashReportWriter &writer) const
{
    Walk walk{*this, writer};
    _Unwind_Backtrace(
        [](_Unwind_Context *context, void *data) {
            Walk &present = *static_cast<Walk *>(data);
            present.owner.writeFrame(present, _Unwind_GetIP(context));
            return ++present.frames < kMaxFrames ? _URC_NO_REASON : _URC_END_OF_STACK;
        },
        &walk);
}

void CrashBackTrace::writeFrame(Walk &walk, uintptr_t address) const
{
    dl_find_object found = {};
    // Unlike dladdr() it takes no lock, so it is safe here.
    if (::_dl_find_object(std::bit_cast<void *>(address), &found) != 0)
        return;
    const char *name = found.dlfo_link_map->l_name;
    const char *path = name && *name ? name : m_program.data();
    const char *slash = std::strrchr(path, '/');
    const char *shortName = slash ? slash + 1 : path;
    const auto told = walk.starts.begin() + walk.modules;
    if (walk.modules < kMaxModules &&
        std::find(walk.starts.begin(), told, found.dlfo_map_start) == told) {
        walk.starts[walk.modules++] = found.dlfo_map_start;
        writeModule(walk.writer, path, found.dlfo_map_start, found.dlfo_link_map->l_addr);
    }
    walk.writer.put("#");
    walk.writer.putDecimal(static_cast<uint64_t>(walk.frames));
    walk.writer.put(" ");
    walk.writer.put(shortName);
    walk.writer.put(" 0x");
    walk.writer.putHex(address - found.dlfo_link_map->l_addr);
    walk.writer.put("\n");
    walk.writer.flush();
}

void CrashBackTrace::writePath(CrashReportWriter &writer, const char *path) const
{
    const size_t length = std::max(lengthOfHome(path, m_home), lengthOfHome(path, m_realHome));
    if (length)
        writer.put("~");
    writer.put(path + length);
}

void CrashBackTrace::writeModule(CrashReportWriter &writer, const char *path, const void *start,
                                 uintptr_t bias) const
{
    writePath(writer, path);
    const auto [bytes, length] = buildIdentifier(start, bias);
    if (length)
        writer.put(" ");
    for (size_t i = 0; i < length; ++i)
        writer.putHexByte(bytes[i]);
    writer.put("\n");
}
