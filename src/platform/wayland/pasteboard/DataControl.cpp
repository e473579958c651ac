#include "platform/wayland/pasteboard/DataControl.h"

#include "platform/pasteboard/CopyQuestions.h"
#include "platform/wayland/WaylandConnection.h"

#include <ext-data-control-v1-client-protocol.h>
#include <wlr-data-control-unstable-v1-client-protocol.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace {

// Offers that were announced and not yet said to be a selection: one, with a sane compositor.
constexpr std::size_t kMaxPending = 8;

/// What the two protocols call the same things.
struct Ext
{
    using Manager = ext_data_control_manager_v1;
    using Device = ext_data_control_device_v1;
    using DeviceListener = ext_data_control_device_v1_listener;
    using Source = ext_data_control_source_v1;
    using SourceListener = ext_data_control_source_v1_listener;
    using Offer = ext_data_control_offer_v1;
    using OfferListener = ext_data_control_offer_v1_listener;

    static constexpr quint32 kVersion = 1;
    static constexpr quint32 kPrimarySince = 1;
    static constexpr const wl_interface &kInterface = ext_data_control_manager_v1_interface;
    static constexpr auto createSource = &ext_data_control_manager_v1_create_data_source;
    static constexpr auto getDevice = &ext_data_control_manager_v1_get_data_device;
    static constexpr auto destroyManager = &ext_data_control_manager_v1_destroy;
    static constexpr auto listenToDevice = &ext_data_control_device_v1_add_listener;
    static constexpr auto deviceVersion = &ext_data_control_device_v1_get_version;
    static constexpr auto setSelection = &ext_data_control_device_v1_set_selection;
    static constexpr auto setPrimary = &ext_data_control_device_v1_set_primary_selection;
    static constexpr auto destroyDevice = &ext_data_control_device_v1_destroy;
    static constexpr auto listenToSource = &ext_data_control_source_v1_add_listener;
    static constexpr auto offer = &ext_data_control_source_v1_offer;
    static constexpr auto destroySource = &ext_data_control_source_v1_destroy;
    static constexpr auto listenToOffer = &ext_data_control_offer_v1_add_listener;
    static constexpr auto receive = &ext_data_control_offer_v1_receive;
    static constexpr auto destroyOffer = &ext_data_control_offer_v1_destroy;
};

struct Wlr
{
    using Manager = zwlr_data_control_manager_v1;
    using Device = zwlr_data_control_device_v1;
    using DeviceListener = zwlr_data_control_device_v1_listener;
    using Source = zwlr_data_control_source_v1;
    using SourceListener = zwlr_data_control_source_v1_listener;
    using Offer = zwlr_data_control_offer_v1;
    using OfferListener = zwlr_data_control_offer_v1_listener;

    static constexpr quint32 kVersion = 2;
    static constexpr quint32 kPrimarySince =
        ZWLR_DATA_CONTROL_DEVICE_V1_SET_PRIMARY_SELECTION_SINCE_VERSION;
    static constexpr const wl_interface &kInterface = zwlr_data_control_manager_v1_interface;
    static constexpr auto createSource = &zwlr_data_control_manager_v1_create_data_source;
    static constexpr auto getDevice = &zwlr_data_control_manager_v1_get_data_device;
    static constexpr auto destroyManager = &zwlr_data_control_manager_v1_destroy;
    static constexpr auto listenToDevice = &zwlr_data_control_device_v1_add_listener;
    static constexpr auto deviceVersion = &zwlr_data_control_device_v1_get_version;
    static constexpr auto setSelection = &zwlr_data_control_device_v1_set_selection;
    static constexpr auto setPrimary = &zwlr_data_control_device_v1_set_primary_selection;
    static constexpr auto destroyDevice = &zwlr_data_control_device_v1_destroy;
    static constexpr auto listenToSource = &zwlr_data_control_source_v1_add_listener;
    static constexpr auto offer = &zwlr_data_control_source_v1_offer;
    static constexpr auto destroySource = &zwlr_data_control_source_v1_destroy;
    static constexpr auto listenToOffer = &zwlr_data_control_offer_v1_add_listener;
    static constexpr auto receive = &zwlr_data_control_offer_v1_receive;
    static constexpr auto destroyOffer = &zwlr_data_control_offer_v1_destroy;
};

template <typename P>
class Offer : public DataOffer
{
public:
    explicit Offer(typename P::Offer *offer) : m_offer(offer)
    {
        static constexpr typename P::OfferListener kListener{
            [](void *self, typename P::Offer *, const char *name) {
                QStringList &names = static_cast<Offer *>(self)->m_names;
                if (names.size() < CopyQuestions::kMaxNamed)
                    names.append(QString::fromUtf8(name));
            }};
        P::listenToOffer(m_offer, &kListener, this);
    }
    Offer(const Offer &) = delete;
    Offer &operator=(const Offer &) = delete;
    ~Offer() override { P::destroyOffer(m_offer); }

    bool is(const typename P::Offer *offer) const { return m_offer == offer; }

    // ^DataOffer
    void open(const QString &name, Opened opened) override
    {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) < 0) {
            opened({});
            return;
        }
        // Our end alone: the other is its owner's, and most write as if to a file.
        fcntl(ends[0], F_SETFL, O_NONBLOCK);
        P::receive(m_offer, name.toUtf8().constData(), ends[1]);
        // The end of the contents is that nobody has it open any more. What is sent is a duplicate.
        close(ends[1]);
        opened(ReadingEnd(ends[0]));
    }

private:
    typename P::Offer *m_offer;
};

template <typename P>
class Source : public DataSource
{
public:
    Source(typename P::Source *source, const QStringList &names, Listeners listeners)
        : m_source(source), m_listeners(std::move(listeners))
    {
        static constexpr typename P::SourceListener kListener{
            [](void *self, typename P::Source *, const char *name, int32_t fd) {
                static_cast<Source *>(self)->m_listeners.asked(QString::fromUtf8(name), fd, {});
            },
            [](void *self, typename P::Source *) {
                // A copy: whoever is told may end this source.
                const auto replaced = static_cast<Source *>(self)->m_listeners.replaced;
                replaced();
            }};
        P::listenToSource(m_source, &kListener, this);
        for (const QString &name : names)
            P::offer(m_source, name.toUtf8().constData());
    }
    Source(const Source &) = delete;
    Source &operator=(const Source &) = delete;
    ~Source() override { P::destroySource(m_source); }

private:
    typename P::Source *m_source;
    Listeners m_listeners;
};

template <typename P>
class Control : public DataControl
{
public:
    Control(WaylandConnection &connection, typename P::Manager *manager, Listeners listeners)
        : m_connection(connection), m_manager(manager),
          m_device(P::getDevice(manager, connection.seat())), m_listeners(std::move(listeners))
    {
        static constexpr typename P::DeviceListener kListener = [] {
            typename P::DeviceListener listener{};
            listener.data_offer = [](void *self, typename P::Device *, typename P::Offer *offer) {
                static_cast<Control *>(self)->add(offer);
            };
            listener.selection = [](void *self, typename P::Device *, typename P::Offer *offer) {
                static_cast<Control *>(self)->tell(Selection::Clipboard, offer);
            };
            listener.primary_selection = [](void *self, typename P::Device *,
                                            typename P::Offer *offer) {
                static_cast<Control *>(self)->tell(Selection::Primary, offer);
            };
            listener.finished = [](void *self, typename P::Device *) {
                const auto finished = static_cast<Control *>(self)->m_listeners.finished;
                finished();
            };
            return listener;
        }();
        P::listenToDevice(m_device, &kListener, this);
    }
    Control(const Control &) = delete;
    Control &operator=(const Control &) = delete;
    ~Control() override
    {
        m_pending.clear();
        P::destroyDevice(m_device);
        P::destroyManager(m_manager);
    }

    // ^DataControl
    bool hasPrimary() const override { return P::deviceVersion(m_device) >= P::kPrimarySince; }
    std::unique_ptr<DataSource> own(Selection selection, const QStringList &names,
                                    DataSource::Listeners listeners) override
    {
        if (selection == Selection::Primary && !hasPrimary())
            return nullptr;
        typename P::Source *source = P::createSource(m_manager);
        auto owned = std::make_unique<Source<P>>(source, names, std::move(listeners));
        set(selection, source);
        return owned;
    }
    void empty(Selection selection) override
    {
        if (selection == Selection::Clipboard || hasPrimary())
            set(selection, nullptr);
    }
    bool roundTrip() override { return m_connection.roundTrip(); }

private:
    void set(Selection selection, typename P::Source *source)
    {
        if (selection == Selection::Clipboard)
            P::setSelection(m_device, source);
        else
            P::setPrimary(m_device, source);
    }

    void add(typename P::Offer *offer)
    {
        m_pending.push_back(std::make_shared<Offer<P>>(offer));
        if (m_pending.size() > kMaxPending)
            m_pending.erase(m_pending.begin());
    }

    void tell(Selection selection, const typename P::Offer *offer)
    {
        std::shared_ptr<DataOffer> told;
        const auto pending =
            std::find_if(m_pending.begin(), m_pending.end(),
                         [offer](const auto &candidate) { return candidate->is(offer); });
        if (offer && pending != m_pending.end()) {
            told = *pending;
            m_pending.erase(pending);
        }
        m_listeners.changed(selection, std::move(told));
    }

    WaylandConnection &m_connection;
    typename P::Manager *m_manager;
    typename P::Device *m_device;
    Listeners m_listeners;
    std::vector<std::shared_ptr<Offer<P>>> m_pending;
};

template <typename P>
std::unique_ptr<DataControl> makeControl(WaylandConnection &connection,
                                         DataControl::Listeners &listeners)
{
    auto *manager = connection.bind<typename P::Manager>(P::kInterface, P::kVersion);
    if (!manager)
        return nullptr;
    return std::make_unique<Control<P>>(connection, manager, std::move(listeners));
}

} // namespace

std::unique_ptr<DataControl> DataControl::make(WaylandConnection &connection, Listeners listeners)
{
    if (!connection.seat())
        return nullptr;
    if (auto control = makeControl<Ext>(connection, listeners))
        return control;
    return makeControl<Wlr>(connection, listeners);
}
