// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

enum eLook
{
    eLightLook,
    eDarkLook,
    eGrayLook,      ///< dark and without colours, for a dim room
    eContrastLook,  ///< for eyes that need more than a usual difference
    eLookCount
};

/// The colours that a palette has no role for.
struct LookColors
{
    QColor beat;
    QColor virtualBeat;
    QColor pulse;
    QColor average;  ///< volume
    QColor spectrum;
    QColor peak;       ///< held maximum
    QColor band;       ///< of the profile, translucent
    QColor threshold;  ///< mark
    QColor trough;     ///< behind meters and unlit LEDs
    QColor warning;    ///< text
};

/// pIsContrast before pIsGray, else as light or dark as pDesktop, the palette of the desktop.
eLook chooseLook(bool pIsContrast, bool pIsGray, const QPalette& pDesktop);
QPalette makePalette(eLook pLook);
/// [valid for ever]
const LookColors& getColors(eLook pLook);
