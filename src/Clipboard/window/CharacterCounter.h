#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <optional>

/// Counts what people see as characters: of a text of usual size at once, of a longer one while
/// there is nothing else to be done.
class CharacterCounter : public QObject
{
    Q_OBJECT

public:
    explicit CharacterCounter(QObject *parent = nullptr);

    /// Begins to count `text` from `begin` on; the count before it is given up.
    void count(const QString &text, qsizetype begin = 0);

    /// Of what was given last; absent while it is being counted.
    std::optional<qint64> characters() const;

Q_SIGNALS:
    /// A count that took its time has come to its end.
    void counted();

private:
    void work();

    QString m_text; ///< Empty once it is counted.
    qsizetype m_position = 0;
    qint64 m_characters = 0;
    QTimer m_idleTimer; ///< Fires while there is nothing else to do.
};
