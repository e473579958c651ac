#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

class X11Connection;

/// Tells those who show that programs are starting (a busy pointer, an entry in a panel) that the
/// start with this id is over, as the freedesktop.org startup notification protocol has it.
/// `window` is one of our own on that connection; it only marks the parts of the message as one.
void sendStartupEnd(const X11Connection &connection, xcb_window_t window, const QByteArray &id);
