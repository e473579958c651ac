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
    m_views.searchTextField->setProperty(FieldPasteboard::kOwnUndo, wouldBringBack());
    QStringList lines{m_text, m_unfit.isEmpty() ? deletionLine() : m_unfit};
    lines.removeAll(QString());
    m_views.setFooter(lines.join(u'\n'));
}

/// What can be done about the latest deletion; empty when nothing is to be said of it.
QString HistoryFooter::deletionLine() const
{
    const DeletedClips::Latest latest = m_appDelegate.latestDeletion();
    if (latest == DeletedClips::Latest::Lost)
        return m_isLossKnown ? QString() : tr("Deleted for good · too large for Ctrl+Z");
    if (!wouldBringBack())
        return {};
    return latest == DeletedClips::Latest::InPart
               ? tr("Deleted · Ctrl+Z brings back all but the largest pictures")
               : tr("Deleted · Ctrl+Z brings it back");
}

void HistoryFooter::tellDeletion()
{
    m_isLossKnown = false;
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
    m_isLossKnown = true;
    m_unfit.clear();
    update();
}

void HistoryFooter::forgetSearch()
{
    m_heldBeforeEdit = 0;
    m_isLossKnown = false;
    m_unfit.clear();
}

bool HistoryFooter::wouldBringBack() const
{
    const int held = m_appDelegate.heldDeletions();
    return held > m_heldBeforeEdit || (held > 0 && !m_views.searchTextField->isUndoAvailable());
}
