#pragma once

class QAbstractScrollArea;
class QScrollBar;
struct ClipColors;

/// The look of the history window's scroll bars, the same under every desktop style.
namespace ScrollBars {

/// Gives the area's vertical bar a slim handle on a clear ground.
void makeSlim(QAbstractScrollArea &area, const ClipColors &colors);

/// The same for a vertical bar that stands alone.
void makeSlim(QScrollBar &bar, const ClipColors &colors);

} // namespace ScrollBars
