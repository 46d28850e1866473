// SPDX-License-Identifier: MIT
#include <desktop/live/StripCanvas.h>
#include <desktop/live/detail/Decibels.h>
#include <desktop/session/ClockOfDay.h>

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kTempi[] = {60, 90, 120, 160};  // BPM
constexpr int kTicks = 3;                     // on the axis of time
constexpr int kReach = 6;                     // pixels by which the mouse may miss
constexpr int kNotch = 120;                   // eighths of a degree

}  // namespace

StripCanvas::StripCanvas(QWidget* pParent) : QWidget(pParent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    setFont(small);
    setMinimumHeight(9 * fontMetrics().height());
}

QSize StripCanvas::sizeHint() const
{
    const int height = fontMetrics().height();
    return {40 * height, 10 * height};
}

void StripCanvas::setColors(const LookColors& pColors)
{
    m_colors = pColors;
    _Reset();
}

void StripCanvas::setSpan(int pSeconds)
{
    m_span = pSeconds;
    _Reset();
}

void StripCanvas::Show(const StripData& pData)
{
    m_pData = &pData;
    if (!getPicture().isEmpty() && m_image.Follow(pData) > 0)
        update(getPicture());
}

void StripCanvas::Redraw()
{
    _Reset();
}

void StripCanvas::Retranslate()
{
    setAccessibleName(tr("The last two minutes"));
    update();
}

void StripCanvas::_Reset()
{
    const QRect picture = getPicture();
    if (picture.isEmpty())
        return;
    const QSize size = picture.size() * devicePixelRatioF();
    m_image.Reset(size, std::max<std::int64_t>(std::int64_t(m_span) * 1000000 / size.width(), 1));
    m_image.setColors(m_colors, palette().color(QPalette::AlternateBase));
    if (m_pData)
        m_image.Follow(*m_pData);
    update();
}

QRect StripCanvas::getPicture() const
{
    const int left = fontMetrics().horizontalAdvance(QStringLiteral("000 "));
    return rect().adjusted(left, 0, 0, -fontMetrics().height());
}

void StripCanvas::paintEvent(QPaintEvent* pEvent)
{
    QPainter painter(this);
    const QRect picture = getPicture();
    if (!picture.contains(pEvent->rect())) {
        painter.fillRect(rect(), palette().color(QPalette::AlternateBase));
        _PaintScales(painter);
    }
    m_image.Paint(painter, picture);
}

void StripCanvas::_PaintScales(QPainter& pPainter) const
{
    const QRect picture = getPicture();
    const int high = fontMetrics().height();
    pPainter.setPen(palette().color(QPalette::WindowText));
    const double top = picture.top() + StripImage::kTempo * picture.height();
    for (const int bpm : kTempi) {
        const double place = StripImage::getPlace(m_pData ? *m_pData : StripData(), bpm);
        const int y = int(top + place * (1.0 - StripImage::kTempo) * picture.height());
        pPainter.drawText(QRect(0, y - high / 2, picture.left() - high / 4, high),
                          Qt::AlignRight | Qt::AlignVCenter,
                          QString::number(bpm));
    }
    for (int i = 0; i <= kTicks; ++i) {
        const int x = picture.left() + picture.width() * i / kTicks;
        const int seconds = m_span - m_span * i / kTicks;
        const auto align = i == 0 ? Qt::AlignLeft : i == kTicks ? Qt::AlignRight : Qt::AlignHCenter;
        const QRect place(x - (i == 0        ? 0
                               : i == kTicks ? 200
                                             : 100),
                          picture.bottom() + 1,
                          200,
                          high);
        pPainter.drawText(place,
                          int(align) | Qt::AlignVCenter,
                          seconds > 0 ? tr("%1 s ago").arg(seconds) : tr("now"));
    }
}

QString StripCanvas::Describe(const QPoint& pPlace) const
{
    const QRect picture = getPicture();
    if (!m_pData || !picture.contains(pPlace))
        return {};
    const double ratio = devicePixelRatioF();
    const auto timeOf = [&](int pX) { return m_image.getTime(int((pX - picture.left()) * ratio)); };
    const std::int64_t time = timeOf(pPlace.x());
    QString text = desktop::describeClock(time);
    for (const StripData::Saying& saying : m_pData->getSayings())
        if (std::abs(saying.time - time) <= timeOf(kReach) - timeOf(0))
            text +=
                QStringLiteral("\n%1  %2").arg(desktop::describeClock(saying.time), saying.text);
    const StripData::Column* pColumn = m_pData->getColumn(time / StripData::kColumn);
    if (!pColumn)
        return {};
    if (pColumn->level >= 0)
        text += QLatin1Char('\n') +
                tr("Level %1 dB").arg(desktop::ToDecibels(pColumn->level), 0, 'f', 0);
    if (pColumn->bpm > 0.0F)
        text += QLatin1Char('\n') + tr("%1 BPM").arg(double(pColumn->bpm), 0, 'f', 1);
    if (!pColumn->isPlaying)
        text += QLatin1Char('\n') + tr("No music");
    return text;
}

bool StripCanvas::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip)
        return QWidget::event(pEvent);
    const auto* pHelp = static_cast<QHelpEvent*>(pEvent);
    QToolTip::showText(pHelp->globalPos(), Describe(pHelp->pos()), this);
    return true;
}

void StripCanvas::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::PaletteChange || pEvent->type() == QEvent::FontChange)
        _Reset();
    QWidget::changeEvent(pEvent);
}

void StripCanvas::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    _Reset();
}

void StripCanvas::wheelEvent(QWheelEvent* pEvent)
{
    m_wheel += pEvent->angleDelta().y();
    const int steps = m_wheel / kNotch;
    m_wheel -= steps * kNotch;
    if (steps != 0)
        Q_EMIT OnTurned(steps);
    pEvent->accept();
}

#include "moc_StripCanvas.cpp"
