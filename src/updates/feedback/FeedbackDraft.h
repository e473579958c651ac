#pragma once

#include <QString>

/// What the user has written into the feedback dialog and not sent, kept in a file of the
/// application's data folder that only the user can read.
struct FeedbackDraft
{
    QString text;
    QString mail;
    bool isSystemWanted = false;
    bool isRefused = false; ///< It was to be sent and could not; the next start shows it once.

    bool isEmpty() const { return text.trimmed().isEmpty(); }

    /// Empty when there is none, or none that can be read.
    static FeedbackDraft load(const QString &path);
    /// An empty draft removes the file. False, logged, when it could not be kept.
    [[nodiscard]] bool save(const QString &path) const;
};
