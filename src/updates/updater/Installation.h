#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <optional>

/// How the program at hand was installed, and so whether and how it can be replaced. A value.
struct Installation
{
    Q_DECLARE_TR_FUNCTIONS(Installation)

public:
    enum class Kind {
        AppImage,       ///< `path` is one file.
        Prefix,         ///< `path` holds versions/X for each version and a link current to one.
        PackageManager, ///< The system's.
        Unknown,        ///< None of these.
    };

    /// What decides, apart from the file system.
    struct Evidence
    {
        QString bundlePath; ///< The prefix that holds bin/quillmarsh, without links.
        QString appImage;   ///< $APPIMAGE; empty when not set.
        QString appDir;     ///< $APPDIR; empty when not set.

        /// The same for a bundle of this process.
        static Evidence of(const QString &bundlePath);
    };

    static Installation of(const Evidence &evidence);

    /// "appimage" or "prefix", as feeds say it; empty when it cannot be replaced.
    QString kindName() const;
    /// Why it cannot be replaced by us, as a sentence for the user; nothing when it can.
    std::optional<QString> obstacle() const;
    /// Who has it locked may replace it.
    QString lockPath() const;
    /// The version that starts next; differs from the running one after an update. Nothing when it
    /// cannot be known without starting it.
    std::optional<QString> nextVersion() const;
    /// Whether what starts next is `version` or a newer one, as far as that can be known.
    bool startsAtLeast(const QString &version) const;
    /// Whether a program of that bundle belongs to this installation, in whatever version.
    bool holds(const QString &otherBundlePath) const;
    /// Whether another file has come into the image's place since this was made: a version that
    /// cannot be told without starting it, and may be newer than any that is offered. As a sentence
    /// for the user.
    std::optional<QString> replacement() const;
    /// Where a program of this installation is found whatever version is installed.
    QString lastingPath(const QString &programPath) const;

    Kind kind = Kind::Unknown;
    QString path;
    QString bundlePath;
    QByteArray imageMark; ///< Differs for every file that comes into the image's place.
    /// Of the system's package manager, to update what it installed; may be empty.
    QString command;
};
