#include "Clipboard/welcome/TourGuide.h"

#include "Clipboard/welcome/TourPopover.h"
#include "Clipboard/welcome/TourViewController.h"

#include <QEvent>

namespace {

constexpr int kFirstRowsHeight = 60;

using Content = TourViewController::Content;

std::array<Content, TourGuide::kPopovers> contents()
{
    std::array<Content, TourGuide::kPopovers> contents;
    contents[0].title = TourGuide::tr("Find");
    contents[0].text = TourGuide::tr(
        "Start typing as soon as the window opens. * stands for any text, ? for one character, "
        "and file: lists copied files.");
    contents[1].title = TourGuide::tr("Choose");
    contents[1].text = TourGuide::tr(
        "Your copies, newest first. Move with the arrow keys, or press the open shortcut again to "
        "step down.");
    contents[2].title = TourGuide::tr("Look");
    contents[2].text =
        TourGuide::tr("The whole clip, or the copied file itself, before you paste it.");
    contents[3].title = TourGuide::tr("Paste");
    contents[3].keys = {
        {{TourGuide::tr("Return")}, TourGuide::tr("paste")},
        {{TourGuide::tr("Shift"), TourGuide::tr("Return")}, TourGuide::tr("UPPER CASE")},
        {{TourGuide::tr("Alt"), TourGuide::tr("Return")}, TourGuide::tr("lower case")},
        {{TourGuide::tr("Ctrl"), TourGuide::tr("Shift"), QStringLiteral("V")},
         TourGuide::tr("plain text")},
        {{TourGuide::tr("Alt"), QStringLiteral("1 … 0")}, TourGuide::tr("rows 1 to 10")},
        {{TourGuide::tr("Super"), TourGuide::tr("Backspace")}, TourGuide::tr("delete")},
        {{TourGuide::tr("Esc")}, TourGuide::tr("close")},
    };
    for (int i = 0; i < TourGuide::kPopovers; ++i) {
        Content &content = contents.at(static_cast<size_t>(i));
        content.progress = TourGuide::tr("%1 of %2").arg(i + 1).arg(TourGuide::kPopovers);
        content.next = i + 1 < TourGuide::kPopovers ? TourGuide::tr("Next") : TourGuide::tr("Done");
    }
    return contents;
}

} // namespace

void TourGuide::startTour(QWidget &searchTextField, QWidget &listView, QWidget &previewView)
{
    endTour();
    m_searchTextField = &searchTextField;
    m_listView = &listView;
    m_previewView = &previewView;
    m_window = searchTextField.window();
    m_window->installEventFilter(this);
    size_t index = 0;
    for (const Content &content : contents()) {
        auto *popover = new TourPopover(m_window, new TourViewController(content));
        connect(popover, &TourPopover::nextRequested, this, &TourGuide::nextClicked);
        connect(popover, &TourPopover::cancelled, this, &TourGuide::endTour);
        m_popovers.at(index++) = popover;
    }
    showPopover(0);
}

TourPopover *TourGuide::activePopover() const
{
    return m_activePopoverIdx < 0 ? nullptr
                                  : m_popovers.at(static_cast<size_t>(m_activePopoverIdx)).data();
}

void TourGuide::showPopover(int index)
{
    if (TourPopover *shown = activePopover())
        shown->close();
    m_activePopoverIdx = index;
    TourPopover *popover = activePopover();
    QWidget *const list = m_listView;
    // The window takes all of them along.
    if (!popover || !list)
        return;
    switch (index) {
    case 0:
        popover->showRelativeTo(m_searchTextField, {}, TourPopover::Side::Below);
        break;
    case 1:
        popover->showRelativeTo(list, {}, TourPopover::Side::Right);
        break;
    case 2:
        popover->showRelativeTo(m_previewView, {}, TourPopover::Side::Left);
        break;
    default:
        popover->showRelativeTo(list, {0, 0, list->width(), kFirstRowsHeight},
                                TourPopover::Side::Right);
    }
}

void TourGuide::nextClicked()
{
    if (m_activePopoverIdx < 0)
        return;
    if (m_activePopoverIdx + 1 < kPopovers)
        showPopover(m_activePopoverIdx + 1);
    else
        endTour();
}

void TourGuide::endTour()
{
    if (m_activePopoverIdx < 0)
        return;
    m_activePopoverIdx = -1;
    if (m_window)
        m_window->removeEventFilter(this);
    for (QPointer<TourPopover> &popover : m_popovers) {
        if (!popover)
            continue;
        popover->hide();
        // It may be one of its own keys that ends the tour.
        popover->deleteLater();
        popover = nullptr;
    }
    if (m_searchTextField)
        m_searchTextField->setFocus();
}

bool TourGuide::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::Hide)
        endTour();
    return QObject::eventFilter(watched, event);
}
