/// A selection's owner that answers in any order with anything: the input is what it does, a byte
/// for each step and what that needs, while the clock goes on. Kept inputs:
/// tests/data/fuzz/selection.

#include "fuzz/Demand.h"
#include "fuzz/FakeXServer.h"
#include "platform/x11/selection/PropertyPool.h"
#include "platform/x11/selection/SelectionConnection.h"
#include "platform/x11/selection/SelectionReader.h"

#include <array>

namespace {

using namespace std::chrono_literals;

constexpr CopyQuestions::Useful kUseful{200, 300};
constexpr qint64 kMostOfRest = 500;

class Owner
{
public:
    explicit Owner(const Input &input) : m_input(input)
    {
        m_limits.now = [this] { return m_now; };
        begin();
    }

    void run()
    {
        while (!m_input.isEmpty()) {
            step();
            look();
        }
        // Whatever it has done, nobody waits for it any longer than this.
        for (const auto end = m_now + 30s; m_reader.isReading() && m_now < end; m_now += 10ms)
            m_reader.checkClock(m_now);
        demand(!m_reader.isReading(), "a reading ends in time");
        look();
    }

private:
    enum Step {
        Answer,
        Refuse,
        AnswerOddly,
        Announce,
        Piece,
        Deletion,
        Wait,
        Restart,
        Rest,
        Count
    };

    void step()
    {
        FakeXServer &server = FakeXServer::only();
        const FakeXServer::Question asked = server.question;
        switch (m_input.byte() % Count) {
        case Answer:
            server.write(asked.property, value());
            notify(asked);
            break;
        case Refuse:
            notify({asked.selection, asked.target, XCB_ATOM_NONE, asked.time});
            break;
        case AnswerOddly:
            server.write(anAtom(), value());
            notify(
                {anAtom(), m_input.byte() % 2 ? asked.target : anAtom(), anAtom(), m_input.byte()});
            break;
        case Announce:
            server.write(asked.property, {server.atom("INCR"), 32, number(m_input.number())});
            notify(asked);
            break;
        case Piece: {
            const bool isAppended = m_input.byte() % 2;
            server.write(asked.property, value(), isAppended);
            tell(asked.property, XCB_PROPERTY_NEW_VALUE);
            break;
        }
        case Deletion:
            server.remove(asked.property);
            tell(asked.property, XCB_PROPERTY_DELETE);
            break;
        case Wait:
            m_now += m_input.byte() * 10ms;
            m_reader.checkClock(m_now);
            break;
        case Restart:
            finish(m_reader.abandon());
            begin();
            break;
        case Rest:
            finish(m_reader.abandon());
            m_reader.beginRest(m_connection.atoms().clipboard, ++m_time,
                               {{anAtom(), anAtom()}, {anAtom()}}, kMostOfRest);
            m_isRest = true;
        }
    }

    void begin()
    {
        m_isRest = false;
        m_reader.begin(m_connection.atoms().clipboard, ++m_time, kUseful,
                       m_input.byte() % 4 == 0 ? SelectionReader::Wish::Text
                                               : SelectionReader::Wish::Copy);
    }

    /// Takes what is finished, and begins anew.
    void look()
    {
        if (auto fetched = m_reader.takeFinished()) {
            finish(*fetched);
            begin();
        } else {
            demand(m_reader.isReading() && m_reader.deadline() &&
                       *m_reader.deadline() > m_now - 10s,
                   "what is read has an end");
        }
    }

    void finish(const FetchedSelection &fetched)
    {
        // Of one encoding into another a text may grow.
        demand(fetched.copy.text.value_or(QByteArray()).size() <= kUseful.text * 24,
               "no more of a text is kept than is of use");
        demand(fetched.copy.picture.size() <= kUseful.picture ||
                   fetched.copy.pictureName != QStringLiteral("image/png"),
               "nor of a picture");
        qint64 rest = 0;
        for (const SelectionOffer::Format &format : fetched.rest)
            rest += format.data.bytes.size();
        demand(rest <= kMostOfRest, "nor of the rest");
        demand(!fetched.isConcealed || (fetched.names.isEmpty() && !fetched.copy.text),
               "a secret is not read");
        if (!m_isRest)
            static_cast<void>(fetched.contents(kUseful.text));
    }

    xcb_atom_t anAtom()
    {
        static constexpr std::array kNames{"TARGETS",
                                           "UTF8_STRING",
                                           "STRING",
                                           "text/plain;charset=utf-16",
                                           "TEXT",
                                           "COMPOUND_TEXT",
                                           "text/html",
                                           "text/rtf",
                                           "image/png",
                                           "image/bmp",
                                           "INCR",
                                           "ATOM",
                                           "ATOM_PAIR",
                                           "NULL",
                                           "CLIPBOARD",
                                           "text/uri-list",
                                           "MULTIPLE",
                                           "x-special/gnome-copied-files",
                                           "SAVE_TARGETS",
                                           "x-kde-passwordManagerHint",
                                           "",
                                           "QUILLMARSH_SELECTION_0",
                                           "TIMESTAMP",
                                           "QUILLMARSH_SELECTION_3"};
        const quint8 number = m_input.byte();
        return number < 200 ? FakeXServer::only().atom(kNames[number % kNames.size()])
                            : xcb_atom_t(number);
    }

    static QByteArray number(quint32 value)
    {
        return {reinterpret_cast<const char *>(&value), sizeof value};
    }

    /// A byte for the type, one for the format, the length, and the bytes; a list of atoms has one
    /// of them a byte, and what is longer than an input can be is told by its length.
    FakeXServer::Property value()
    {
        FakeXServer::Property value;
        value.type = anAtom();
        const quint8 kind = m_input.byte();
        value.format = std::array<uint8_t, 4>{8, 8, 16, 32}[kind % 4];
        const qsizetype count = m_input.number();
        if (kind & 4) {
            value.bytes = QByteArray(count * 4, 'x');
        } else if (value.format == 32) {
            for (qsizetype i = 0; i < count && !m_input.isEmpty(); ++i)
                value.bytes += number(anAtom());
        } else {
            value.bytes = m_input.bytes(count);
            value.bytes.chop(value.bytes.size() % (value.format / 8));
        }
        return value;
    }

    void notify(const FakeXServer::Question &answer)
    {
        union {
            xcb_selection_notify_event_t notify;
            xcb_generic_event_t any;
        } event = {};
        event.notify.response_type = XCB_SELECTION_NOTIFY | 0x80;
        event.notify.time = answer.time;
        event.notify.requestor = FakeXServer::kWindow;
        event.notify.selection = answer.selection;
        event.notify.target = answer.target;
        event.notify.property = answer.property;
        if (!m_reader.handle(event.any))
            m_pool.handleLate(event.notify);
    }

    void tell(xcb_atom_t property, uint8_t state)
    {
        union {
            xcb_property_notify_event_t notify;
            xcb_generic_event_t any;
        } event = {};
        event.notify.response_type = XCB_PROPERTY_NOTIFY;
        event.notify.window = FakeXServer::kWindow;
        event.notify.atom = property;
        event.notify.state = state;
        m_reader.handle(event.any);
    }

    Input m_input;
    SelectionReader::TimePoint m_now{1h};
    PasteboardLimits m_limits;
    SelectionConnection m_connection{[this] { return m_now; }};
    PropertyPool m_pool{m_connection};
    SelectionReader m_reader{m_connection, m_pool, m_limits};
    xcb_timestamp_t m_time = 1;
    bool m_isRest = false;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FakeXServer::only().forgetProperties();
    Owner(Input(data, size)).run();
    return 0;
}
