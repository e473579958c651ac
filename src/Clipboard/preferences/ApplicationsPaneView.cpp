#include "Clipboard/preferences/ApplicationsPaneView.h"

#include "Clipboard/preferences/PaneParts.h"

#include <QHeaderView>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr QSize kSize(460, 320);

} // namespace

ApplicationsPaneView::ApplicationsPaneView(int rowHeight)
    : table(new QTableView), add(new QToolButton), remove(new QToolButton)
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
        button->setFixedSize(28, 24);
    }
    setUpTable(rowHeight);
    layOut();
}

void ApplicationsPaneView::setUpTable(int rowHeight)
{
    table->horizontalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setMinimumSectionSize(rowHeight);
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    table->setShowGrid(false);
    table->setIconSize({16, 16});
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void ApplicationsPaneView::layOut()
{
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(4);
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addStretch();

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(8);
    column->addWidget(new PaneNote(
        tr("What is copied while one of these applications is in front is never recorded.")));
    column->addWidget(table, 1);
    column->addLayout(buttons);
    resize(kSize);
}
