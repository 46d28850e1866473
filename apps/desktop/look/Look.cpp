// SPDX-License-Identifier: MIT
#include <desktop/look/Look.h>

#include <array>

namespace {

/// The few shades that all roles of a palette are made of.
struct Shades
{
    QColor window;
    QColor card;
    QColor field;
    QColor button;
    QColor text;
    QColor dim;
    QColor accent;
    QColor accentText;
};

Shades ShadesOf(eLook pLook)
{
    switch (pLook) {
    case eLightLook:
        return {0xeceef1, 0xffffff, 0xffffff, 0xf4f5f7, 0x1b1f24, 0x6b737d, 0x1769c4, 0xffffff};
    case eDarkLook:
        return {0x15181d, 0x1e2228, 0x15181d, 0x2b3038, 0xe7eaee, 0x8b949e, 0x4493f8, 0xffffff};
    case eContrastLook:
        return {0x010101, 0x010101, 0x010101, 0x202020, 0xffffff, 0xd0d0d0, 0xffe600, 0x010101};
    case eGrayLook:
    case eLookCount:
        break;
    }
    return {0x191919, 0x232323, 0x191919, 0x303030, 0xd2d2d2, 0x868686, 0xbebebe, 0x101010};
}

void setDisabled(QPalette& pPalette, const Shades& pShades)
{
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        pPalette.setColor(QPalette::Disabled, role, pShades.dim);
    pPalette.setColor(QPalette::Disabled, QPalette::Highlight, pShades.button);
}

LookColors MakeColors(eLook pLook)
{
    switch (pLook) {
    case eLightLook:
        return {0x1fa54a,
                0xd98a00,
                0x1769c4,
                0x1fa54a,
                0x4a86c8,
                0x1b3f66,
                QColor(23, 105, 196, 34),
                0xc62828,
                0xdfe3e8,
                0xb3261e};
    case eDarkLook:
        return {0x3fd46b,
                0xf0a830,
                0x58a6ff,
                0x3fd46b,
                0x3b82d6,
                0xa9cdf5,
                QColor(88, 166, 255, 40),
                0xff6b61,
                0x2a2f37,
                0xffb3ad};
    case eContrastLook:
        return {0x00e676,
                0xffb000,
                0x40c4ff,
                0xffffff,
                0x40c4ff,
                0xffffff,
                QColor(255, 255, 255, 60),
                0xffb000,
                0x3a3a3a,
                0xffe600};
    case eGrayLook:
    case eLookCount:
        break;
    }
    return {0xe8e8e8,
            0x9a9a9a,
            0xd0d0d0,
            0xb4b4b4,
            0x606060,
            0xf4f4f4,
            QColor(255, 255, 255, 22),
            0xd9a45f,
            0x303030,
            0xe8c08a};
}

}  // namespace

eLook chooseLook(bool pIsContrast, bool pIsGray, const QPalette& pDesktop)
{
    if (pIsContrast)
        return eContrastLook;
    if (pIsGray)
        return eGrayLook;
    const bool isDark = pDesktop.color(QPalette::Window).lightness() <
                        pDesktop.color(QPalette::WindowText).lightness();
    return isDark ? eDarkLook : eLightLook;
}

QPalette makePalette(eLook pLook)
{
    const Shades shades = ShadesOf(pLook);
    QPalette palette(shades.button, shades.window);
    palette.setColor(QPalette::WindowText, shades.text);
    palette.setColor(QPalette::Text, shades.text);
    palette.setColor(QPalette::ButtonText, shades.text);
    palette.setColor(QPalette::PlaceholderText, shades.dim);
    palette.setColor(QPalette::Base, shades.field);
    palette.setColor(QPalette::AlternateBase, shades.card);
    palette.setColor(QPalette::ToolTipBase, shades.card);
    palette.setColor(QPalette::ToolTipText, shades.text);
    palette.setColor(QPalette::Highlight, shades.accent);
    palette.setColor(QPalette::HighlightedText, shades.accentText);
    palette.setColor(QPalette::Link, shades.accent);
    setDisabled(palette, shades);
    return palette;
}

const LookColors& getColors(eLook pLook)
{
    static const std::array<LookColors, eLookCount> all = {MakeColors(eLightLook),
                                                           MakeColors(eDarkLook),
                                                           MakeColors(eGrayLook),
                                                           MakeColors(eContrastLook)};
    return all[std::size_t(pLook)];
}
