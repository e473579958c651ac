#pragma once

#include <QByteArray>
#include <QHash>

#include <map>
#include <optional>

#include <xcb/xcb.h>

/// What of an X server a reader of selections meets: atoms, the properties of its window, and the
/// question that it asks of the owner. It stands behind xcb's own functions, which FakeXServer.cpp
/// defines anew for the program that it is linked into; all of them speak to the one server.
class FakeXServer
{
public:
    struct Property
    {
        xcb_atom_t type = XCB_ATOM_NONE;
        uint8_t format = 8; ///< 8, 16 or 32.
        QByteArray bytes;   ///< A whole number of elements.
    };
    struct Question
    {
        xcb_atom_t selection = XCB_ATOM_NONE;
        xcb_atom_t target = XCB_ATOM_NONE;
        xcb_atom_t property = XCB_ATOM_NONE;
        xcb_timestamp_t time = XCB_CURRENT_TIME;
    };

    static constexpr xcb_window_t kWindow = 0x200001;

    static FakeXServer &only();

    /// Made where it does not exist; the predefined ones have their numbers.
    xcb_atom_t atom(const QByteArray &name);
    /// Empty for a number that is no atom.
    QByteArray nameOf(xcb_atom_t atom) const { return m_names.value(atom); }

    /// Like a program that writes into the window.
    void write(xcb_atom_t property, const Property &value, bool isAppended = false);
    std::optional<Property> read(xcb_atom_t property) const;
    void remove(xcb_atom_t property) { m_properties.erase(property); }
    void forgetProperties() { m_properties.clear(); }

    /// The latest that was asked of the owner.
    Question question;

private:
    FakeXServer();

    QHash<QByteArray, xcb_atom_t> m_atoms;
    QHash<xcb_atom_t, QByteArray> m_names;
    std::map<xcb_atom_t, Property> m_properties;
};
