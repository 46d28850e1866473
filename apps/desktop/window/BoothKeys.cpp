// SPDX-License-Identifier: MIT
#include <desktop/window/BoothKeys.h>

const std::array<BoothKeys::Key, eBoothActionCount>& BoothKeys::getTable()
{
    static constexpr std::array<Key, eBoothActionCount> kTable = {{
        {"T", "T", QT_TR_NOOP("&Tap the tempo"), false},
        {"Space", "Space", QT_TR_NOOP("This beat is the &one"), false},
        {"Y", "Y", QT_TR_NOOP("Round the tempo to &whole BPM"), false},
        {"H", "H", QT_TR_NOOP("&Hold the tempo, or release it"), false},
        {"Left", "←", QT_TR_NOOP("Beats 10 ms &earlier"), true},
        {"Right", "→", QT_TR_NOOP("Beats 10 ms &later"), true},
        {"Up", "↑", QT_TR_NOOP("&Double the tempo"), false},
        {"Down", "↓", QT_TR_NOOP("Hal&f the tempo"), false},
        {"R", "R", QT_TR_NOOP("&Search anew"), false},
        {"0", "0", QT_TR_NOOP("&Automatic tracking"), false},
        {"1", "1 – 9", QT_TR_NOOP("The profile of that place in the &list"), false},
        {"O", "O", QT_TR_NOOP("O&utputs on or off"), false},
        {"M", "M", QT_TR_NOOP("&Mute the file that is played, or not"), false},
        {"P", "P", QT_TR_NOOP("Pause the last two minutes, or &go on"), false},
        {"+", "+", QT_TR_NOOP("Sho&w less time of them"), true},
        {"-", "−", QT_TR_NOOP("Show mo&re time of them"), true},
        {"F11", "F11", QT_TR_NOOP("Stage &view, on the next screen, and back"), false},
        {"?", "?", QT_TR_NOOP("Show the &keys"), false},
    }};
    return kTable;
}
