#pragma once

#include "looks/ClipColors.h"

#include <QWidget>

class QLabel;

/// What stands in place of list and preview while there is nothing to list: a picture and a few
/// friendly words. Owned by the content view.
class EmptyStateView : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyStateView(QWidget *parent = nullptr);

    /// For a history without clips. `shortcut` is how the open shortcut is called; empty when
    /// there is none.
    void showEmptyHistory(const QString &shortcut);
    /// For a list of pinned clips without any.
    void showNothingPinned();
    /// For a search without results.
    void showNothingMatches(const QString &searchText);

    /// Takes on the colours, and the desktop's font.
    void setColors(const ClipColors &colors);

    QString title() const;
    QString hint() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showState(const QString &icon, const QString &title, const QString &hint);
    void updatePicture();

    ClipColors m_colors;
    QString m_icon;
    QLabel *m_picture;
    QLabel *m_title;
    QLabel *m_hint;
};
