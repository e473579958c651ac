#include "looks/ScrollBars.h"

#include "looks/ClipColors.h"

#include <QAbstractScrollArea>
#include <QScrollBar>

void ScrollBars::makeSlim(QAbstractScrollArea &area, const ClipColors &colors)
{
    makeSlim(*area.verticalScrollBar(), colors);
}

void ScrollBars::makeSlim(QScrollBar &bar, const ClipColors &colors)
{
    const QString handle = colors.isDark ? QStringLiteral("rgba(255, 255, 255, %1)")
                                         : QStringLiteral("rgba(0, 0, 0, %1)");
    bar.setStyleSheet(
        QStringLiteral("QScrollBar:vertical { background: transparent; width: 10px; margin: 0; }"
                       "QScrollBar::handle:vertical { background: %1; border-radius: 3px;"
                       " margin: 2px 2px 2px 2px; min-height: 28px; }"
                       "QScrollBar::handle:vertical:hover { background: %2; }"
                       "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
                       "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }")
            .arg(handle.arg(45), handle.arg(90)));
}
