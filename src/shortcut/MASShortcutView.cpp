#include "shortcut/MASShortcutView.h"

#include "shortcut/KeyNames.h"
#include "shortcut/KeyedUnarchiveTransformer.h"
#include "shortcut/MASShortcutMonitor.h"
#include "shortcut/MASShortcutValidator.h"
#include "shortcut/MASShortcutViewAccessible.h"
#include "shortcut/ShortcutRecording.h"

#include <QApplication>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr std::chrono::seconds kWaitingForKeyDelay{2};

} // namespace

MASShortcutView::MASShortcutView(SettingsStore *settings, QWidget *parent)
    : QWidget(parent), m_binding(settings),
      m_shortcutValidator(&MASShortcutValidator::sharedValidator()),
      m_shortcutMonitor(MASShortcutMonitor::sharedMonitor()), m_beep(QApplication::beep)
{
    MASShortcutViewAccessible::install();
    m_cell.setFont(font());
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setMouseTracking(true);
    setAttribute(Qt::WA_Hover);
    m_waitingTimer.setSingleShot(true);
    m_waitingTimer.setInterval(kWaitingForKeyDelay);
    m_waitingTimer.callOnTimeout(this, [this] { setWaitingForKey(true); });
    connect(&m_binding, &ShortcutValueBinding::delivered, this,
            [this](const std::optional<MASShortcut> &value) {
                if (value != m_shortcutValue)
                    setShortcutValue(value);
            });
    connect(&KeyNames::current(), &KeyNames::changed, this, &MASShortcutView::refresh);
}

MASShortcutView::~MASShortcutView()
{
    m_shortcutValueChange = nullptr;
    setRecording(false);
}

void MASShortcutView::setAssociatedUserDefaultsKey(const std::optional<QString> &key)
{
    setAssociatedUserDefaultsKey(key, NSKeyedUnarchiveFromDataTransformerName);
}

void MASShortcutView::setAssociatedUserDefaultsKey(const std::optional<QString> &key,
                                                   const ValueTransformer *transformer)
{
    m_binding.bind(key, {transformer, std::nullopt});
}

void MASShortcutView::setAssociatedUserDefaultsKey(const std::optional<QString> &key,
                                                   const QString &transformerName)
{
    m_binding.bind(key, {nullptr, transformerName});
}

void MASShortcutView::setShortcutValue(const std::optional<MASShortcut> &shortcut)
{
    m_shortcutValue = shortcut;
    resetToolTips();
    refresh();
    m_binding.propagateValue(shortcut);
    if (m_shortcutValueChange)
        m_shortcutValueChange(*this);
}

void MASShortcutView::setShortcutMonitor(MASShortcutMonitor *monitor)
{
    m_shortcutMonitor = monitor;
}

void MASShortcutView::setBeep(std::function<void()> beep)
{
    m_beep = std::move(beep);
}

void MASShortcutView::setRecording(bool isRecording)
{
    ShortcutRecording &recording = ShortcutRecording::shared();
    if (isRecording) {
        recording.setRecorder(*this);
        if (!isEnabled())
            return;
    }
    if (isRecording == m_isRecording)
        return;
    m_isRecording = isRecording;
    setShortcutPlaceholder({});
    setWaitingForKey(false);
    setInvalid(false);
    resetToolTips();
    if (isRecording) {
        m_shortcutValidator->prepare();
        recording.start(m_shortcutMonitor);
    } else {
        recording.stop();
    }
    refresh();
    Q_EMIT isRecordingChanged(isRecording);
}

bool MASShortcutView::handleKeyEvent(const QKeyEvent &event)
{
    const MASShortcut shortcut = MASShortcut::shortcutWithEvent(event);
    const bool isBare = shortcut.modifierFlags() == 0;
    const quint64 key = shortcut.keyCode();
    if (isBare && (key == VirtualKey::kDelete || key == VirtualKey::kForwardDelete)) {
        setShortcutValue(std::nullopt);
        setRecording(false);
        return true;
    }
    if (isBare && key == VirtualKey::kEscape) {
        setRecording(false);
        return true;
    }
    if (MASShortcutValidator::closesOrQuits(shortcut)) {
        setRecording(false);
        return false;
    }
    if (!shortcut.keyCodeString().isEmpty()) {
        tryShortcut(shortcut);
        return true;
    }
    setShortcutPlaceholder(shortcut.modifierFlagsString());
    // Not stopped when the modifiers are let go: whoever sees nothing happen lets go and looks.
    if (!isBare && !m_isWaitingForKey && !m_waitingTimer.isActive())
        m_waitingTimer.start();
    return true;
}

void MASShortcutView::tryShortcut(const MASShortcut &shortcut)
{
    setWaitingForKey(false);
    setInvalid(!m_shortcutValidator->isShortcutValid(shortcut));
    QString explanation;
    if (m_isInvalid) {
        m_beep();
    } else if (m_shortcutValidator->isShortcutAlreadyTaken(
                   shortcut, m_binding.key().value_or(QString()), &explanation)) {
        showTakenAlert(shortcut, explanation);
    } else {
        setShortcutValue(shortcut);
        setRecording(false);
    }
}

void MASShortcutView::showTakenAlert(const MASShortcut &shortcut, const QString &explanation)
{
    ShortcutRecording::shared().pause();
    auto *alert = new QMessageBox(
        QMessageBox::Critical, tr("Shortcut"),
        tr("The key combination %1 cannot be used").arg(shortcut.description()), {}, this);
    alert->setInformativeText(explanation);
    alert->setTextFormat(Qt::PlainText);
    alert->setDefaultButton(alert->addButton(tr("OK"), QMessageBox::AcceptRole));
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setWindowModality(Qt::ApplicationModal);
    connect(alert, &QDialog::finished, this, [this] {
        setShortcutPlaceholder({});
        if (m_isRecording)
            ShortcutRecording::shared().resume();
    });
    alert->show();
}

void MASShortcutView::setWaitingForKey(bool isWaitingForKey)
{
    m_waitingTimer.stop();
    if (isWaitingForKey == m_isWaitingForKey)
        return;
    m_isWaitingForKey = isWaitingForKey;
    Q_EMIT isWaitingForKeyChanged(isWaitingForKey);
}

void MASShortcutView::setInvalid(bool isInvalid)
{
    if (isInvalid == m_isInvalid)
        return;
    m_isInvalid = isInvalid;
    Q_EMIT isInvalidChanged(isInvalid);
}

QString MASShortcutView::title() const
{
    if (!m_isRecording)
        return m_shortcutValue ? m_shortcutValue->description() : tr("Record Shortcut");
    if (m_isHinting)
        return m_shortcutValue ? tr("Use Old Shortcut") : tr("Cancel");
    if (!m_shortcutPlaceholder.isEmpty())
        return m_shortcutPlaceholder;
    return m_shortcutValue ? tr("Type New Shortcut") : tr("Type Shortcut");
}

MASShortcutView::Glyph MASShortcutView::buttonGlyph() const
{
    if (m_isRecording)
        return Glyph::Escape;
    return m_shortcutValue ? Glyph::Delete : Glyph::None;
}

QRect MASShortcutView::hintRect() const
{
    const int buttonWidth = qMin(m_cell.buttonWidth(), width());
    return {width() - buttonWidth, 0, buttonWidth, height()};
}

QString MASShortcutView::toolTipAt(const QPoint &position) const
{
    if (!m_shortcutValue || m_isRecording || !isEnabled() || !rect().contains(position))
        return {};
    return hintRect().contains(position) ? tr("Delete shortcut")
                                         : tr("Click to record new shortcut");
}

void MASShortcutView::resetToolTips()
{
    if (underMouse())
        QToolTip::hideText();
}

void MASShortcutView::setStyle(Style style)
{
    if (style == m_cell.style())
        return;
    m_cell.setStyle(style);
    updateGeometry();
    update();
}

void MASShortcutView::setHinting(bool isHinting)
{
    if (isHinting == m_isHinting)
        return;
    m_isHinting = isHinting;
    refresh();
}

void MASShortcutView::setShortcutPlaceholder(const QString &placeholder)
{
    m_shortcutPlaceholder = placeholder;
    refresh();
}

void MASShortcutView::refresh()
{
    update();
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent change(this, title());
        QAccessible::updateAccessibility(&change);
        QAccessibleEvent description(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&description);
    }
}

QSize MASShortcutView::sizeHint() const
{
    // As wide as its longest prompt, so that it does not change its size while it is used.
    constexpr int kTitleMargin = 13;
    constexpr int kVerticalMargin = 5;
    const QFontMetrics metrics(m_cell.font());
    int titleWidth = metrics.horizontalAdvance(tr("Record Shortcut"));
    for (const QString &prompt :
         {tr("Use Old Shortcut"), tr("Cancel"), tr("Type New Shortcut"), tr("Type Shortcut")}) {
        titleWidth = qMax(titleWidth, metrics.horizontalAdvance(prompt) + m_cell.buttonWidth());
    }
    return {titleWidth + 2 * kTitleMargin, metrics.height() + 2 * kVerticalMargin};
}

bool MASShortcutView::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto &help = static_cast<const QHelpEvent &>(*event);
    const QRect part = hintRect().contains(help.pos()) ? hintRect() : shortcutRect();
    QToolTip::showText(help.globalPos(), toolTipAt(help.pos()), this, part);
    return true;
}

void MASShortcutView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        m_cell.setFont(font());
        updateGeometry();
    }
    if (event->type() == QEvent::EnabledChange) {
        setHinting(false);
        resetToolTips();
        setRecording(false);
    }
}

void MASShortcutView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    setRecording(false);
}

void MASShortcutView::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    setHinting(false);
}

void MASShortcutView::mouseMoveEvent(QMouseEvent *event)
{
    setHinting(hintRect().contains(event->pos()));
}

void MASShortcutView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    const bool isOnButton = hintRect().contains(event->pos());
    if (m_isRecording) {
        if (isOnButton)
            setRecording(false);
    } else if (m_shortcutValue && isOnButton) {
        setShortcutValue(std::nullopt);
    } else {
        setRecording(true);
    }
}

void MASShortcutView::keyPressEvent(QKeyEvent *event)
{
    // A focused button is pressed with these on Linux.
    const bool isStart = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                         event->key() == Qt::Key_Enter;
    const bool isBare = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!isStart || !isBare || m_isRecording) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (!event->isAutoRepeat())
        setRecording(true);
}

void MASShortcutView::paintEvent(QPaintEvent *)
{
    MASShortcutCell::State state;
    state.title = title();
    state.glyph = buttonGlyph();
    state.bounds = rect();
    state.glyphRect = hintRect();
    state.titleRect = state.glyph == Glyph::None ? rect() : shortcutRect();
    state.palette = palette();
    state.isPressed = m_isRecording;
    state.isEnabled = isEnabled();
    state.isUnderMouse = underMouse();
    state.isHinting = m_isHinting;
    state.hasFocusRing = hasFocus();
    state.isPrompt = m_isRecording ? m_isHinting || m_shortcutPlaceholder.isEmpty()
                                   : !m_shortcutValue.has_value();
    QPainter painter(this);
    m_cell.draw(painter, state);
}
