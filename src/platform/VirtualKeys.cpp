#include "platform/VirtualKeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace {

constexpr quint32 kNativeScanCodeOffset = 8;
constexpr quint32 kEvdevHelp = 138;

constexpr std::array kRows = std::to_array<VirtualKey::Row>({
    {0, 30, "AC01"},    {1, 31, "AC02"},    {2, 32, "AC03"},    {3, 33, "AC04"},
    {4, 35, "AC06"},    {5, 34, "AC05"},    {6, 44, "AB01"},    {7, 45, "AB02"},
    {8, 46, "AB03"},    {9, 47, "AB04"},    {10, 86, "LSGT"},   {11, 48, "AB05"},
    {12, 16, "AD01"},   {13, 17, "AD02"},   {14, 18, "AD03"},   {15, 19, "AD04"},
    {16, 21, "AD06"},   {17, 20, "AD05"},   {18, 2, "AE01"},    {19, 3, "AE02"},
    {20, 4, "AE03"},    {21, 5, "AE04"},    {22, 7, "AE06"},    {23, 6, "AE05"},
    {24, 13, "AE12"},   {25, 10, "AE09"},   {26, 8, "AE07"},    {27, 12, "AE11"},
    {28, 9, "AE08"},    {29, 11, "AE10"},   {30, 27, "AD12"},   {31, 24, "AD09"},
    {32, 22, "AD07"},   {33, 26, "AD11"},   {34, 23, "AD08"},   {35, 25, "AD10"},
    {36, 28, "RTRN"},   {37, 38, "AC09"},   {38, 36, "AC07"},   {39, 40, "AC11"},
    {40, 37, "AC08"},   {41, 39, "AC10"},   {42, 43, "BKSL"},   {43, 51, "AB08"},
    {44, 53, "AB10"},   {45, 49, "AB06"},   {46, 50, "AB07"},   {47, 52, "AB09"},
    {48, 15, "TAB"},    {49, 57, "SPCE"},   {50, 41, "TLDE"},   {51, 14, "BKSP"},
    {53, 1, "ESC"},     {54, 126, "RWIN"},  {55, 125, "LWIN"},  {56, 42, "LFSH"},
    {57, 58, "CAPS"},   {58, 56, "LALT"},   {59, 29, "LCTL"},   {60, 54, "RTSH"},
    {61, 100, "RALT"},  {62, 97, "RCTL"},   {63, 464, ""},      {64, 187, "FK17"},
    {65, 83, "KPDL"},   {67, 55, "KPMU"},   {69, 78, "KPAD"},   {71, 69, "NMLK"},
    {72, 115, "VOL+"},  {73, 114, "VOL-"},  {74, 113, "MUTE"},  {75, 98, "KPDV"},
    {76, 96, "KPEN"},   {78, 74, "KPSU"},   {79, 188, "FK18"},  {80, 189, "FK19"},
    {81, 117, "KPEQ"},  {82, 82, "KP0"},    {83, 79, "KP1"},    {84, 80, "KP2"},
    {85, 81, "KP3"},    {86, 75, "KP4"},    {87, 76, "KP5"},    {88, 77, "KP6"},
    {89, 71, "KP7"},    {90, 190, "FK20"},  {91, 72, "KP8"},    {92, 73, "KP9"},
    {93, 124, "AE13"},  {94, 89, "AB11"},   {95, 121, "I129"},  {96, 63, "FK05"},
    {97, 64, "FK06"},   {98, 65, "FK07"},   {99, 61, "FK03"},   {100, 66, "FK08"},
    {101, 67, "FK09"},  {102, 123, "HJCV"}, {103, 87, "FK11"},  {104, 122, "HNGL"},
    {105, 183, "FK13"}, {106, 186, "FK16"}, {107, 184, "FK14"}, {109, 68, "FK10"},
    {110, 127, "COMP"}, {111, 88, "FK12"},  {113, 185, "FK15"}, {114, 110, "INS"},
    {115, 102, "HOME"}, {116, 104, "PGUP"}, {117, 111, "DELE"}, {118, 62, "FK04"},
    {119, 107, "END"},  {120, 60, "FK02"},  {121, 109, "PGDN"}, {122, 59, "FK01"},
    {123, 105, "LEFT"}, {124, 106, "RGHT"}, {125, 108, "DOWN"}, {126, 103, "UP"},
});

} // namespace

std::span<const VirtualKey::Row> VirtualKey::rows()
{
    return kRows;
}

std::optional<quint16> VirtualKey::toEvdev(quint64 virtualKey)
{
    const auto row = std::ranges::find(kRows, virtualKey, &Row::virtualKey);
    if (row == kRows.end())
        return std::nullopt;
    return row->evdevCode;
}

quint64 VirtualKey::fromEvdev(quint32 evdevCode)
{
    // A keyboard with a Help key of its own has it beside Insert's place, which stands for Help.
    if (evdevCode == kEvdevHelp)
        return kHelp;
    const auto row = std::ranges::find(kRows, evdevCode, &Row::evdevCode);
    return row == kRows.end() ? kNotFound : row->virtualKey;
}

quint64 VirtualKey::ofEvent(const QKeyEvent &event)
{
    const quint32 scanCode = event.nativeScanCode();
    return scanCode < kNativeScanCodeOffset ? kNotFound
                                            : fromEvdev(scanCode - kNativeScanCodeOffset);
}
