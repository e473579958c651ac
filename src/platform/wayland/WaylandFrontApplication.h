#pragma once

#include "platform/FrontApplication.h"
#include "platform/wayland/FrontNames.h"
#include "platform/wayland/Toplevels.h"

#include <QByteArray>
#include <QPointer>
#include <QWindow>

#include <memory>

class WaylandConnection;

/// The window in front by what the compositor tells of all windows. Of ours, which need not be
/// windows that it tells of, the toolkit knows who has the keyboard. A target is what was in front
/// when one of ours got the keyboard: what comes to the front when they are hidden may be another
/// one, because the target was closed meanwhile. Where the compositor tells of no windows the
/// target is what it gives the keyboard to when ours are gone.
class WaylandFrontApplication : public FrontApplication
{
    Q_OBJECT

public:
    WaylandFrontApplication(std::shared_ptr<WaylandConnection> connection,
                            std::shared_ptr<Toplevels> toplevels, std::shared_ptr<FrontNames> names,
                            QObject *parent = nullptr);
    ~WaylandFrontApplication() override;

    // ^FrontApplication
    QString applicationName() const override { return m_names->front().applicationName; }
    void setOwnTarget(QWindow *window) override { m_ownTarget = window; }
    [[nodiscard]] bool returnToTarget(std::chrono::milliseconds limit = kReturnLimit) override;
    void activate(QWindow *window) override;
    bool isInFront(const QWindow &window) const override;
    void endStartup(const QString &activationToken) override;

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followKeyboard(const QWindow *window);
    void letTargetGo();
    Toplevels::Id aim() const;
    bool roundTrip();

    const std::shared_ptr<WaylandConnection> m_connection;
    const std::shared_ptr<Toplevels> m_toplevels;
    const std::shared_ptr<FrontNames> m_names;
    QPointer<QWindow> m_ownTarget;
    bool m_isTargetHeld = false;
    QByteArray m_activationToken; ///< Of whoever asked for us last, until it has been used.
};
