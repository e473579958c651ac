#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

/// The controls of the feedback dialog and their places. Created by FeedbackDialog, which owns what
/// they do.
class FeedbackForm : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kMostCharacters = 10000;

    /// `systemLine` is shown in full. `way` says how the text travels; empty for the ordinary way.
    FeedbackForm(const QString &systemLine, const QString &way, QWidget *parent);

    /// Bounds a paste, and nothing that was typed.
    QPlainTextEdit *const text;
    QLineEdit *const mail;
    QCheckBox *const system;
    QLabel *const status;
    QPushButton *const close;
    QPushButton *const send;

private:
    void layOut(const QString &systemLine, const QString &way);
};
