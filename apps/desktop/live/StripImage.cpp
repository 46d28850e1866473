// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include <desktop/live/StripImage.h>
#include <desktop/live/detail/Decibels.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

/// The first of the entries that is not before an instant; they are in order of time.
template <typename Entries>
auto Begin(const Entries& pEntries, std::int64_t pTime)
{
    return std::lower_bound(
        pEntries.begin(),
        pEntries.end(),
        pTime,
        [](const auto& pEntry, std::int64_t pLimit) { return pEntry.time < pLimit; });
}

QColor Heat(const QColor& pOne, const QColor& pOther, double pShare)
{
    const auto mix = [pShare](int pFrom, int pTo) {
        return int(std::lround(pFrom + (pTo - pFrom) * pShare));
    };
    return {mix(pOne.red(), pOther.red()),
            mix(pOne.green(), pOther.green()),
            mix(pOne.blue(), pOther.blue())};
}

}  // namespace

/// What one column of pixels shows.
struct StripImage::Moment
{
    int level = -1;
    bool isPlaying = false;
    const StripData::Column* pLast = nullptr;  ///< the newest column of the data; null = none
    const StripData::Beat* pBeat = nullptr;    ///< null = none
    bool isSaying = false;
};

void StripImage::Reset(const QSize& pSize, std::int64_t pPixelUs)
{
    m_image = QImage(pSize, QImage::Format_RGB32);
    m_image.fill(m_ground);
    m_pixel = pPixelUs;
    m_end = 0;
}

void StripImage::setColors(const LookColors& pColors, const QColor& pGround)
{
    m_colors = pColors;
    m_ground = pGround;
    for (std::size_t i = 0; i < m_heat.size(); ++i)
        m_heat[i] = Heat(pGround, pColors.spectrum, std::sqrt(double(i) / 255.0)).rgb();
    m_image.fill(pGround);
    m_end = 0;
}

int StripImage::Follow(const StripData& pData)
{
    const std::int64_t end = pData.getEnd() * StripData::kColumn / m_pixel;
    const std::int64_t first = std::max(m_end, end - m_image.width());
    for (std::int64_t pixel = first; pixel < end; ++pixel)
        _Draw(pData, pixel);
    m_end = end;
    return int(std::max<std::int64_t>(end - first, 0));
}

void StripImage::Paint(QPainter& pPainter, const QRect& pTarget) const
{
    if (m_image.isNull())
        return;
    const int width = m_image.width();
    const int split = int(m_end % width);
    const double scale = double(pTarget.width()) / width;
    const QRectF target(pTarget);
    const auto part = [&](int pFrom, int pCount, double pTo) {
        pPainter.drawImage(
            QRectF(target.left() + pTo * scale, target.top(), pCount * scale, target.height()),
            m_image,
            QRectF(pFrom, 0, pCount, m_image.height()));
    };
    part(split, width - split, 0);
    if (split > 0)
        part(0, split, width - split);
}

QImage StripImage::Take() const
{
    QImage picture(m_image.size(), QImage::Format_RGB32);
    QPainter painter(&picture);
    Paint(painter, picture.rect());
    return picture;
}

double StripImage::getPlace(const StripData& pData, double pBPM)
{
    const std::vector<double>& tempi = pData.getTempi();
    const double fastest = tempi.empty() ? MeterTracker::kFastestBPM : tempi.front();
    const double slowest = tempi.empty() ? MeterTracker::kSlowestBPM : tempi.back();
    const double cells = std::max(double(tempi.size()), 2.0);
    return (0.5 + (cells - 1.0) * std::log(fastest / pBPM) / std::log(fastest / slowest)) / cells;
}

StripImage::Moment StripImage::_Look(const StripData& pData, std::int64_t pPixel) const
{
    const std::int64_t start = pPixel * m_pixel;
    const std::int64_t end = start + m_pixel;
    Moment moment;
    for (std::int64_t number = start / StripData::kColumn; number * StripData::kColumn < end;
         ++number) {
        const StripData::Column* pColumn = pData.getColumn(number);
        if (!pColumn)
            continue;
        moment.level = std::max(moment.level, pColumn->level);
        moment.isPlaying |= pColumn->isPlaying;
        moment.pLast = pColumn;
    }
    // What is broad reaches into the pixels behind.
    const auto beat = Begin(pData.getBeats(), start - m_pixel);
    for (auto i = beat; i != pData.getBeats().end() && i->time < end; ++i)
        if (i->time >= start || i->isOne)
            moment.pBeat = &*i;
    const auto saying = Begin(pData.getSayings(), start - 2 * m_pixel);
    moment.isSaying = saying != pData.getSayings().end() && saying->time < end;
    return moment;
}

void StripImage::_Draw(const StripData& pData, std::int64_t pPixel)
{
    const Moment moment = _Look(pData, pPixel);
    const int x = int(pPixel % m_image.width());
    _Fill(x, 0.0, 1.0, m_ground.rgb());
    if (moment.isSaying)
        _Fill(x, 0.0, kBeats * 0.8, m_colors.threshold.rgb());
    if (moment.pBeat) {
        const double middle = 0.5 * (kBeats + kLevel);
        const bool isForeseen = moment.pBeat->kind == eForeseenBeat;
        const bool isByHand = moment.pBeat->kind == eHandBeat;
        const QColor& color = isForeseen ? m_colors.virtualBeat
                              : isByHand ? m_colors.pulse
                                         : m_colors.beat;
        _Fill(x, isForeseen ? middle : kBeats, (isByHand ? middle : kLevel) - 0.01, color.rgb());
    }
    if (!moment.pLast)
        return;
    if (!moment.isPlaying)
        _Fill(x, kLevel, 1.0, m_colors.trough.rgb());
    if (moment.level > 0) {
        const double share = 1.0 - desktop::ToDecibels(moment.level) / desktop::kLeastDecibels;
        _Fill(x, kTempo - (kTempo - kLevel) * 0.95 * share, kTempo - 0.01, m_colors.spectrum.rgb());
    }
    if (moment.isPlaying)
        _DrawBelief(*moment.pLast, x);
    const double place =
        moment.pLast->bpm > 0.0F ? getPlace(pData, double(moment.pLast->bpm)) : -1.0;
    if (place < 0.0 || place > 1.0)
        return;
    const double y = kTempo + place * (1.0 - kTempo);
    _Fill(x, y - 0.008, y + 0.008, m_colors.peak.rgb());
}

void StripImage::_DrawBelief(const StripData::Column& pColumn, int pX)
{
    const std::size_t count = pColumn.beliefs.size();
    const double high = (1.0 - kTempo) / double(std::max<std::size_t>(count, 1));
    for (std::size_t i = 0; i < count; ++i)
        _Fill(pX,
              kTempo + high * double(i),
              kTempo + high * double(i + 1),
              m_heat[pColumn.beliefs[i]]);
}

void StripImage::_Fill(int pX, double pTop, double pBottom, QRgb pColor)
{
    const int height = m_image.height();
    const int top = std::clamp(int(std::lround(pTop * height)), 0, height);
    const int bottom = std::clamp(int(std::lround(pBottom * height)), top, height);
    for (int y = top; y < std::max(bottom, std::min(top + 1, height)); ++y)
        reinterpret_cast<QRgb*>(m_image.scanLine(y))[pX] = pColor;
}
