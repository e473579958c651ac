#pragma once

/// Sends what the toolkit has asked the compositor for until now, as to hide a window, and returns
/// when the compositor has done it, where this version of Qt lets its connection be used; else it
/// is done a moment later. Nothing under another display system. Main thread only.
void finishQtWaylandRequests();
