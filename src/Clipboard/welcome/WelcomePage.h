#pragma once

#include "looks/ClipColors.h"

#include <QWidget>

class QLabel;
class QLayout;
class QVBoxLayout;
class WelcomeStage;

/// What the welcome's pages have in common: a stage, below it a heading and a few words. Owned by
/// the slider that shows it.
class WelcomePage : public QWidget
{
    Q_OBJECT

public:
    /// The page becomes the stage's parent.
    WelcomePage(WelcomeStage *stage, const QString &title, const QString &text);

    /// What else is to be known, below the words; nothing when it is empty.
    void setNote(const QString &note);
    virtual void setColors(const ClipColors &colors);

protected:
    /// Puts more below the words.
    void addBelow(QLayout *layout);

private:
    WelcomeStage *m_stage;
    QLabel *m_title;
    QLabel *m_text;
    QLabel *m_note;
    QVBoxLayout *m_column;
};
