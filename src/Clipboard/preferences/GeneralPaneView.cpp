#include "Clipboard/preferences/GeneralPaneView.h"

#include "Clipboard/preferences/ByteCount.h"
#include "Clipboard/preferences/CapabilityTable.h"
#include "Clipboard/preferences/DesktopShortcut.h"
#include "Clipboard/preferences/HistorySizeSlider.h"
#include "Clipboard/preferences/PictureChoice.h"
#include "Clipboard/preferences/ShortcutNote.h"
#include "looks/Looks.h"
#include "looks/PaneParts.h"
#include "shortcut/MASShortcutView.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include <utility>

namespace {

constexpr int kWidth = 600;
constexpr int kMargin = Looks::kPageMargin;
constexpr int kSpacing = 3;
constexpr int kRowSpace = 8;
constexpr int kSectionSpace = 5;

/// Fills the grid from top to bottom: what a row is about on the left, its control on the right
/// with what there is to say about it below.
class Rows
{
public:
    explicit Rows(QWidget &pane) : m_grid(new QGridLayout(&pane))
    {
        m_grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin / 4);
        m_grid->setHorizontalSpacing(10);
        m_grid->setVerticalSpacing(kSpacing);
        m_grid->setColumnStretch(1, 1);
    }

    /// `lineHeight` aligns the words with a control that has more below the line.
    void add(const QString &subject, const QList<QWidget *> &controls, PaneNote *note = nullptr,
             int lineHeight = 0)
    {
        auto *label = new QLabel(subject);
        label->setBuddy(controls.first());
        const Qt::Alignment vertical = lineHeight ? Qt::AlignTop : Qt::AlignVCenter;
        auto *line = new QHBoxLayout;
        line->setSpacing(8);
        for (QWidget *control : controls) {
            if (lineHeight && qobject_cast<QLabel *>(control))
                control->setMinimumHeight(lineHeight);
            line->addWidget(control, 0, vertical);
        }
        line->addStretch();
        label->setMinimumHeight(lineHeight);
        m_grid->addWidget(label, m_row, 0, Qt::AlignRight | vertical);
        m_grid->addLayout(line, m_row++, 1);
        if (note)
            m_grid->addWidget(note, m_row++, 1);
        addSpace(kRowSpace);
    }

    void addAcross(QWidget *widget) { m_grid->addWidget(widget, m_row++, 0, 1, 2); }

    void addSeparator()
    {
        addSpace(kSectionSpace);
        m_grid->addWidget(new PaneSeparator, m_row++, 0, 1, 2);
        addSpace(kRowSpace + kSectionSpace);
    }

private:
    void addSpace(int height) { m_grid->setRowMinimumHeight(m_row++, height); }

    QGridLayout *m_grid;
    int m_row = 0;
};

} // namespace

GeneralPaneView::GeneralPaneView(SettingsStore &settings, const ConfigurationLine::Copy &copy,
                                 const PictureChoice &pictures)
    : openAtLogin(new QCheckBox(tr("Open Quillmarsh at &login"))),
      notifications(new QCheckBox(tr("Show &notifications"))), maxItems(new HistorySizeSlider),
      maxItemsLabel(new QLabel), maxStringSize(new QLineEdit),
      openShortcut(new MASShortcutView(&settings)), swopShortcut(new MASShortcutView(&settings)),
      m_openAtLoginNote(new PaneNote), m_maxItemsUnit(new QLabel(tr("clips"))),
      m_maxItemsNote(new PaneNote), m_maxStringSizeReading(new PaneNote),
      m_shortcutNote(new PaneNote),
      m_openBinding(new ConfigurationLine(tr("Open history shortcut"), copy)),
      m_swopBinding(new ConfigurationLine(tr("Swop shortcut"), copy)),
      m_capabilities(new CapabilityTable(copy))
{
    connect(m_capabilities, &CapabilityTable::askingWanted, this, &GeneralPaneView::askingWanted);
    m_openBinding->hide();
    m_swopBinding->hide();
    m_shortcutNote->setObjectName(QStringLiteral("shortcutNote"));
    openAtLogin->setAccessibleName(tr("Open at login"));
    notifications->setAccessibleName(tr("Show notifications"));
    maxItems->setAccessibleName(tr("Maximum number of items"));
    maxStringSize->setAccessibleName(tr("Maximum text size in bytes"));
    openShortcut->setAccessibleName(tr("Open history shortcut"));
    swopShortcut->setAccessibleName(tr("Swop shortcut"));
    maxItemsLabel->setObjectName(QStringLiteral("sliderLabel"));
    m_openAtLoginNote->setObjectName(QStringLiteral("openAtLoginNote"));
    m_openAtLoginNote->setFixedWidth(fontMetrics().averageCharWidth() * 34);
    m_openAtLoginNote->setFixedHeight(2 * m_openAtLoginNote->fontMetrics().lineSpacing());
    m_openAtLoginNote->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_maxItemsNote->setObjectName(QStringLiteral("maxItemsNote"));
    m_maxStringSizeReading->setObjectName(QStringLiteral("maxStringSizeReading"));

    maxStringSize->setAlignment(Qt::AlignRight);
    maxStringSize->setFixedWidth(fontMetrics().averageCharWidth() * 16);
    maxItemsLabel->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("100,000")));
    maxItemsLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_maxStringSizeReading->setWordWrap(false);
    // The window's size is settled when the pane comes in; longer words have their room already.
    for (PaneNote *note : {m_maxItemsNote, m_shortcutNote}) {
        note->setMinimumHeight(2 * note->fontMetrics().lineSpacing());
        note->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
    for (MASShortcutView *recorder : {openShortcut, swopShortcut}) {
        connect(recorder, &MASShortcutView::isWaitingForKeyChanged, this,
                &GeneralPaneView::explainShortcuts);
        connect(recorder, &MASShortcutView::isInvalidChanged, this,
                &GeneralPaneView::explainShortcuts);
    }
    explainShortcuts();
    layOut(pictures);
}

void GeneralPaneView::explainOpenAtLogin(bool isWanted, OwnEntry entry, bool wasRefused)
{
    const bool isEnabled = entry == OwnEntry::Enabled;
    QString text;
    if (isWanted && isEnabled)
        text.clear();
    else if (isWanted && wasRefused)
        text = tr("The desktop’s list of start-up programs could not be written.");
    else if (isWanted && entry == OwnEntry::Disabled)
        text = tr("Switched off in the desktop’s own list. Tick it anew to switch it on.");
    else if (isWanted)
        text = tr("Missing in the desktop’s own list. Tick it anew to put it there.");
    else if (isEnabled)
        text = tr("The desktop opens it all the same.");
    m_openAtLoginNote->setText(text);
}

void GeneralPaneView::explainMaxItems(const std::optional<qint64> &size, qint64 clips)
{
    const bool isReachable = size && *size <= HistorySizeSlider::kMaximum;
    const qint64 excess = isReachable ? clips - *size : 0;
    QString text;
    if (!size)
        text = tr("The stored size cannot be used. No clip is removed until you choose one.");
    else if (!isReachable)
        text = tr("The stored size is larger than this slider reaches. "
                  "It holds until you move the slider.");
    else if (excess == 1)
        text = tr("The oldest clip will be removed when you leave this page.");
    else if (excess > 1)
        text = tr("The %Ln oldest clips will be removed when you leave this page.", nullptr,
                  int(excess));
    else
        text = tr("When the history is full, each new copy replaces the oldest clip.");
    m_maxItemsUnit->setVisible(size.has_value());
    m_maxItemsNote->setText(text);
    m_maxItemsNote->setEmphasised(excess > 0);
}

void GeneralPaneView::explainMaxStringSize(qint64 bytes)
{
    QString reading;
    if (bytes == 0)
        reading = tr("Nothing is recorded.");
    else if (bytes >= 1000)
        reading = QStringLiteral("= ") + byteCount(bytes);
    m_maxStringSizeReading->setText(reading);
}

void GeneralPaneView::explainShortcuts()
{
    const bool isWaiting = openShortcut->isWaitingForKey() || swopShortcut->isWaitingForKey();
    const bool isInvalid = openShortcut->isInvalid() || swopShortcut->isInvalid();
    QString text = tr("Swop pastes a clip over the selected text and keeps that text as the "
                      "newest clip.");
    if (isWaiting)
        text = tr("Still waiting for a key. A combination that the desktop keeps for itself "
                  "never gets here; choose another one.");
    else if (isInvalid)
        text = tr("A shortcut needs Ctrl or Super with another key, or is a function key.");
    if (m_bindings) {
        text = m_bindings->areCommands
                   ? tr("Have the desktop’s configuration run these commands for keys of your "
                        "choice.")
                   : tr("Add these lines to the desktop’s configuration, with other keys if you "
                        "like.");
    }
    m_shortcutNote->setText(text);
    m_shortcutNote->setEmphasised(isWaiting || isInvalid);
}

void GeneralPaneView::layOut(const PictureChoice &pictures)
{
    Rows rows(*this);
    rows.add(tr("Start-up:"), {openAtLogin, m_openAtLoginNote});
    rows.add(tr("Messages:"), {notifications},
             new PaneNote(tr("Tell you when a copy was too large to be recorded. "
                             "Turned off, they stay off until Quillmarsh quits.")));
    rows.addSeparator();
    rows.add(tr("&History size:"), {maxItems, maxItemsLabel, m_maxItemsUnit}, m_maxItemsNote,
             maxItems->grooveHeight());
    rows.add(tr("Largest &text:"), {maxStringSize, new QLabel(tr("bytes")), m_maxStringSizeReading},
             new PaneNote(tr("A longer copy is not recorded.")));
    rows.add(tr("Pictures:"), {pictures.box, pictures.size, new QLabel(tr("MB at most"))},
             new PaneNote(tr("Copies of nothing but a picture, as files in the data folder.")));
    rows.addSeparator();
    auto *openNote = new ShortcutNote(*openShortcut);
    auto *swopNote = new ShortcutNote(*swopShortcut);
    m_recorders = {openShortcut, openNote, swopShortcut, swopNote};
    m_openOfDesktop = new DesktopShortcut(*openShortcut);
    m_swopOfDesktop = new DesktopShortcut(*swopShortcut);
    for (DesktopShortcut *keys : {m_openOfDesktop, m_swopOfDesktop}) {
        keys->hide();
        connect(keys, &DesktopShortcut::changeWanted, this, &GeneralPaneView::desktopKeysWanted);
    }
    rows.add(tr("&Open history:"), {openShortcut, openNote, m_openOfDesktop, m_openBinding});
    rows.add(tr("S&wop:"), {swopShortcut, swopNote, m_swopOfDesktop, m_swopBinding},
             m_shortcutNote);
    rows.addAcross(m_capabilities);
    fit();
}

void GeneralPaneView::fit()
{
    resize(kWidth, layout()->totalHeightForWidth(kWidth));
}

void GeneralPaneView::showBindings(const std::optional<Bindings> &bindings)
{
    m_bindings = bindings;
    if (bindings) {
        m_openBinding->setText(bindings->open);
        m_swopBinding->setText(bindings->swop);
    }
    showWhatChooses();
}

void GeneralPaneView::showDesktopKeys(bool isDesktopsChoice)
{
    m_isDesktopsChoice = isDesktopsChoice;
    showWhatChooses();
}

void GeneralPaneView::showWhatChooses()
{
    for (QWidget *recorder : std::as_const(m_recorders))
        recorder->setVisible(!m_bindings && !m_isDesktopsChoice);
    for (DesktopShortcut *keys : {m_openOfDesktop, m_swopOfDesktop}) {
        keys->refresh();
        keys->setVisible(m_isDesktopsChoice);
    }
    for (ConfigurationLine *line : {m_openBinding, m_swopBinding})
        line->setVisible(m_bindings.has_value());
    explainShortcuts();
    fit();
}

void GeneralPaneView::showCapabilities(const Capabilities &capabilities,
                                       const QString &configuration)
{
    m_capabilities->show(capabilities, configuration);
    fit();
}

void GeneralPaneView::offerToAsk(bool isOffered)
{
    m_capabilities->offerToAsk(isOffered);
    fit();
}
