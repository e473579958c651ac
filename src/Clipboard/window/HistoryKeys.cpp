#include "Clipboard/window/HistoryKeys.h"

#include "Clipboard/window/ClipMenu.h"
#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/ViewController.h"
#include "platform/VirtualKeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr Qt::KeyboardModifiers kControlShift = Qt::ControlModifier | Qt::ShiftModifier;

Qt::KeyboardModifiers heldWith(const QKeyEvent &event)
{
    return event.modifiers() & ~Qt::KeypadModifier;
}

/// By the key's place, because a layout may have the digits behind Shift, or digits of its own.
std::optional<int> digitOf(const QKeyEvent &event)
{
    if (event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9)
        return event.key() - Qt::Key_0;
    constexpr std::array kDigits{VirtualKey::kDigit0, VirtualKey::kDigit1, VirtualKey::kDigit2,
                                 VirtualKey::kDigit3, VirtualKey::kDigit4, VirtualKey::kDigit5,
                                 VirtualKey::kDigit6, VirtualKey::kDigit7, VirtualKey::kDigit8,
                                 VirtualKey::kDigit9};
    const auto *found = std::find(kDigits.begin(), kDigits.end(), VirtualKey::ofEvent(event));
    return found == kDigits.end() ? std::nullopt
                                  : std::optional(static_cast<int>(found - kDigits.begin()));
}

/// The row that a key asks for, which may lie outside the list: Ctrl-N and Ctrl-P as in every
/// picker, Page Up and Down, Ctrl-Home and Ctrl-End, and Home and End unless they are needed to
/// edit a text.
std::optional<int> rowAfter(const QKeyEvent &event, const ViewController &controller)
{
    const SearchField *field = controller.searchTextField();
    const bool isEditing = field->hasFocus() && !field->text().isEmpty();
    const bool isControl = heldWith(event) == Qt::ControlModifier;
    const bool isJump = isControl || (heldWith(event) == Qt::NoModifier && !isEditing);
    const int row = controller.clipTableView()->selectedIdx().value_or(0);
    const int page = controller.clipTableView()->rowsPerPage();
    switch (event.key()) {
    case Qt::Key_P:
        return isControl ? std::optional(row - 1) : std::nullopt;
    case Qt::Key_N:
        return isControl ? std::optional(row + 1) : std::nullopt;
    case Qt::Key_PageUp:
        return row - page;
    case Qt::Key_PageDown:
        return row + page;
    case Qt::Key_Home:
        return isJump ? std::optional(0) : std::nullopt;
    case Qt::Key_End:
        return isJump ? std::optional(controller.numberOfRowsInTableView() - 1) : std::nullopt;
    default:
        return std::nullopt;
    }
}

bool move(ViewController &controller, const QKeyEvent &event)
{
    if (!rowAfter(event, controller))
        return false;
    controller.finishSearch();
    controller.selectRow(rowAfter(event, controller).value_or(0));
    return true;
}

bool pastePlain(ViewController &controller, const QKeyEvent &event)
{
    const bool isForPlainText = event.key() == Qt::Key_V && heldWith(event) == kControlShift;
    if (isForPlainText)
        controller.paste(QStringLiteral("plain"));
    return isForPlainText;
}

/// Pins, lists pinned clips only or takes back a deletion; not by Undo while what was done last is
/// the search field's.
bool change(ViewController &controller, const QKeyEvent &event)
{
    const Qt::KeyboardModifiers held = heldWith(event);
    if (event.key() == Qt::Key_Z && held == Qt::ControlModifier && controller.wouldBringBack()) {
        controller.bringBack();
        return true;
    }
    if (event.key() != Qt::Key_D || (held != Qt::ControlModifier && held != kControlShift))
        return false;
    // A key that is held down would go to and fro.
    if (event.isAutoRepeat())
        return true;
    if (SearchField *field = controller.searchTextField(); held == kControlShift)
        field->setPinnedOnly(!field->isPinnedOnly());
    else
        controller.togglePin();
    return true;
}

/// Pastes the clip whose place among the rows that are seen the key tells: Alt or Ctrl with 1 to 9,
/// and 0 for the tenth.
bool pick(ViewController &controller, const QKeyEvent &event)
{
    if (heldWith(event) != Qt::AltModifier && heldWith(event) != Qt::ControlModifier)
        return false;
    const std::optional<int> digit = digitOf(event);
    if (!digit)
        return false;
    controller.finishSearch();
    const std::optional<int> row = controller.clipTableView()->rowOfKeyCap(*digit);
    if (row)
        controller.paste(*row, std::nullopt);
    return row.has_value();
}

/// Opens the menu, or does at once what stands in it with the key.
bool actAsMenu(ViewController &controller, const QKeyEvent &event)
{
    if (event.key() != Qt::Key_F10 || event.modifiers() != Qt::ShiftModifier)
        return ClipMenu::actByKey(controller, event);
    controller.showMenu();
    return true;
}

} // namespace

bool HistoryKeys::act(ViewController &controller, const QKeyEvent &event)
{
    return move(controller, event) || pastePlain(controller, event) || change(controller, event) ||
           pick(controller, event) || actAsMenu(controller, event);
}
