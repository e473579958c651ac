#pragma once

#include <QtGlobal>

#include <optional>
#include <span>

class QKeyEvent;

/// Virtual key codes: a number for each key's place on the keyboard, whatever the layout prints
/// there. The numbers are those of Carbon's HIToolbox/Events.h (kVK_ANSI_A = 0, ...), because
/// stored shortcuts use them. The Linux side of a row is the key's evdev code
/// (linux/input-event-codes.h); an X11 or Wayland key code is the evdev code + 8.
namespace VirtualKey {

/// No key: NSNotFound, the largest signed 64-bit integer.
inline constexpr quint64 kNotFound = 0x7FFFFFFFFFFFFFFF;

inline constexpr quint16 kA = 0;
inline constexpr quint16 kS = 1;
inline constexpr quint16 kD = 2;
inline constexpr quint16 kF = 3;
inline constexpr quint16 kH = 4;
inline constexpr quint16 kG = 5;
inline constexpr quint16 kZ = 6;
inline constexpr quint16 kX = 7;
inline constexpr quint16 kC = 8;
inline constexpr quint16 kV = 9;
inline constexpr quint16 kISOSection = 10;
inline constexpr quint16 kB = 11;
inline constexpr quint16 kQ = 12;
inline constexpr quint16 kW = 13;
inline constexpr quint16 kE = 14;
inline constexpr quint16 kR = 15;
inline constexpr quint16 kY = 16;
inline constexpr quint16 kT = 17;
inline constexpr quint16 kDigit1 = 18;
inline constexpr quint16 kDigit2 = 19;
inline constexpr quint16 kDigit3 = 20;
inline constexpr quint16 kDigit4 = 21;
inline constexpr quint16 kDigit6 = 22;
inline constexpr quint16 kDigit5 = 23;
inline constexpr quint16 kEqual = 24;
inline constexpr quint16 kDigit9 = 25;
inline constexpr quint16 kDigit7 = 26;
inline constexpr quint16 kMinus = 27;
inline constexpr quint16 kDigit8 = 28;
inline constexpr quint16 kDigit0 = 29;
inline constexpr quint16 kRightBracket = 30;
inline constexpr quint16 kO = 31;
inline constexpr quint16 kU = 32;
inline constexpr quint16 kLeftBracket = 33;
inline constexpr quint16 kI = 34;
inline constexpr quint16 kP = 35;
inline constexpr quint16 kReturn = 36;
inline constexpr quint16 kL = 37;
inline constexpr quint16 kJ = 38;
inline constexpr quint16 kQuote = 39;
inline constexpr quint16 kK = 40;
inline constexpr quint16 kSemicolon = 41;
inline constexpr quint16 kBackslash = 42;
inline constexpr quint16 kComma = 43;
inline constexpr quint16 kSlash = 44;
inline constexpr quint16 kN = 45;
inline constexpr quint16 kM = 46;
inline constexpr quint16 kPeriod = 47;
inline constexpr quint16 kTab = 48;
inline constexpr quint16 kSpace = 49;
inline constexpr quint16 kGrave = 50;
inline constexpr quint16 kDelete = 51;
inline constexpr quint16 kEscape = 53;
inline constexpr quint16 kRightCommand = 54;
inline constexpr quint16 kCommand = 55;
inline constexpr quint16 kShift = 56;
inline constexpr quint16 kCapsLock = 57;
inline constexpr quint16 kOption = 58;
inline constexpr quint16 kControl = 59;
inline constexpr quint16 kRightShift = 60;
inline constexpr quint16 kRightOption = 61;
inline constexpr quint16 kRightControl = 62;
inline constexpr quint16 kFunction = 63;
inline constexpr quint16 kF17 = 64;
inline constexpr quint16 kKeypadDecimal = 65;
inline constexpr quint16 kKeypadMultiply = 67;
inline constexpr quint16 kKeypadPlus = 69;
inline constexpr quint16 kKeypadClear = 71;
inline constexpr quint16 kVolumeUp = 72;
inline constexpr quint16 kVolumeDown = 73;
inline constexpr quint16 kMute = 74;
inline constexpr quint16 kKeypadDivide = 75;
inline constexpr quint16 kKeypadEnter = 76;
inline constexpr quint16 kKeypadMinus = 78;
inline constexpr quint16 kF18 = 79;
inline constexpr quint16 kF19 = 80;
inline constexpr quint16 kKeypadEquals = 81;
inline constexpr quint16 kKeypad0 = 82;
inline constexpr quint16 kKeypad1 = 83;
inline constexpr quint16 kKeypad2 = 84;
inline constexpr quint16 kKeypad3 = 85;
inline constexpr quint16 kKeypad4 = 86;
inline constexpr quint16 kKeypad5 = 87;
inline constexpr quint16 kKeypad6 = 88;
inline constexpr quint16 kKeypad7 = 89;
inline constexpr quint16 kF20 = 90;
inline constexpr quint16 kKeypad8 = 91;
inline constexpr quint16 kKeypad9 = 92;
inline constexpr quint16 kJISYen = 93;
inline constexpr quint16 kJISUnderscore = 94;
inline constexpr quint16 kJISKeypadComma = 95;
inline constexpr quint16 kF5 = 96;
inline constexpr quint16 kF6 = 97;
inline constexpr quint16 kF7 = 98;
inline constexpr quint16 kF3 = 99;
inline constexpr quint16 kF8 = 100;
inline constexpr quint16 kF9 = 101;
inline constexpr quint16 kJISEisu = 102;
inline constexpr quint16 kF11 = 103;
inline constexpr quint16 kJISKana = 104;
inline constexpr quint16 kF13 = 105;
inline constexpr quint16 kF16 = 106;
inline constexpr quint16 kF14 = 107;
inline constexpr quint16 kF10 = 109;
inline constexpr quint16 kContextualMenu = 110;
inline constexpr quint16 kF12 = 111;
inline constexpr quint16 kF15 = 113;
inline constexpr quint16 kHelp = 114;
inline constexpr quint16 kHome = 115;
inline constexpr quint16 kPageUp = 116;
inline constexpr quint16 kForwardDelete = 117;
inline constexpr quint16 kF4 = 118;
inline constexpr quint16 kEnd = 119;
inline constexpr quint16 kF2 = 120;
inline constexpr quint16 kPageDown = 121;
inline constexpr quint16 kF1 = 122;
inline constexpr quint16 kLeftArrow = 123;
inline constexpr quint16 kRightArrow = 124;
inline constexpr quint16 kDownArrow = 125;
inline constexpr quint16 kUpArrow = 126;

struct Row
{
    quint16 virtualKey;
    quint16 evdevCode;   ///< 464 (fn) has no X11 key code: it can be neither grabbed nor seen.
    const char *xkbName; ///< The position's xkb name; empty when it has none.
};

/// Every key that has a virtual key code, ordered by it.
std::span<const Row> rows();

/// The evdev code of a virtual key; absent for a number that names no key.
std::optional<quint16> toEvdev(quint64 virtualKey);

/// The virtual key at an evdev code; kNotFound for a key without one (Print, Pause, ...).
quint64 fromEvdev(quint32 evdevCode);

/// The virtual key of a key event, from its native scan code; kNotFound when it has none.
quint64 ofEvent(const QKeyEvent &event);

} // namespace VirtualKey
