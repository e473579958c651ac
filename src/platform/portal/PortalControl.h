#pragma once

#include "platform/wayland/pasteboard/DataControl.h"

#include <memory>

class PortalClipboard;
class WaylandConnection;

/// The clipboard alone, as a portal lets it be followed and owned: there is no PRIMARY. Its offers
/// know no owner, so that what is asked of one is answered by whoever owns the clipboard by then;
/// such an answer is not read. One format is read after the other, because the desktop refuses all
/// that are asked for meanwhile. On the connection's thread.
class PortalControl : public DataControl
{
public:
    /// Null while there is no session.
    static std::unique_ptr<DataControl> make(std::shared_ptr<WaylandConnection> connection,
                                             std::shared_ptr<PortalClipboard> clipboard,
                                             Listeners listeners);
    ~PortalControl() override;

    // ^DataControl
    bool hasPrimary() const override { return false; }
    std::unique_ptr<DataSource> own(Selection selection, const QStringList &names,
                                    DataSource::Listeners listeners) override;
    void empty(Selection selection) override;
    [[nodiscard]] bool roundTrip() override;

private:
    class Core;
    class Offer;
    class Source;

    explicit PortalControl(std::shared_ptr<Core> core) : m_core(std::move(core)) {}

    const std::shared_ptr<Core> m_core; ///< Outlived by what was made of it.
};
