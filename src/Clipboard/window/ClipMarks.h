#pragma once

#include <memory>
#include <vector>

class ClipItem;

/// The clips that are marked to be pasted or deleted together, in the order in which they were
/// marked. None or at least two: whoever begins to mark means the selected clip too, and one clip
/// alone is just the selected one. Owned by the view controller.
class ClipMarks
{
public:
    using Items = std::vector<std::shared_ptr<ClipItem>>;

    const Items &items() const { return m_items; }
    bool isEmpty() const { return m_items.empty(); }
    /// From 1 on; 0 for a clip that is not marked.
    int placeOf(const std::shared_ptr<ClipItem> &item) const;

    /// The selection goes from one clip to the next and marks it; back on the clip that was marked
    /// before, it takes the mark of the one that it leaves.
    void extend(const std::shared_ptr<ClipItem> &from, const std::shared_ptr<ClipItem> &to);
    /// Marks `item` beside `selected`, or takes its mark. The clip that is selected then.
    std::shared_ptr<ClipItem> toggle(const std::shared_ptr<ClipItem> &selected,
                                     const std::shared_ptr<ClipItem> &item);
    /// What is not in `list` any more loses its mark.
    void keepOnly(const Items &list);
    void clear() { m_items.clear(); }

private:
    void mark(const std::shared_ptr<ClipItem> &item);
    void dropSingle();

    Items m_items;
};
