#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

class FadeCover;
class SettingsStore;
class WindowSpace;
class QToolBar;

/// The window that CCNPreferencesWindowController shows its panes in: a title bar, a toolbar at the
/// top and one content view below it. Owned by its controller. Its user cannot resize it; what is
/// in it decides its size. Rectangles are device-independent and stand for the window without the
/// decoration that the window manager puts around it.
class CCNPreferencesWindow : public QWidget
{
    Q_OBJECT

public:
    /// `settings` keeps the frame. Both must outlive the window.
    CCNPreferencesWindow(SettingsStore &settings, WindowSpace &windowSpace);
    /// Gives the content view back to whoever owns it.
    ~CCNPreferencesWindow() override;

    QToolBar *toolbar() const { return m_toolbar; }
    /// Replaces the toolbar, which the window owns from now on; null for none.
    void setToolbar(QToolBar *toolbar);
    void setShowsToolbarSeparator(bool shows);
    /// Whether the toolbar melts into the title bar: it is drawn without a line or ground of its
    /// own. The title bar itself is the window manager's.
    void setTitlebarAppearsTransparent(bool isTransparent);
    bool titlebarAppearsTransparent() const { return m_titlebarAppearsTransparent; }

    /// Lets what is behind the window shine through the content. A window that was shown before
    /// without it stays opaque.
    void setVibrant(bool isVibrant);

    QWidget *contentView() const { return m_contentView; }
    /// Shows `view` at its own size below the toolbar. The view is not owned; the one shown before
    /// is hidden and let go.
    void setContentView(QWidget *view);
    /// From 0 (invisible) to 1 (opaque).
    void setContentOpacity(qreal opacity);

    /// The window's rectangle at its present place around a content of that size.
    QRect frameForContentSize(const QSize &content) const;
    QSize contentSizeOf(const QRect &frame) const;
    /// Moves and resizes in one step.
    void setFrame(const QRect &frame);
    /// Centres the window in the free part of the primary screen, somewhat above the middle.
    void center();
    /// Moves the window by what it takes to be wholly on its screen.
    void keepOnScreen();

    /// Names the settings entry that keeps the frame from now on, and returns to a frame kept
    /// there.
    void setFrameAutosaveName(const QString &name);
    /// Takes a frame as it is kept: left, top, width and height, then those of the screen. False,
    /// and nothing changes, when the text is no frame.
    bool setFrameFromString(const QString &text);

    // ^QWidget
    void setVisible(bool isVisible) override;

Q_SIGNALS:
    void hidden();

protected:
    // ^QWidget
    void keyPressEvent(QKeyEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void closeLimits();
    void setSizeLimits(const QSize &minimum, const QSize &maximum);
    int toolbarHeight() const;
    void layOut();
    void saveFrame();

    SettingsStore &m_settings;
    WindowSpace &m_windowSpace;
    QString m_frameKey;
    QTimer m_saveTimer;
    bool m_opensLimits = false; ///< While the window resizes itself.
    QTimer m_limitTimer;
    QToolBar *m_toolbar = nullptr;
    bool m_showsToolbarSeparator = true;
    bool m_titlebarAppearsTransparent = false;
    bool m_isVibrant = false;
    QPointer<QWidget> m_contentView;
    QWidget *m_holder;
    FadeCover *m_cover;
};
