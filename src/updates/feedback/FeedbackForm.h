#pragma once

#include <QWidget>

class FeedbackDelivery;
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
    static constexpr int kMaxCharacters = 10000;

    /// `systemLine` is shown in full.
    FeedbackForm(const QString &systemLine, const FeedbackDelivery &delivery, QWidget *parent);

    /// Bounds a paste, and nothing that was typed.
    QPlainTextEdit *const text;
    QLineEdit *const mail;
    QCheckBox *const system;
    QLabel *const status;
    QPushButton *const close;
    QPushButton *const send;

private:
    void layOut(const QString &way);
};
