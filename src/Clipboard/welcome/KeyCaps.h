#pragma once

#include <QColor>
#include <QStringList>
#include <QWidget>

struct ClipColors;

struct KeyCapColors
{
    QColor face;
    QColor edge; ///< Around the cap, and its front below.
    QColor text;

    static KeyCapColors ofScheme(const ClipColors &colors);
};

/// Keys that are pressed together, drawn as they look on a keyboard.
class KeyCaps : public QWidget
{
    Q_OBJECT

public:
    explicit KeyCaps(const QStringList &keys, QWidget *parent = nullptr);

    QStringList keys() const { return m_keys; }
    void setKeys(const QStringList &keys);
    /// What is said in place of the keys while there are none.
    void setAbsence(const QString &words);
    /// The keys, or what is said in their place.
    QString text() const { return accessibleName(); }
    void setColors(const KeyCapColors &colors);

    // ^QWidget
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int capWidth(const QString &key) const;
    int capHeight() const;

    QStringList m_keys;
    QString m_absence;
    KeyCapColors m_colors;
};
