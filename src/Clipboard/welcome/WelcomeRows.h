#pragma once

#include "Clipboard/welcome/WelcomeStage.h"

#include <QList>

class KeyCaps;
class QGridLayout;
class QLabel;

/// A stage of rows: keys or a small picture on the left, what they mean on the right.
class WelcomeRows : public WelcomeStage
{
    Q_OBJECT

public:
    explicit WelcomeRows(QWidget *parent = nullptr);

    KeyCaps *addKeys(const QStringList &keys, const QString &meaning);
    /// `icon` is one of the window icons.
    void addIcon(const QString &icon, const QString &meaning);

    // ^WelcomeStage
    void setColors(const ClipColors &colors) override;

private:
    struct Icon
    {
        QString name;
        QLabel *label;
    };

    void add(QWidget *left, const QString &meaning);

    QGridLayout *m_grid;
    QList<KeyCaps *> m_keys;
    QList<Icon> m_icons;
};
