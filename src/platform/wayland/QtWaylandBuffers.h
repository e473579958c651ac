#pragma once

/// Has Qt paint all windows by the processor, as ours are anyway. Left to itself it would load the
/// graphics driver for the first of them, with all that a driver brings along: tens of megabytes,
/// and more time than everything else that showing a window takes. Once there is an application
/// object, before there is a window.
void keepQtWaylandFromOpenGL();
