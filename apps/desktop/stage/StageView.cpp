// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClockState.h>

#include <desktop/stage/StageView.h>

#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <tuple>

using namespace desktop;

namespace {

const QColor kStageDark(0x0a0a0a);
const QColor kStageText(0xffffff);
const QColor kStageDim(0x8a8a8a);
const QColor kStageUnlit(0x262626);

QColor MixStage(const QColor& pColor, double pShare)
{
    const auto mix = [pShare](double pFrom, double pTo) { return pFrom + (pTo - pFrom) * pShare; };
    return QColor::fromRgbF(mix(kStageDark.redF(), pColor.redF()),
                            mix(kStageDark.greenF(), pColor.greenF()),
                            mix(kStageDark.blueF(), pColor.blueF()));
}

/// The greatest share of a colour before which white letters can still be read.
double GreatestShare(const QColor& pColor)
{
    constexpr double kGamma = 2.2;
    constexpr double kBrightest = 0.27;  ///< of white, linear
    const auto linear = [](double pShare) { return std::pow(pShare, kGamma); };
    const double light = 0.2126 * linear(pColor.redF()) + 0.7152 * linear(pColor.greenF()) +
                         0.0722 * linear(pColor.blueF());
    return std::pow(kBrightest / std::max(light, kBrightest), 1.0 / kGamma);
}

double StrengthOf(eFlash pFlash)
{
    switch (pFlash) {
    case eOneFlash:
        return 0.72;
    case eBeatFlash:
        return 0.38;
    case eSoftFlash:
        return 0.13;
    case eNoFlash:
        break;
    }
    return 0.0;
}

/// The largest font with which pText fits into a place.
QFont FitFont(QFont pFont, const QString& pText, const QSizeF& pPlace)
{
    constexpr int kTrial = 200;
    pFont.setPixelSize(kTrial);
    const QFontMetrics metrics(pFont);
    const double scale = std::min(pPlace.width() / metrics.horizontalAdvance(pText),
                                  pPlace.height() / metrics.tightBoundingRect(pText).height());
    pFont.setPixelSize(std::max(1, int(kTrial * scale)));
    return pFont;
}

}  // namespace

bool StageView::Picture::operator==(const Picture& pOther) const
{
    const auto all = [](const Picture& pPicture) {
        return std::tie(pPicture.tempo,
                        pPicture.isDim,
                        pPicture.beat,
                        pPicture.beats,
                        pPicture.confidence,
                        pPicture.charge,
                        pPicture.light,
                        pPicture.flash);
    };
    return all(*this) == all(pOther);
}

StageView::StageView(QWidget* pParent)
    : LivePanel(pParent, Qt::Window), m_pColors(&::getColors(eDarkLook))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::BlankCursor);
    Retranslate();
}

void StageView::setColors(const LookColors& pColors)
{
    m_pColors = &pColors;
    update();
}

void StageView::setLamps(const std::vector<StageLamp>& pLamps)
{
    if (pLamps == m_lamps)
        return;
    m_lamps = pLamps;
    update();
}

void StageView::setFlash(bool pIsSoft, bool pIsLimited)
{
    m_plan.isSoft = pIsSoft;
    m_plan.isLimited = pIsLimited;
}

void StageView::Retranslate()
{
    setWindowTitle(tr("Stage view"));
    setAccessibleName(tr("Stage view"));
    update();
}

void StageView::mouseDoubleClickEvent(QMouseEvent*)
{
    Q_EMIT OnLeft();
}

// ---- What is to be seen -------------------------------------------------------------------------

void StageView::Refresh(const LiveValues& pValues, qint64 pNow)
{
    const Picture picture = _Compose(pValues, pNow);
    if (picture == m_picture)
        return;
    m_picture = picture;
    update();
}

StageView::Picture StageView::_Compose(const LiveValues& pValues, qint64 pNow)
{
    Picture picture;
    const bool isKnown = pValues.bpm > 0.0;
    picture.tempo = isKnown ? QLocale().toString(pValues.shownBPM, 'f', 1) : QStringLiteral("–");
    picture.isDim = !isKnown || pValues.isHeld;
    picture.beat = pValues.beatInBar;
    picture.beats = pValues.beatsPerBar;
    // Steps that can be told from each other: a ring that trembles is painted for nothing.
    constexpr int kStep = 5;
    if (pValues.confidence >= 0.0)
        picture.confidence = kStep * int(std::lround(100.0 * pValues.confidence / kStep));
    picture.charge = pValues.charge;
    picture.flash = m_picture.flash;
    if (pValues.beatTime != m_beatTime && pValues.beatTime != LiveValues::kNever)
        picture.flash = m_plan.Choose(pValues.beatTime, pValues.beatInBar, pValues.bpm);
    m_beatTime = pValues.beatTime;
    const qint64 elapsed = pNow - m_beatTime;
    picture.light = elapsed < 0 || elapsed >= kFadeMs ? 0 : elapsed < kFullMs ? 2 : 1;
    if (picture.light == 0)
        picture.flash = eNoFlash;
    return picture;
}

QColor StageView::getGround() const
{
    const double strength = std::min(StrengthOf(m_picture.flash), GreatestShare(m_pColors->beat));
    return MixStage(m_pColors->beat, m_picture.light == 2 ? strength : strength * 0.4);
}

QString StageView::_DescribeCharge() const
{
    if (m_picture.charge == BeatClockCharge_Held)
        return tr("Held");
    if (m_picture.charge == BeatClockCharge_Hand)
        return tr("Hand");
    return m_picture.beat > 0 ? tr("Music") : tr("No beat");
}

// ---- Painting -----------------------------------------------------------------------------------

void StageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), getGround());
    painter.setRenderHint(QPainter::Antialiasing);
    const double margin = 0.035 * std::min(width(), height());
    const QRectF inner = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
    const double top = 0.13 * inner.height();
    const double bottom = 0.16 * inner.height();
    _DrawConfidence(painter, {inner.left(), inner.top(), inner.width() / 2.0, top});
    _DrawLamps(painter, {inner.center().x(), inner.top(), inner.width() / 2.0, top});
    _DrawTempo(painter, inner.adjusted(0.0, top + margin, 0.0, -bottom - margin));
    _DrawBar(painter, {inner.left(), inner.bottom() - bottom, inner.width(), bottom});
}

void StageView::_DrawTempo(QPainter& pPainter, const QRectF& pPlace) const
{
    QFont bold = font();
    bold.setWeight(QFont::Bold);
    // As large as any tempo, so that it does not breathe.
    pPainter.setFont(FitFont(bold, QStringLiteral("888.8"), pPlace.size()));
    pPainter.setPen(m_picture.isDim ? kStageDim : kStageText);
    pPainter.drawText(pPlace, Qt::AlignCenter | Qt::TextDontClip, m_picture.tempo);
}

void StageView::_DrawBar(QPainter& pPainter, const QRectF& pPlace) const
{
    const double gap = pPlace.height() / 5.0;
    const double width = (pPlace.width() + gap) / m_picture.beats - gap;
    for (int beat = 1; beat <= m_picture.beats; ++beat) {
        const QRectF field(
            pPlace.left() + (beat - 1) * (width + gap), pPlace.top(), width, pPlace.height());
        const bool isLit = beat == m_picture.beat;
        pPainter.setPen(Qt::NoPen);
        pPainter.setBrush(!isLit ? kStageUnlit : beat == 1 ? kStageText : m_pColors->beat);
        pPainter.drawRoundedRect(field, gap / 2.0, gap / 2.0);
        pPainter.setFont(FitFont(font(), QStringLiteral("8"), field.size() * 0.45));
        pPainter.setPen(isLit ? kStageDark : kStageDim);
        pPainter.drawText(field, Qt::AlignCenter, QString::number(beat));
    }
}

void StageView::_DrawConfidence(QPainter& pPainter, const QRectF& pPlace) const
{
    constexpr int kCircle = 360 * 16;
    const double side = pPlace.height();
    const double pen = side / 8.0;
    const QRectF ring = QRectF(pPlace.left(), pPlace.top(), side, side)
                            .adjusted(pen / 2.0, pen / 2.0, -pen / 2.0, -pen / 2.0);
    pPainter.setBrush(Qt::NoBrush);
    pPainter.setPen(QPen(kStageUnlit, pen));
    pPainter.drawEllipse(ring);
    if (m_picture.confidence > 0) {
        pPainter.setPen(QPen(kStageText, pen, Qt::SolidLine, Qt::FlatCap));
        pPainter.drawArc(ring, kCircle / 4, -kCircle * m_picture.confidence / 100);
    }
    const QRectF words = pPlace.adjusted(side * 1.25, 0.0, 0.0, 0.0);
    pPainter.setFont(FitFont(font(), QStringLiteral("X"), {words.width(), side * 0.42}));
    pPainter.setPen(kStageText);
    pPainter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter, _DescribeCharge());
}

/// One below the other, at the right edge.
void StageView::_DrawLamps(QPainter& pPainter, const QRectF& pPlace) const
{
    constexpr int kRows = 3;
    const double row = pPlace.height() / kRows;
    pPainter.setFont(FitFont(font(), QStringLiteral("X"), {pPlace.width(), row * 0.5}));
    const int count = int(m_lamps.size());
    for (int i = 0; i < count; ++i) {
        // A second column to the left, and so on.
        const double right = pPlace.right() - i / kRows * pPlace.width() / 2.0;
        const QRectF lamp = QRectF(right - row, pPlace.top() + i % kRows * row, row, row)
                                .adjusted(row * 0.15, row * 0.15, -row * 0.15, -row * 0.15);
        const StageLamp& shown = m_lamps[std::size_t(i)];
        const QColor color =
            shown.state == StageLamp::eTrouble ? m_pColors->virtualBeat : m_pColors->beat;
        pPainter.setPen(QPen(color, row / 9.0));
        pPainter.setBrush(shown.state == StageLamp::eWorking ? QBrush(color) : QBrush(Qt::NoBrush));
        if (shown.state == StageLamp::eTrouble) {
            pPainter.drawLine(lamp.topLeft(), lamp.bottomRight());
            pPainter.drawLine(lamp.topRight(), lamp.bottomLeft());
        } else {
            pPainter.drawEllipse(lamp);
        }
        const QRectF words(
            right - pPlace.width(), lamp.top(), pPlace.width() - row * 1.3, lamp.height());
        const QString name = pPainter.fontMetrics().elidedText(
            shown.name, Qt::ElideMiddle, int(count > kRows ? words.width() / 2.5 : words.width()));
        pPainter.setPen(kStageText);
        pPainter.drawText(words, Qt::AlignRight | Qt::AlignVCenter, name);
    }
}

#include "moc_StageView.cpp"
