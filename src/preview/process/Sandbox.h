#pragma once

/// Keeps this process apart from the rest of the system.
namespace Sandbox {

/// Bytes of memory that it may write to, in all.
constexpr unsigned long kMaxMemory = 1536UL << 20;
/// Seconds of the processor, in its whole life.
constexpr unsigned long kMaxWork = 60;

/// From now on the process and all of its threads can read and write what is open, take memory and
/// run threads: there is no way to a file's name, the network, another process or another program.
/// False when the system cannot see to that; then nothing may be read.
[[nodiscard]] bool close();

} // namespace Sandbox
