#pragma once

class QKeyEvent;
class ViewController;

/// The keys that mean the same in the search field and in the list: moving further than by a row,
/// pasting by place or without formatting, changing the history, and what the clip's menu tells.
namespace HistoryKeys {

/// Does what the key is for; false for any other key.
bool act(ViewController &controller, const QKeyEvent &event);

} // namespace HistoryKeys
