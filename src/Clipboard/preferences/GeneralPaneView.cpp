#include "Clipboard/preferences/GeneralPaneView.h"

#include "Clipboard/preferences/HistorySizeSlider.h"
#include "Clipboard/preferences/PaneParts.h"
#include "shortcut/MASShortcutView.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr int kWidth = 560;
constexpr int kMargin = 24;
constexpr int kRowSpacing = 8;
constexpr int kSectionSpacing = 14;

/// Fills the grid from top to bottom: what a row is about on the left, its control on the right.
class Rows
{
public:
    explicit Rows(QWidget &pane) : m_grid(new QGridLayout(&pane))
    {
        m_grid->setContentsMargins(kMargin, kMargin - 4, kMargin, kMargin);
        m_grid->setHorizontalSpacing(10);
        m_grid->setVerticalSpacing(kRowSpacing);
        m_grid->setColumnStretch(1, 1);
        m_grid->setSizeConstraint(QLayout::SetMinimumSize);
    }

    void add(const QString &subject, QWidget *control, Qt::Alignment alignment = Qt::AlignVCenter)
    {
        auto *label = new QLabel(subject);
        label->setBuddy(control);
        m_grid->addWidget(label, m_row, 0, alignment | Qt::AlignRight);
        m_grid->addWidget(control, m_row++, 1, Qt::AlignLeft | Qt::AlignVCenter);
    }

    void add(const QString &subject, QWidget *control, const QList<QWidget *> &besides,
             Qt::Alignment alignment = Qt::AlignVCenter)
    {
        auto *label = new QLabel(subject);
        label->setBuddy(control);
        m_grid->addWidget(label, m_row, 0, alignment | Qt::AlignRight);
        auto *line = new QHBoxLayout;
        line->setSpacing(8);
        line->addWidget(control, 0, alignment);
        for (QWidget *beside : besides)
            line->addWidget(beside, 0, alignment);
        line->addStretch();
        m_grid->addLayout(line, m_row++, 1);
    }

    void addNote(PaneNote *note) { m_grid->addWidget(note, m_row++, 1); }

    void addSeparator()
    {
        m_grid->setRowMinimumHeight(m_row, kSectionSpacing);
        m_grid->addWidget(new PaneSeparator, m_row++, 0, 1, 2, Qt::AlignVCenter);
    }

private:
    QGridLayout *m_grid;
    int m_row = 0;
};

} // namespace

GeneralPaneView::GeneralPaneView(SettingsStore &settings)
    : openAtLogin(new QCheckBox(tr("Open Quillmarsh at &login"))),
      notifications(new QCheckBox(tr("Show &notifications"))), maxItems(new HistorySizeSlider),
      maxItemsLabel(new QLabel), maxItemsUnit(new QLabel(tr("clips"))), maxItemsNote(new PaneNote),
      maxStringSize(new QLineEdit), maxStringSizeReading(new PaneNote),
      openShortcut(new MASShortcutView(&settings)), swopShortcut(new MASShortcutView(&settings))
{
    openAtLogin->setAccessibleName(tr("Open at login"));
    notifications->setAccessibleName(tr("Show notifications"));
    maxItems->setAccessibleName(tr("Maximum number of items"));
    maxStringSize->setAccessibleName(tr("Maximum text size in bytes"));
    openShortcut->setAccessibleName(tr("Open history shortcut"));
    swopShortcut->setAccessibleName(tr("Swop shortcut"));
    maxItemsLabel->setObjectName(QStringLiteral("sliderLabel"));
    maxItemsNote->setObjectName(QStringLiteral("maxItemsNote"));
    maxStringSizeReading->setObjectName(QStringLiteral("maxStringSizeReading"));

    maxStringSize->setAlignment(Qt::AlignRight);
    maxStringSize->setFixedWidth(fontMetrics().averageCharWidth() * 16);
    maxItemsLabel->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("100,000")));
    maxItemsLabel->setAlignment(Qt::AlignRight);
    // The window's size is settled when the pane comes in; notes that appear later have their
    // room already.
    maxStringSizeReading->setWordWrap(false);
    maxItemsNote->setMinimumHeight(2 * maxItemsNote->fontMetrics().lineSpacing());
    maxItemsNote->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layOut();
}

void GeneralPaneView::layOut()
{
    Rows rows(*this);
    rows.add(tr("Start-up:"), openAtLogin);
    rows.add(tr("Messages:"), notifications);
    rows.addNote(new PaneNote(tr("Tell you when a copy was too large to be recorded. "
                                 "Turned off, they stay off until Quillmarsh quits.")));
    rows.addSeparator();
    rows.add(tr("&History size:"), maxItems, {maxItemsLabel, maxItemsUnit}, Qt::AlignTop);
    rows.addNote(maxItemsNote);
    rows.add(tr("Largest &text:"), maxStringSize, {new QLabel(tr("bytes")), maxStringSizeReading});
    rows.addNote(new PaneNote(tr("A longer copy is not recorded.")));
    rows.addSeparator();
    rows.add(tr("&Open history:"), openShortcut);
    rows.add(tr("S&wop:"), swopShortcut);
    rows.addNote(new PaneNote(tr("Swop pastes a clip over the selected text and keeps that "
                                 "text as the newest clip.")));
}
