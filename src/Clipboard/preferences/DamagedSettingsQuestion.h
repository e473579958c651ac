#pragma once

#include <QMessageBox>

class SettingsStore;

/// Asks whether to start with fresh settings when the stored ones could not be read and were set
/// aside. Nothing is recorded until it is answered; closing it answers nothing. It comes up
/// unasked, so it takes the keyboard from nobody. Deletes itself once it is closed; `settings` must
/// outlive it.
class DamagedSettingsQuestion : public QMessageBox
{
    Q_OBJECT

public:
    explicit DamagedSettingsQuestion(SettingsStore &settings);

    /// Comes up over `window`, one of our own that is shown, or over none for null, without the
    /// keyboard.
    void ask(QWindow *window);

    /// What the history says until the question is answered.
    static QString notice();

Q_SIGNALS:
    void freshSettingsChosen();
    /// The user would rather look at the damaged file first.
    void quitChosen();

protected:
    // ^QMessageBox
    void keyPressEvent(QKeyEvent *event) override;
};
