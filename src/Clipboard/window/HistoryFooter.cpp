#include "Clipboard/window/HistoryFooter.h"

#include "Clipboard/window/HistoryActions.h"
#include "Clipboard/window/HistoryViews.h"
#include "Clipboard/window/SearchField.h"
#include "looks/FieldPasteboard.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>

HistoryFooter::HistoryFooter(HistoryActions &appDelegate, HistoryViews &views)
    : m_appDelegate(appDelegate), m_views(views)
{
}

void HistoryFooter::setText(const QString &text)
{
    m_text = text;
    update();
}

void HistoryFooter::update()
{
    QStringList lines{m_text, m_unfit};
    const bool bringsBack = wouldBringBack();
    m_views.searchTextField->setProperty(FieldPasteboard::kOwnUndo, bringsBack);
    if (m_unfit.isEmpty() && bringsBack)
        lines.append(tr("Deleted · Ctrl+Z brings it back"));
    lines.removeAll(QString());
    m_views.setFooter(lines.join(u'\n'));
}

void HistoryFooter::tellDeletion()
{
    m_unfit.clear();
    update();
}

void HistoryFooter::tellBroughtBack(const BroughtBack &result)
{
    m_heldBeforeEdit = std::min(m_heldBeforeEdit, m_appDelegate.heldDeletions());
    m_unfit = result.unfit > 0 ? tr("%Ln deleted clips did not fit: the history keeps %1 at most",
                                    nullptr, result.unfit)
                                     .arg(QLocale().toString(result.maxItems))
                               : QString();
    update();
}

void HistoryFooter::searchEdited()
{
    m_heldBeforeEdit = m_appDelegate.heldDeletions();
    m_unfit.clear();
    update();
}

void HistoryFooter::forgetSearch()
{
    m_heldBeforeEdit = 0;
    m_unfit.clear();
}

bool HistoryFooter::wouldBringBack() const
{
    const int held = m_appDelegate.heldDeletions();
    return held > m_heldBeforeEdit || (held > 0 && !m_views.searchTextField->isUndoAvailable());
}
