#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// What is handed over to those who make the program, and all of it.
struct FeedbackMessage
{
    enum class Kind {
        Feedback, ///< What the user wrote.
        Issue,    ///< The reports of crashes.
        Usage,    ///< That the program runs, and its version; nothing else.
    };

    Kind kind = Kind::Feedback;
    QString text;
    std::optional<QString> mail;   ///< Where an answer may go to.
    std::optional<QString> system; ///< Version and desktop in one line.

    QLatin1String kindName() const;
    QByteArray toJson() const;
    /// The same for a person to read.
    QString toPlainText() const;
};
