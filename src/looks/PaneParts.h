#pragma once

#include <QLabel>

/// A label that wraps, and shows its text as it is even where it looks like markup.
QLabel *makeWrappedLabel(const QString &text = {}, QWidget *parent = nullptr);

/// A small, quiet line of explanation that wraps. With emphasis it says something that the user
/// should not miss.
class PaneNote : public QLabel
{
    Q_OBJECT

public:
    explicit PaneNote(const QString &text = {}, QWidget *parent = nullptr);

    void setEmphasised(bool isEmphasised);
    bool isEmphasised() const { return m_isEmphasised; }

protected:
    // ^QLabel
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_isEmphasised = false;
};

/// A thin line between two groups of controls.
class PaneSeparator : public QWidget
{
    Q_OBJECT

public:
    explicit PaneSeparator(QWidget *parent = nullptr);

protected:
    // ^QWidget
    void paintEvent(QPaintEvent *event) override;
};
