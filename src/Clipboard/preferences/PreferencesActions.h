#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <vector>

class ClipItem;

/// What the General pane asks of the application. Implemented above this room; outlives the pane.
class PreferencesActions
{
public:
    PreferencesActions() = default;
    PreferencesActions(const PreferencesActions &) = delete;
    PreferencesActions &operator=(const PreferencesActions &) = delete;
    virtual ~PreferencesActions() = default;

    /// What the two system-wide shortcuts do.
    virtual void launch() = 0;
    virtual void swop() = 0;

    virtual const std::vector<std::shared_ptr<ClipItem>> &getClipItemArr() const = 0;
    /// Shrinks the history to at most `maxItems` clips.
    virtual void maxItemsModified(qint64 maxItems) = 0;
    /// Puts a text of our own on the pasteboard; capture records it like any copy.
    virtual void setPasteboardString(const QString &text, const std::optional<QString> &rtf) = 0;
    /// Adds the application to the session's login items or takes it out.
    virtual void launchAtStartup(bool isOn) = 0;
};
