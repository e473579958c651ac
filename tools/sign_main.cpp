// Makes the keys and the signatures of the update feed: quillmarsh-sign --help

#include "updates/updater/UpdateFeed.h"
#include "updates/updater/UpdateItem.h"
#include "updates/updater/UpdateSignature.h"
#include "updates/updater/UpdateVersion.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QSysInfo>
#include <QXmlStreamWriter>

#include <sodium.h>

#include <cstdio>
#include <cstdlib>

namespace {

const auto kHelp =
    QStringLiteral("quillmarsh-sign make-key SECRET        makes a key pair: writes the secret "
                   "half to the new file\n"
                   "                                       SECRET and prints the public half for "
                   "QUILLMARSH_FEED_KEY\n"
                   "quillmarsh-sign sign SECRET FILE ...   prints the feed's <item> for FILE");

/// Says why and gives the exit code.
int refuse(const QString &why)
{
    std::fprintf(stderr, "quillmarsh-sign: %s\n", qUtf8Printable(why));
    return EXIT_FAILURE;
}

unsigned char *bytesOf(QByteArray &array)
{
    return reinterpret_cast<unsigned char *>(array.data());
}

int makeKey(const QString &path)
{
    QByteArray publicKey(crypto_sign_PUBLICKEYBYTES, '\0');
    QByteArray secretKey(crypto_sign_SECRETKEYBYTES, '\0');
    crypto_sign_keypair(bytesOf(publicKey), bytesOf(secretKey));
    QFile file(path);
    // A key that exists is never written over: what it signed would be lost.
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly,
                   QFile::ReadOwner | QFile::WriteOwner) ||
        file.write(secretKey.toBase64() + '\n') < 0 || !file.flush())
        return refuse(QStringLiteral("%1: %2").arg(path, file.errorString()));
    std::printf("%s\n", publicKey.toBase64().constData());
    return EXIT_SUCCESS;
}

std::optional<QByteArray> readSecret(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray secret = QByteArray::fromBase64(file.readAll().trimmed());
    return secret.size() == crypto_sign_SECRETKEYBYTES ? std::optional(secret) : std::nullopt;
}

void printItem(const UpdateItem &item)
{
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return;
    QXmlStreamWriter xml(&output);
    xml.setAutoFormatting(true);
    xml.writeStartElement(QStringLiteral("item"));
    xml.writeTextElement(QStringLiteral("version"), item.version);
    xml.writeTextElement(QStringLiteral("shortVersion"), item.shortVersion);
    xml.writeTextElement(QStringLiteral("channel"), item.channel);
    if (!item.minimumSystem.isEmpty())
        xml.writeTextElement(QStringLiteral("minimumSystem"), item.minimumSystem);
    if (!item.notes.isEmpty())
        xml.writeTextElement(QStringLiteral("notes"), item.notes);
    xml.writeStartElement(QStringLiteral("file"));
    xml.writeAttribute(QStringLiteral("kind"), item.kind);
    xml.writeAttribute(QStringLiteral("machine"), item.machine);
    xml.writeAttribute(QStringLiteral("url"), item.url.toString(QUrl::FullyEncoded));
    xml.writeAttribute(QStringLiteral("size"), QString::number(item.size));
    xml.writeAttribute(QStringLiteral("signature"), QString::fromLatin1(item.signature.toBase64()));
    xml.writeEndElement();
    xml.writeEndElement();
    output.write("\n");
}

int sign(const QByteArray &secret, const QString &path, UpdateItem item)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(QStringLiteral("%1: %2").arg(path, file.errorString()));
    item.size = file.size();
    const QByteArray digest = UpdateSignature::digest(file, false);
    if (digest.isEmpty())
        return refuse(QStringLiteral("%1: %2").arg(path, file.errorString()));
    const QByteArray text = UpdateSignature::message(item, digest);
    item.signature = QByteArray(crypto_sign_BYTES, '\0');
    crypto_sign_detached(bytesOf(item.signature), nullptr,
                         reinterpret_cast<const unsigned char *>(text.constData()),
                         static_cast<unsigned long long>(text.size()),
                         reinterpret_cast<const unsigned char *>(secret.constData()));
    if (const auto fault = UpdateFeed::faultOf(item))
        return refuse(*fault);
    printItem(item);
    return EXIT_SUCCESS;
}

/// Empty without a path; nothing when there is no such file.
std::optional<QString> textOf(const QString &path)
{
    QFile file(path);
    if (path.isEmpty())
        return QString();
    return file.open(QIODevice::ReadOnly) ? std::optional(QString::fromUtf8(file.readAll()))
                                          : std::nullopt;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(kHelp);
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("version"), QStringLiteral("What is compared."), QStringLiteral("X.Y.Z")},
        {QStringLiteral("short-version"), QStringLiteral("What is shown; else the version."),
         QStringLiteral("TEXT")},
        {QStringLiteral("channel"), QStringLiteral("release, beta or test."),
         QStringLiteral("NAME"), QStringLiteral("release")},
        {QStringLiteral("minimum-system"), QStringLiteral("The least version of glibc."),
         QStringLiteral("X.Y")},
        {QStringLiteral("kind"), QStringLiteral("prefix or appimage."), QStringLiteral("NAME"),
         QStringLiteral("prefix")},
        {QStringLiteral("machine"), QStringLiteral("x86_64, arm64; else this one's."),
         QStringLiteral("NAME"), QSysInfo::currentCpuArchitecture()},
        {QStringLiteral("url"), QStringLiteral("Where FILE will be."), QStringLiteral("https://…")},
        {QStringLiteral("notes"), QStringLiteral("A text file."), QStringLiteral("FILE")},
    });
    parser.process(application);
    const QStringList words = parser.positionalArguments();
    if (!UpdateSignature::initialise())
        return refuse(QStringLiteral("libsodium cannot be used"));
    if (words.size() == 2 && words[0] == u"make-key")
        return makeKey(words[1]);
    if (words.size() != 3 || words[0] != u"sign")
        parser.showHelp(EXIT_FAILURE);
    const auto secret = readSecret(words[1]);
    if (!secret)
        return refuse(QStringLiteral("%1 holds no secret key").arg(words[1]));
    UpdateItem item;
    item.version = parser.value(QStringLiteral("version"));
    item.shortVersion = parser.value(QStringLiteral("short-version")).simplified();
    if (item.shortVersion.isEmpty())
        item.shortVersion = item.version;
    item.channel = parser.value(QStringLiteral("channel"));
    item.minimumSystem = parser.value(QStringLiteral("minimum-system"));
    item.kind = parser.value(QStringLiteral("kind"));
    item.machine = parser.value(QStringLiteral("machine"));
    item.url = QUrl(parser.value(QStringLiteral("url")), QUrl::StrictMode);
    // An updater passes over what it does not know, so nobody else would notice.
    if (item.kind != u"prefix" && item.kind != u"appimage")
        return refuse(QStringLiteral("there is no kind \"%1\"").arg(item.kind));
    const auto notes = textOf(parser.value(QStringLiteral("notes")));
    if (!notes)
        return refuse(
            QStringLiteral("%1 cannot be read").arg(parser.value(QStringLiteral("notes"))));
    item.notes = notes->trimmed();
    return sign(*secret, words[2], item);
}
