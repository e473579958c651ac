#include "Clipboard/preferences/ApplicationsPaneView.h"

#include "looks/Looks.h"
#include "looks/PaneParts.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize kSize(480, 340);
constexpr QSize kRoomAroundText(24, 6);

QString joined(const QStringList &names)
{
    if (names.size() < 2)
        return names.join(QString());
    return ApplicationsPaneView::tr("%1 and %2")
        .arg(names.mid(0, names.size() - 1).join(QStringLiteral(", ")), names.last());
}

} // namespace

ApplicationsPaneView::ApplicationsPaneView(int rowHeight)
    : table(new QTableView), add(new QToolButton), remove(new QToolButton),
      suggest(new QPushButton), m_rowHeight(rowHeight), m_emptyState(new QWidget(table)),
      m_emptyNote(new PaneNote)
{
    table->setAccessibleName(tr("Ignored applications"));
    add->setText(QStringLiteral("+"));
    add->setAccessibleName(tr("Add application"));
    add->setToolTip(tr("Add application"));
    remove->setText(QStringLiteral("\u2212"));
    remove->setAccessibleName(tr("Remove application"));
    remove->setToolTip(tr("Remove application"));
    for (QToolButton *button : {add, remove}) {
        button->setFocusPolicy(Qt::StrongFocus);
        button->setFixedSize(30, 26);
    }
    setUpTable();
    setUpEmptyState();
    layOut();
}

void ApplicationsPaneView::showEmptyState(const QStringList &suggestions)
{
    suggest->setVisible(!suggestions.isEmpty());
    suggest->setText(suggestions.size() > 2 ? tr("Ignore %Ln password managers", nullptr,
                                                 static_cast<int>(suggestions.size()))
                                            : tr("Ignore %1").arg(joined(suggestions)));
    suggest->setMinimumSize({0, 0});
    suggest->setMinimumSize(suggest->sizeHint() + kRoomAroundText);
    m_emptyNote->setText(suggestions.isEmpty()
                             ? tr("Add an application whose copies shall stay private.")
                             : tr("What is copied from %1 is recorded like any other text. "
                                  "You may want to keep passwords out of the history.")
                                   .arg(joined(suggestions)));
    m_emptyState->show();
}

void ApplicationsPaneView::hideEmptyState()
{
    m_emptyState->hide();
}

void ApplicationsPaneView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    Q_EMIT appeared();
}

void ApplicationsPaneView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitRowsToFont();
}

void ApplicationsPaneView::fitRowsToFont()
{
    // Qt hands the font on to the table afterwards.
    const int height = std::max(m_rowHeight, fontMetrics().height());
    table->verticalHeader()->setMinimumSectionSize(height);
    table->verticalHeader()->setDefaultSectionSize(height);
}

void ApplicationsPaneView::setUpTable()
{
    table->horizontalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fitRowsToFont();
    table->setShowGrid(false);
    table->setIconSize({16, 16});
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void ApplicationsPaneView::setUpEmptyState()
{
    auto *title = new QLabel(tr("No application is ignored"));
    title->setAlignment(Qt::AlignCenter);
    m_emptyNote->setAlignment(Qt::AlignHCenter);
    auto *column = new QVBoxLayout(m_emptyState);
    column->setContentsMargins(24, 16, 24, 16);
    column->setSpacing(8);
    column->addStretch();
    column->addWidget(title);
    column->addWidget(m_emptyNote);
    column->addSpacing(6);
    column->addWidget(suggest, 0, Qt::AlignHCenter);
    column->addStretch();
    auto *fill = new QVBoxLayout(table);
    fill->setContentsMargins(0, 0, 0, 0);
    fill->addWidget(m_emptyState);
    m_emptyState->hide();
}

void ApplicationsPaneView::layOut()
{
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(4);
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addStretch();

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(Looks::kPageMargin, 20, Looks::kPageMargin, 20);
    column->setSpacing(8);
    column->addWidget(new PaneNote(
        tr("What is copied while one of these applications is in front is never recorded.")));
    column->addWidget(table, 1);
    column->addLayout(buttons);
    resize(kSize);
}
