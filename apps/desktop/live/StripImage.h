// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/look/Look.h>
#include <desktop/session/StripData.h>

#include <QImage>

#include <array>

class QPainter;

/// A picture of the newest part of a StripData, into which only what is new is drawn.
///
/// Its columns of pixels are a ring: what is oldest is overwritten. From the top down it has lanes
/// of sayings, beats (heard: the whole height; foreseen: the lower half; by hand: the upper half;
/// the one is broader), level, and tempo over the belief in each tempo. What is shaded is no music.
class StripImage
{
public:
    /// Where the lanes begin, from the top; the last one ends with the picture. Shares of its
    /// height.
    static constexpr double kBeats = 0.08;
    static constexpr double kLevel = 0.24;
    static constexpr double kTempo = 0.46;

    /// Device pixels, and the µs that one column of them lasts. Nothing is drawn yet.
    void Reset(const QSize& pSize, std::int64_t pPixelUs);
    /// pGround: what it lies on. Nothing is drawn yet.
    void setColors(const LookColors& pColors, const QColor& pGround);
    /// Draws what has come since. Returns how many columns of pixels that were.
    int Follow(const StripData& pData);
    /// The newest pixels are at the right.
    void Paint(QPainter& pPainter, const QRect& pTarget) const;
    QImage Take() const;

    /// The instant of a column of pixels from the left, µs.
    std::int64_t getTime(int pX) const { return (m_end - m_image.width() + pX) * m_pixel; }
    std::int64_t getPixel() const { return m_pixel; }
    /// Share of the height of the lane of the tempo, from its top, at which a tempo lies; below 0
    /// or above 1 = outside.
    static double getPlace(const StripData& pData, double pBPM);

private:
    struct Moment;

    Moment _Look(const StripData& pData, std::int64_t pPixel) const;
    void _Draw(const StripData& pData, std::int64_t pPixel);
    void _DrawBelief(const StripData::Column& pColumn, int pX);
    void _Fill(int pX, double pTop, double pBottom, QRgb pColor);

    QImage m_image;
    std::int64_t m_pixel = StripData::kColumn;  ///< µs
    std::int64_t m_end = 0;                     ///< number behind the last pixel drawn; 0 = none
    LookColors m_colors = ::getColors(eLightLook);
    QColor m_ground = Qt::white;
    std::array<QRgb, 256> m_heat{};  ///< by the root of the belief
};
