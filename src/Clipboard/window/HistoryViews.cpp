#include "Clipboard/window/HistoryViews.h"

#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/ClipboardView.h"
#include "Clipboard/window/EmptyStateView.h"
#include "Clipboard/window/NoticeLine.h"
#include "Clipboard/window/PreviewPane.h"
#include "Clipboard/window/SearchField.h"
#include "looks/ClipColors.h"
#include "looks/Looks.h"
#include "looks/PaneParts.h"
#include "looks/ScrollBars.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace {

constexpr int kListWidth = 320;
constexpr int kListPadding = 6; ///< Points above and below the list.
constexpr int kFooterPadding = 8;

} // namespace

HistoryViews::HistoryViews(Clock &clock, FileQuestions &questions)
    : mainView(std::make_unique<ClipboardView>()), searchTextField(new SearchField(mainView.get())),
      noticeLine(new NoticeLine(mainView.get())),
      splitView(new QSplitter(Qt::Horizontal, mainView.get())), tableViewView(new QWidget),
      clipTableView(new ClipTableView(questions, tableViewView)),
      textFieldView(new PreviewPane(clock)), footer(makeWrappedLabel({}, mainView.get())),
      footerRow(new QWidget(mainView.get())), footerButton(new QPushButton(footerRow)),
      emptyStateView(new EmptyStateView(mainView.get()))
{
    auto *listColumn = new QVBoxLayout(tableViewView);
    listColumn->setContentsMargins(0, kListPadding, 0, kListPadding);
    listColumn->addWidget(clipTableView);

    splitView->setHandleWidth(kDividerWidth);
    splitView->setChildrenCollapsible(false);
    splitView->addWidget(tableViewView);
    splitView->addWidget(textFieldView);
    splitView->setStretchFactor(1, 1);
    splitView->setSizes({kListWidth, 10 * kListWidth});

    // The hairline around the window lies in the margin.
    auto *column = new QVBoxLayout(mainView.get());
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    column->addWidget(searchTextField);
    column->addWidget(noticeLine);
    column->addWidget(splitView, 1);
    column->addWidget(footer);
    column->addWidget(footerRow);
    auto *row = new QHBoxLayout(footerRow);
    row->setContentsMargins(Looks::kTextMargin, 0, Looks::kTextMargin, kFooterPadding);
    row->addWidget(footerButton, 0, Qt::AlignLeft);
    QWidget::setTabOrder(searchTextField, clipTableView);

    footer->setObjectName(QStringLiteral("footer"));
    footer->hide();
    footerRow->hide();
    footerButton->setObjectName(QStringLiteral("footerButton"));
    // The keyboard stays with the search; Tab leads here.
    footerButton->setFocusPolicy(Qt::TabFocus);
    QObject::connect(mainView.get(), &ClipboardView::resized, emptyStateView,
                     [this] { placeEmptyState(); });
}

HistoryViews::~HistoryViews() = default;

void HistoryViews::setNotice(const QString &text)
{
    noticeLine->setText(text);
    placeEmptyState();
}

void HistoryViews::placeEmptyState()
{
    const int notice = noticeLine->isHidden() ? 0 : noticeLine->height();
    const int foot = footer->isHidden() ? 0 : footer->heightForWidth(mainView->width() - 2);
    const int row = footerRow->isHidden() ? 0 : footerRow->sizeHint().height();
    emptyStateView->setGeometry(
        mainView->rect().adjusted(1, 1 + searchTextField->height() + notice, -1, -1 - foot - row));
}

void HistoryViews::setColors(const ClipColors &colors)
{
    mainView->setColors(colors);
    searchTextField->setColors(colors);
    noticeLine->setColors(colors);
    placeEmptyState();
    clipTableView->setColors(colors);
    ScrollBars::makeSlim(*clipTableView, colors);
    splitView->setStyleSheet(
        QStringLiteral("QSplitter::handle { background: %1; }").arg(colors.separator.name()));
    textFieldView->setColors(colors);
    footer->setStyleSheet(
        QStringLiteral("QLabel { color: %1; border-top: 1px solid %2; padding: %3px %4px; }")
            .arg(colors.text.name(), colors.separator.name())
            .arg(kFooterPadding)
            .arg(Looks::kTextMargin));
    emptyStateView->setColors(colors);
}

void HistoryViews::setFooter(const QString &text)
{
    if (footer->text() == text)
        return;
    footer->setText(text);
    footer->setVisible(!text.isEmpty());
    placeEmptyState();
    if (!text.isEmpty()) {
        // The keyboard is in the search field, so nobody would come across the footer.
        QAccessibleEvent alert(footer, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void HistoryViews::setFooterButton(const QString &title)
{
    footerButton->setText(title);
    footerRow->setVisible(!title.isEmpty());
    placeEmptyState();
}
