// SPDX-License-Identifier: MIT
#include <desktop/look/Style.h>

#include <QApplication>
#include <QStyleFactory>

void style::Prepare()
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // Frames are whole points wide; between two whole factors only the letters grow.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
}

void style::Apply()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}
