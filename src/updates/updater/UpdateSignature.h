#pragma once

#include <QByteArray>

#include <atomic>

struct UpdateItem;
class QIODevice;

/// The signature of a file that is offered as an update: Ed25519 over a short text (message())
/// that holds the SHA-512 of the file and everything that decides whether it is installed. So a
/// file that was once signed cannot be offered again as a newer version, for another channel or as
/// another kind, and no large file is ever held in memory.
namespace UpdateSignature {

constexpr qsizetype kKeyBytes = 32;

/// Readies the library. False when it cannot be used; nothing here works then.
[[nodiscard]] bool initialise();

/// SHA-512 of what is left to read of `file`; empty when reading fails, and soon after
/// `isCancelled` became true.
QByteArray digest(QIODevice &file, const std::atomic<bool> &isCancelled);

/// The text that is signed: "quillmarsh-update-1", version, shortVersion, channel, minimumSystem,
/// kind, machine, size and the digest in hexadecimal, each followed by a line feed.
QByteArray message(const UpdateItem &item, const QByteArray &digest);

/// Whether `item.signature` was made for the item and a file of that digest with the secret half
/// of `publicKey` (32 bytes).
[[nodiscard]] bool isValid(const UpdateItem &item, const QByteArray &digest,
                           const QByteArray &publicKey);

} // namespace UpdateSignature
