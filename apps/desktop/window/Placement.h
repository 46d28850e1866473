// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/UISettings.h>

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

/// Where a window of that size with its frame goes on a screen; nothing where the desktop decides.
/// A window larger than the screen keeps its upper left corner on it.
std::optional<QPoint>
placeWindow(eStartingPosition pPosition, const QSize& pSize, const QRect& pScreen);
