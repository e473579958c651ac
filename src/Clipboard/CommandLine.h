#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What the words of the command line ask for. They are plain words, so that a window manager's
/// key bindings and a person read them alike. Made by main before anything else, so that help and
/// version need neither a display nor a bus.
struct CommandLine
{
    /// One of those of SingleInstance; empty when none was given, which opens the history of the
    /// instance that runs, or starts one quietly.
    QString action;
    /// The words that are for ClipWords; empty when the command is none of its.
    QStringList clipWords;
    /// For standard output; the process ends with success then and does nothing else.
    std::optional<QString> answer;
    /// For standard error, when the words were not understood.
    std::optional<QString> problem;

    /// Exit code of a command line that was not understood.
    static constexpr int kNotUnderstood = 2;

    /// `words` without the program's name. `version` is what "--version" tells.
    static CommandLine parse(const QStringList &words, const QString &version);
};
