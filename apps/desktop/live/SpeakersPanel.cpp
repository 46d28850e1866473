// SPDX-License-Identifier: MIT
#include <desktop/live/SpeakersPanel.h>
#include <desktop/live/detail/Flash.h>

#include <QPainter>

#include <algorithm>

namespace {

constexpr int kSpeakers = 2;
constexpr double kAspect = 0.62;  ///< width over height of a box
constexpr double kGap = 0.18;     ///< between the boxes, in box widths

}  // namespace

SpeakersPanel::SpeakersPanel(QWidget* pParent) : LivePanel(pParent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    Retranslate();
}

void SpeakersPanel::Refresh(const LiveValues& pValues, qint64 pNow)
{
    if (pNow - m_lastFrame < kFrameMs)
        return;
    m_lastFrame = pNow;
    const int step = desktop::FlashStep(pNow - pValues.beatTime, kFadeMs);
    if (step == m_step)
        return;
    m_step = step;
    update();
}

void SpeakersPanel::setColors(const LookColors& pColors)
{
    m_body = pColors.trough;
    m_lit = pColors.beat;
    m_frames.Clear();
    update();
}

void SpeakersPanel::Retranslate()
{
    setAccessibleName(tr("Speakers that pump with the beat"));
}

QSize SpeakersPanel::minimumSizeHint() const
{
    const int height = 4 * fontMetrics().height();
    return {int(height * kAspect * (kSpeakers + kGap)), height};
}

QSize SpeakersPanel::sizeHint() const
{
    return minimumSizeHint() * 5 / 4;
}

QRectF SpeakersPanel::_Box(int pIndex) const
{
    const double boxes = kSpeakers + kGap;
    const double boxWidth = std::min(width() / boxes, height() * kAspect);
    const double boxHeight = boxWidth / kAspect;
    const double left = (width() - boxWidth * boxes) / 2.0 + pIndex * boxWidth * (1.0 + kGap);
    return QRectF(left, (height() - boxHeight) / 2.0, boxWidth, boxHeight)
        .adjusted(1.0, 1.0, -1.0, -1.0);
}

void SpeakersPanel::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::PaletteChange)
        m_frames.Clear();
    LivePanel::changeEvent(pEvent);
}

void SpeakersPanel::paintEvent(QPaintEvent*)
{
    const auto draw = [this](QPainter& pPainter) {
        for (int i = 0; i < kSpeakers; ++i)
            _DrawSpeaker(pPainter, _Box(i));
    };
    QPainter(this).drawPixmap(0, 0, m_frames.Get(m_step, *this, draw));
}

void SpeakersPanel::_DrawSpeaker(QPainter& pPainter, const QRectF& pBox) const
{
    const double push = double(m_step) / desktop::kFlashSteps;
    const double side = pBox.width();
    pPainter.setPen(QPen(m_body.lighter(140), side / 40.0));
    pPainter.setBrush(m_body);
    pPainter.drawRoundedRect(pBox, side / 12.0, side / 12.0);
    const double middle = pBox.center().x();
    _DrawMembrane(pPainter, {middle, pBox.top() + 0.24 * pBox.height()}, 0.18 * side, 0.4 * push);
    _DrawMembrane(pPainter, {middle, pBox.top() + 0.66 * pBox.height()}, 0.38 * side, push);
}

void SpeakersPanel::_DrawMembrane(QPainter& pPainter,
                                  const QPointF& pCenter,
                                  double pRadius,
                                  double pPush) const
{
    const QColor rim = palette().color(QPalette::PlaceholderText);
    pPainter.setPen(QPen(rim, pRadius / 12.0));
    pPainter.setBrush(m_body.darker(130));
    pPainter.drawEllipse(pCenter, pRadius, pRadius);
    const double cone = pRadius * (0.62 + 0.24 * pPush);
    pPainter.setPen(Qt::NoPen);
    pPainter.setBrush(m_body.lighter(150));
    pPainter.drawEllipse(pCenter, cone, cone);
    QColor dome = m_lit;
    dome.setAlphaF(0.25 + 0.75 * pPush);
    pPainter.setBrush(dome);
    pPainter.drawEllipse(pCenter, cone * 0.45, cone * 0.45);
}

#include "moc_SpeakersPanel.cpp"
