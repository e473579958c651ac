#pragma once

class QIcon;

/// The status item's icon while a queue is pasted: how many clips are left, in a disc that shows on
/// light and on dark panels.
QIcon queueBadge(int left);
