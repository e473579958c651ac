#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The information dictionary: facts fixed when the program was built. Nothing at run time can
/// change them. The record itself is a translation unit of its own, so that a test program can be
/// linked with another one.
struct Info
{
    QString bundleIdentifier;                        ///< CFBundleIdentifier
    std::optional<QString> bundleVersion;            ///< CFBundleVersion
    std::optional<QString> bundleShortVersionString; ///< CFBundleShortVersionString
    QString feedUrl{}; ///< Where updates are announced; empty when no feed is built in.
    /// The Ed25519 public key of the feed's files, base64; empty without one.
    QByteArray feedKey{};
    QString feedbackUrl{}; ///< Where feedback and reports go; empty when no address is built in.
    /// Certificates (PEM) that are trusted instead of the system's. Always empty in a program that
    /// people run.
    QByteArray certificateAuthorities{};

    static Info main();
};
