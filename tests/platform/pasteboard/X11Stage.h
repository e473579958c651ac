#pragma once

#include "platform/ApplicationNames.h"
#include "platform/pasteboard/PasteboardStage.h"
#include "platform/pasteboard/StageTime.h"
#include "platform/pasteboard/XcbClient.h"
#include "platform/x11/selection/X11Pasteboard.h"

/// The real pasteboard on the test's display. Applications are named by their window class.
class X11Stage : public PasteboardStage
{
public:
    explicit X11Stage(const PasteboardLimits &limits = {});

    /// From now on the pasteboard's time stands still, but for advance().
    void stopTime() { m_time.stop(); }
    /// Returns when what is due by then is done.
    void advance(std::chrono::milliseconds time);

    X11Pasteboard *operator->() { return &m_pasteboard; }
    /// Waits, with `clients` at work, until the change count is `count`.
    bool reaches(qint64 count, const QList<XcbClient *> &clients);
    /// The contents of the latest change once it is number `count`.
    PasteboardContents change(qint64 count, const QList<XcbClient *> &clients);
    /// What another client gets for a format of a selection; absent when it is refused.
    std::optional<QByteArray> paste(const QByteArray &target,
                                    const QByteArray &selection = "CLIPBOARD");

    /// Whether another client gets these bytes, once it is the pasteboard that serves it.
    bool isServed(const QByteArray &bytes, const QByteArray &target = "UTF8_STRING");

    // ^PasteboardStage
    Pasteboard &pasteboard() override { return m_pasteboard; }
    void copyElsewhere(const PasteboardContents &contents) override;
    Copy pasteElsewhere() override;
    void markElsewhere(const QString &text) override;
    std::optional<QString> markedElsewhere() override;
    bool workUntil(const std::function<bool()> &isReached) override;

private:
    class ClassNames : public ApplicationNames
    {
        ApplicationIdentity identify(const WindowIdentity &window) const override
        {
            const bool hasClass = !window.resourceClass.isEmpty();
            return {hasClass ? window.resourceClass : window.processName, false};
        }
    };

    PasteboardLimits measured(PasteboardLimits limits) const;

    StageTime m_time;
    ClassNames m_names;
    XcbClient m_client;
    X11Pasteboard m_pasteboard;
};
