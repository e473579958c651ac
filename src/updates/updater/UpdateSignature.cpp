#include "updates/updater/UpdateSignature.h"

#include "updates/updater/UpdateItem.h"

#include <QIODevice>

#include <sodium.h>

namespace {

constexpr qsizetype kBlockBytes = 256 * 1024;

const unsigned char *bytesOf(const QByteArray &array)
{
    return reinterpret_cast<const unsigned char *>(array.constData());
}

} // namespace

bool UpdateSignature::initialise()
{
    return sodium_init() >= 0;
}

QByteArray UpdateSignature::digest(QIODevice &file, const std::atomic<bool> &isCancelled)
{
    crypto_hash_sha512_state state;
    crypto_hash_sha512_init(&state);
    QByteArray block(kBlockBytes, Qt::Uninitialized);
    for (;;) {
        const qint64 count = file.read(block.data(), block.size());
        if (count < 0 || isCancelled)
            return {};
        if (count == 0)
            break;
        crypto_hash_sha512_update(&state, bytesOf(block), static_cast<size_t>(count));
    }
    QByteArray digest(crypto_hash_sha512_BYTES, '\0');
    crypto_hash_sha512_final(&state, reinterpret_cast<unsigned char *>(digest.data()));
    return digest;
}

QByteArray UpdateSignature::message(const UpdateItem &item, const QByteArray &digest)
{
    QByteArray text("quillmarsh-update-1\n");
    // None of them can hold a line feed: each is a version, a known word, or was simplified.
    for (const QString &part : {item.version, item.shortVersion, item.channel, item.minimumSystem,
                                item.kind, item.machine, QString::number(item.size)})
        text += part.toUtf8() + '\n';
    return text + digest.toHex() + '\n';
}

bool UpdateSignature::isValid(const UpdateItem &item, const QByteArray &digest,
                              const QByteArray &publicKey)
{
    if (item.signature.size() != crypto_sign_BYTES || publicKey.size() != kKeyBytes ||
        digest.size() != crypto_hash_sha512_BYTES)
        return false;
    const QByteArray text = message(item, digest);
    return crypto_sign_verify_detached(bytesOf(item.signature), bytesOf(text),
                                       static_cast<unsigned long long>(text.size()),
                                       bytesOf(publicKey)) == 0;
}
