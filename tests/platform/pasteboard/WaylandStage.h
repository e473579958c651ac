#pragma once

#include "platform/pasteboard/DataClient.h"
#include "platform/pasteboard/PasteboardStage.h"
#include "platform/pasteboard/StageTime.h"
#include "platform/wayland/pasteboard/WaylandPasteboard.h"

/// The real pasteboard in the test's session.
class WaylandStage : public PasteboardStage
{
public:
    using Selection = DataControl::Selection;

    /// What the clipboard is followed by instead of data-control.
    using ControlOf =
        std::function<DataControl::Make(const std::shared_ptr<WaylandConnection> &connection)>;

    explicit WaylandStage(const PasteboardLimits &limits = {}, const ControlOf &controlOf = {});
    ~WaylandStage() override;

    /// What is in front from now on.
    void setFront(const WaylandPasteboard::Front &front);
    /// From now on the pasteboard's time stands still, but for advance().
    void stopTime() { m_time.stop(); }
    /// Returns when what is due by then is done.
    void advance(std::chrono::milliseconds time);
    /// As if the compositor had ended.
    void loseCompositor();

    WaylandPasteboard *operator->() { return m_pasteboard.get(); }
    /// Waits, with `clients` at work, until the change count is `count`.
    bool reaches(qint64 count, const QList<DataClient *> &clients);
    /// The contents of that change once it is there.
    PasteboardContents change(qint64 count, const QList<DataClient *> &clients);
    /// What another client gets for a format; absent when it is not offered.
    std::optional<QByteArray> paste(const QString &name,
                                    Selection selection = Selection::Clipboard);
    /// Whether another client gets these bytes, once it is the pasteboard that serves them.
    bool isServed(const QByteArray &bytes, const QString &name = QStringLiteral("UTF8_STRING"));
    bool isOurs(Selection selection = Selection::Clipboard) const;

    // ^PasteboardStage
    Pasteboard &pasteboard() override { return *m_pasteboard; }
    void copyElsewhere(const PasteboardContents &contents) override;
    Copy pasteElsewhere() override;
    void markElsewhere(const QString &text) override;
    std::optional<QString> markedElsewhere() override;
    bool workUntil(const std::function<bool()> &isReached) override;

private:
    PasteboardLimits measured(PasteboardLimits limits) const;

    StageTime m_time;
    DataClient m_client;
    WaylandPasteboard::Front m_front; ///< On the pasteboard's thread.
    std::shared_ptr<WaylandConnection> m_connection;
    std::unique_ptr<WaylandPasteboard> m_pasteboard;
};
