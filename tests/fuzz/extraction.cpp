/// The archive of an update, unpacked: nothing may come to be beside its folder, nor in it what is
/// no folder, file or link to a file there. Kept inputs: tests/data/fuzz/extraction.

#include "fuzz/Demand.h"
#include "updates/updater/ArchiveExtraction.h"

#include <QFile>

#include <csignal>
#include <filesystem>

#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr rlim_t kMostBytes = 1 << 20; ///< Of a file: a few bytes may say that there are millions.

/// In memory: a wait for the disk is a part of each extraction.
fs::path madeParent()
{
    QByteArray name("/dev/shm/quillmarsh-fuzz-XXXXXX");
    demand(::mkdtemp(name.data()), "there is a folder to work in");
    return {name.constData()};
}

void checkContents(const fs::path &folder)
{
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(folder)) {
        const fs::file_type type = entry.symlink_status().type();
        demand(type == fs::file_type::regular || type == fs::file_type::directory ||
                   type == fs::file_type::symlink,
               "only what is known is unpacked");
        demand(type != fs::file_type::symlink || !fs::read_symlink(entry.path()).has_parent_path(),
               "a link stays in its folder");
        const auto odd = fs::perms::set_uid | fs::perms::set_gid | fs::perms::others_write;
        demand(type == fs::file_type::symlink ||
                   (entry.symlink_status().permissions() & odd) == fs::perms::none,
               "nothing is unpacked with more rights than it needs");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    const rlimit most{kMostBytes, RLIM_INFINITY};
    std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &most);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const fs::path parent = madeParent();
    const fs::path folder = parent / "folder";
    fs::create_directory(folder);
    QFile archive;
    const int file = ::memfd_create("input", MFD_CLOEXEC);
    demand(file >= 0 && ::write(file, data, size) == ssize_t(size) &&
               archive.open(file, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle),
           "the archive is there");
    const std::atomic<bool> isCancelled = false;
    static_cast<void>(
        ArchiveExtraction::extract(archive, QString::fromStdString(folder.string()), isCancelled));
    checkContents(folder);
    fs::remove_all(folder);
    demand(fs::is_empty(parent), "nothing is unpacked beside the folder");
    fs::remove(parent);
    return 0;
}
