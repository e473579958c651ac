#pragma once

#include <QObject>

class Appearance;

/// Gives the whole application the desktop's light or dark scheme and its accent colour, for as
/// long as it lives and while they change. Owned by main. Every window and dialog takes its colours
/// from the application's palette, so this is the only place that asks the desktop. A palette that
/// the desktop itself supplies is kept where it fits the scheme. Where the desktop names no icon
/// theme, a common one is chosen.
class DesktopLooks : public QObject
{
    Q_OBJECT

public:
    /// `appearance` must outlive this.
    explicit DesktopLooks(const Appearance &appearance, QObject *parent = nullptr);

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void apply();

    const Appearance &m_appearance;
    bool m_isApplying = false;
};
