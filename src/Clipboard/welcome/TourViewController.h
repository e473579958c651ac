#pragma once

#include <QWidget>

struct ClipColors;
class KeyCaps;
class PaneButton;

/// The content of one of the tour's popovers: a heading, a few words or keys, and the button to the
/// next one. Owned by its popover.
class TourViewController : public QWidget
{
    Q_OBJECT

public:
    struct Keys
    {
        QStringList caps;
        QString meaning;
    };

    struct Content
    {
        QString title;
        QString text;
        QList<Keys> keys; ///< Below the text.
        QString progress; ///< "1 of 4"
        QString next;     ///< The button's title.
    };

    explicit TourViewController(const Content &content, QWidget *parent = nullptr);

    QString title() const;
    void setColors(const ClipColors &colors);
    /// Gives the keyboard to the button.
    void focusNext();

public Q_SLOTS:
    void nextClicked();

Q_SIGNALS:
    void nextRequested();

private:
    void addKeys(const QList<Keys> &keys);

    QList<KeyCaps *> m_keyCaps;
    PaneButton *m_next;
};
