#pragma once

#include <QDialog>
#include <QString>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

/// The one window of an update that the user sees, in whatever state the update is. It only shows
/// and asks; what the answers lead to is its owner's. Closing it means the answer that changes
/// nothing.
class UpdateWindow : public QDialog
{
    Q_OBJECT

public:
    explicit UpdateWindow(const QString &appName, QWidget *parent = nullptr);

    void showChecking();
    /// `version` is the installed one.
    void showUpToDate(const QString &version);
    /// `version` is the one that is offered.
    void showNeedsNewerSystem(const QString &version, const QString &installedVersion);
    /// `notes` are plain text.
    void showFound(const QString &version, const QString &installedVersion, const QString &notes);
    void showDownloading(qint64 done, qint64 size);
    void showInstalling();
    void showInstalled();
    /// `reason` is a sentence.
    void showProblem(const QString &reason);
    /// It is not for us to update; `command` does it, where there is one.
    void showElsewhere(const QString &explanation, const QString &command);

    /// The choice to look once a day; not offered until it was set.
    void setAutomatic(bool isAutomatic);

Q_SIGNALS:
    void installChosen();
    /// Later, cancelled or closed, in whatever state.
    void dismissed();
    void skipChosen();
    void automaticChosen(bool isAutomatic);

private:
    void begin(const QString &headline, const QString &text);
    void offer(QPushButton *defaultButton, std::initializer_list<QPushButton *> buttons);
    void layOut();

    const QString m_appName;
    bool m_hasAutomatic = false;
    QLabel *m_icon;
    QLabel *m_headline;
    QLabel *m_text;
    QPlainTextEdit *m_notes;
    QLineEdit *m_command;
    QProgressBar *m_progress;
    QCheckBox *m_automatic;
    QPushButton *m_skip;
    QPushButton *m_later;
    QPushButton *m_cancel;
    QPushButton *m_close;
    QPushButton *m_install;
};
