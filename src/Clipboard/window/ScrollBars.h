#pragma once

class QAbstractScrollArea;
struct ClipColors;

/// The look of the history window's scroll bars, the same under every desktop style.
namespace ScrollBars {

/// Gives the area's vertical bar a slim handle on a clear ground.
void makeSlim(QAbstractScrollArea &area, const ClipColors &colors);

} // namespace ScrollBars
