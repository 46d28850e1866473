// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClockState.h>

#include <desktop/stage/StageView.h>

#include <QLocale>
#include <QPaintEvent>
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
    m_letters.clear();
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
    const Picture before = m_picture;
    m_picture = picture;
    _Repaint(before);
}

/// All of it on a flash, else what is another.
void StageView::_Repaint(const Picture& pBefore)
{
    const Picture& now = m_picture;
    if (now.flash != pBefore.flash || now.beats != pBefore.beats)
        return update();
    const Places places = _Place();
    if (now.tempo != pBefore.tempo || now.isDim != pBefore.isDim)
        update(places.tempo.toAlignedRect());
    if (now.beat != pBefore.beat)
        update(places.bar.toAlignedRect());
    update(places.confidence.toAlignedRect());
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
    // On and off: each is a whole window to be painted.
    if (pNow - m_beatTime >= kFadeMs)
        picture.flash = eNoFlash;
    return picture;
}

QColor StageView::getGround() const
{
    return MixStage(m_pColors->beat,
                    std::min(StrengthOf(m_picture.flash), GreatestShare(m_pColors->beat)));
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

StageView::Places StageView::_Place() const
{
    const double margin = 0.035 * std::min(width(), height());
    const QRectF inner = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
    const double top = 0.13 * inner.height();
    const double bottom = 0.16 * inner.height();
    return {{inner.left(), inner.top(), inner.width() / 2.0, top},
            {inner.center().x(), inner.top(), inner.width() / 2.0, top},
            inner.adjusted(0.0, top + margin, 0.0, -bottom - margin),
            {inner.left(), inner.bottom() - bottom, inner.width(), bottom}};
}

void StageView::resizeEvent(QResizeEvent* pEvent)
{
    m_letters.clear();
    LivePanel::resizeEvent(pEvent);
}

void StageView::paintEvent(QPaintEvent* pEvent)
{
    const QRect area = pEvent->rect();
    QPainter painter(this);
    painter.fillRect(area, getGround());
    painter.setRenderHint(QPainter::Antialiasing);
    const Places places = _Place();
    const auto isIn = [&area](const QRectF& pPlace) { return pPlace.intersects(area); };
    if (isIn(places.confidence))
        _DrawConfidence(painter, places.confidence);
    if (isIn(places.lamps))
        _DrawLamps(painter, places.lamps);
    if (isIn(places.tempo))
        _DrawTempo(painter, places.tempo);
    if (isIn(places.bar))
        _DrawBar(painter, places.bar);
}

/// Letters as high as those of a sample that fills the place. Making them costs far more than
/// filling them.
const QPainterPath& StageView::_Letters(const QString& pText,
                                        const QString& pSample,
                                        const QRectF& pPlace,
                                        Qt::Alignment pAlignment,
                                        QFont::Weight pWeight)
{
    constexpr std::size_t kMost = 100;
    const QString key = QStringLiteral("%1|%2|%3|%4")
                            .arg(pText)
                            .arg(pPlace.x())
                            .arg(pPlace.y())
                            .arg(pPlace.width());
    const auto found = m_letters.find(key);
    if (found != m_letters.end())
        return found->second;
    if (m_letters.size() >= kMost)
        m_letters.clear();
    QFont large = font();
    large.setWeight(pWeight);
    large = FitFont(large, pSample, pPlace.size());
    QPainterPath letters;
    letters.addText(0.0, 0.0, large, pText);
    // By their steps: digits stay where they are when another one comes.
    const QFontMetricsF metrics(large);
    const double free = pPlace.width() - metrics.horizontalAdvance(pText);
    const double left = pAlignment & Qt::AlignLeft    ? 0.0
                        : pAlignment & Qt::AlignRight ? free
                                                      : free / 2.0;
    letters.translate(pPlace.left() + left, pPlace.center().y() + metrics.capHeight() / 2.0);
    return m_letters[key] = letters;
}

void StageView::_DrawTempo(QPainter& pPainter, const QRectF& pPlace)
{
    // As large as any tempo, so that it does not breathe.
    const QString sample = QStringLiteral("888.8");
    pPainter.fillPath(_Letters(m_picture.tempo, sample, pPlace, Qt::AlignHCenter, QFont::Bold),
                      m_picture.isDim ? kStageDim : kStageText);
}

void StageView::_DrawBar(QPainter& pPainter, const QRectF& pPlace)
{
    const double gap = pPlace.height() / 5.0;
    const double width = (pPlace.width() + gap) / m_picture.beats - gap;
    pPainter.setPen(Qt::NoPen);
    for (int beat = 1; beat <= m_picture.beats; ++beat) {
        const QRectF field(
            pPlace.left() + (beat - 1) * (width + gap), pPlace.top(), width, pPlace.height());
        const bool isLit = beat == m_picture.beat;
        pPainter.setBrush(!isLit ? kStageUnlit : beat == 1 ? kStageText : m_pColors->beat);
        pPainter.drawRoundedRect(field, gap / 2.0, gap / 2.0);
        const double high = field.height() * 0.28;
        pPainter.fillPath(_Letters(QString::number(beat),
                                   QStringLiteral("8"),
                                   field.adjusted(0.0, high, 0.0, -high),
                                   Qt::AlignHCenter),
                          isLit ? kStageDark : kStageDim);
    }
}

void StageView::_DrawConfidence(QPainter& pPainter, const QRectF& pPlace)
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
    const QRectF words = pPlace.adjusted(side * 1.25, side * 0.29, 0.0, -side * 0.29);
    pPainter.fillPath(_Letters(_DescribeCharge(), QStringLiteral("X"), words, Qt::AlignLeft),
                      kStageText);
}

/// One below the other, at the right edge; a second column to the left, and so on.
void StageView::_DrawLamps(QPainter& pPainter, const QRectF& pPlace)
{
    constexpr int kRows = 2;
    const double row = pPlace.height() / kRows;
    const int count = int(m_lamps.size());
    const double column = pPlace.width() / std::max(1, (count + kRows - 1) / kRows);
    for (int i = 0; i < count; ++i) {
        const QRectF line(
            pPlace.right() - (i / kRows + 1) * column, pPlace.top() + i % kRows * row, column, row);
        const double inset = row * 0.15;
        const QRectF lamp =
            QRectF(line.right() - row, line.top(), row, row).adjusted(inset, inset, -inset, -inset);
        _DrawLamp(pPainter, m_lamps[std::size_t(i)].state, lamp);
        const QRectF words = line.adjusted(0.0, 2.0 * inset, -1.2 * row, -2.0 * inset);
        const QFontMetrics metrics(FitFont(font(), QStringLiteral("X"), words.size()));
        const QString name =
            metrics.elidedText(m_lamps[std::size_t(i)].name, Qt::ElideMiddle, int(words.width()));
        pPainter.fillPath(_Letters(name, QStringLiteral("X"), words, Qt::AlignRight), kStageText);
    }
}

void StageView::_DrawLamp(QPainter& pPainter, StageLamp::eState pState, const QRectF& pPlace) const
{
    const bool isTrouble = pState == StageLamp::eTrouble;
    const QColor color = isTrouble ? m_pColors->virtualBeat : m_pColors->beat;
    pPainter.setPen(QPen(color, pPlace.height() / 6.0));
    pPainter.setBrush(pState == StageLamp::eWorking ? QBrush(color) : QBrush(Qt::NoBrush));
    if (!isTrouble)
        return pPainter.drawEllipse(pPlace);
    pPainter.drawLine(pPlace.topLeft(), pPlace.bottomRight());
    pPainter.drawLine(pPlace.topRight(), pPlace.bottomLeft());
}

#include "moc_StageView.cpp"
