#pragma once

#include "shortcut/MASShortcut.h"
#include "shortcut/MASShortcutCell.h"
#include "shortcut/ShortcutValueBinding.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

class MASShortcutMonitor;
class MASShortcutValidator;
class SettingsStore;

/// The control with which a user sets a global shortcut: click it, press the keys, done. Shows the
/// shortcut, checks a new one, and keeps it in step with a key of the settings in both directions.
/// Only one control records at a time; our own hot keys are suspended meanwhile. Owned by its
/// parent widget. Its accessible name is for the owner to set; its accessible value is its title.
class MASShortcutView : public QWidget
{
    Q_OBJECT

public:
    using Style = MASShortcutCell::Style;
    using Glyph = MASShortcutCell::Glyph;
    using ShortcutValueChange = std::function<void(MASShortcutView &)>;

    /// `settings` is where associated keys live; not owned, and missed only by a binding.
    explicit MASShortcutView(SettingsStore *settings, QWidget *parent = nullptr);
    ~MASShortcutView() override;

    /// Shows the shortcut stored under `key`, now and whenever it changes, and stores what the
    /// user records there, in place of an earlier association. Without a key only the earlier
    /// association ends. Shortcuts are stored as keyed archives, else by `transformer` or the
    /// transformer with the name; with none of them as they stand.
    void setAssociatedUserDefaultsKey(const std::optional<QString> &key);
    void setAssociatedUserDefaultsKey(const std::optional<QString> &key,
                                      const ValueTransformer *transformer);
    void setAssociatedUserDefaultsKey(const std::optional<QString> &key,
                                      const QString &transformerName);
    /// Absent when no key is associated.
    const std::optional<QString> &associatedUserDefaultsKey() const { return m_binding.key(); }

    const std::optional<MASShortcut> &shortcutValue() const { return m_shortcutValue; }
    /// Shows the shortcut, or none, stores it under the associated key and tells the receiver of
    /// changes.
    void setShortcutValue(const std::optional<MASShortcut> &shortcut);
    /// Called after every change of the value, whoever made it.
    void setShortcutValueChange(ShortcutValueChange change)
    {
        m_shortcutValueChange = std::move(change);
    }

    /// Not owned; the shared one at first.
    void setShortcutValidator(const MASShortcutValidator &validator)
    {
        m_shortcutValidator = &validator;
    }
    /// The monitor whose hot keys are suspended while recording: not owned, may be null, the
    /// shared one at first.
    void setShortcutMonitor(MASShortcutMonitor *monitor);
    /// What sounds when a combination is not valid; the system beep at first.
    void setBeep(std::function<void()> beep);

    bool isRecording() const { return m_isRecording; }
    /// Waits for a combination, or stops waiting and keeps the old one. A disabled control does
    /// not start, but another that is recording stops all the same.
    void setRecording(bool isRecording);

    Style style() const { return m_cell.style(); }
    void setStyle(Style style);

    /// Whether the pointer is over the small button at the right end.
    bool isHinting() const { return m_isHinting; }
    /// The modifiers held while recording; empty when there are none.
    const QString &shortcutPlaceholder() const { return m_shortcutPlaceholder; }

    /// Whether modifiers were pressed while recording and no other key followed for some time. The
    /// window manager may keep such a combination for itself, so that it never comes here.
    bool isWaitingForKey() const { return m_isWaitingForKey; }
    /// Whether the last combination tried in this recording can never be a shortcut. The beep alone
    /// tells nobody whose bell is off, so whoever shows the control says why.
    bool isInvalid() const { return m_isInvalid; }
    /// Two seconds at first.
    void setWaitingForKeyDelay(std::chrono::milliseconds delay)
    {
        m_waitingTimer.setInterval(delay);
    }

    /// The text shown.
    QString title() const;
    /// What the small button at the right end shows.
    Glyph buttonGlyph() const;
    /// The tool tip at a point of the control; empty where there is none.
    QString toolTipAt(const QPoint &position) const;
    /// The small button at the right end.
    QRect hintRect() const;
    /// The rest.
    QRect shortcutRect() const { return rect().adjusted(0, 0, -hintRect().width(), 0); }

    // ^QWidget
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void isRecordingChanged(bool isRecording);
    void isWaitingForKeyChanged(bool isWaitingForKey);
    void isInvalidChanged(bool isInvalid);

protected:
    // ^QWidget
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    friend class ShortcutRecording;

    /// Examines a key press or a change of modifiers while recording. True when nobody else may
    /// have the event.
    bool handleKeyEvent(const QKeyEvent &event);

    void tryShortcut(const MASShortcut &shortcut);
    void showTakenAlert(const MASShortcut &shortcut, const QString &explanation);
    void setHinting(bool isHinting);
    void setShortcutPlaceholder(const QString &placeholder);
    void setWaitingForKey(bool isWaitingForKey);
    void setInvalid(bool isInvalid);
    void resetToolTips();
    void refresh();

    ShortcutValueBinding m_binding;
    std::optional<MASShortcut> m_shortcutValue;
    ShortcutValueChange m_shortcutValueChange;
    const MASShortcutValidator *m_shortcutValidator;
    QPointer<MASShortcutMonitor> m_shortcutMonitor;
    std::function<void()> m_beep;

    MASShortcutCell m_cell;
    QString m_shortcutPlaceholder;
    QTimer m_waitingTimer;
    bool m_isRecording = false;
    bool m_isHinting = false;
    bool m_isWaitingForKey = false;
    bool m_isInvalid = false;
};
