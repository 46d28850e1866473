// SPDX-License-Identifier: MIT
#include <desktop/live/Led.h>
#include <desktop/live/LedPanel.h>
#include <desktop/live/detail/Flash.h>

#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

LedPanel::LedPanel(eKind pKind, QWidget* pParent)
    : LivePanel(pParent), m_kind(pKind), m_pLed(new Led(this)), m_pTitle(new QLabel(this)),
      m_pType(new QLabel(this))
{
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    // Its captions stay near the lamp, however high the panel is.
    pLayout->addStretch();
    pLayout->addWidget(m_pLed);
    pLayout->addWidget(m_pTitle, 0, Qt::AlignHCenter);
    pLayout->addWidget(m_pType, 0, Qt::AlignHCenter);
    pLayout->addStretch();
    m_pType->setForegroundRole(QPalette::PlaceholderText);
    Retranslate();
}

void LedPanel::Refresh(const LiveValues& pValues, qint64 pNow)
{
    const bool isBeat = m_kind == eBeats;
    const qint64 time = isBeat ? pValues.beatTime : pValues.pulseTime;
    const bool isVirtual = isBeat ? pValues.isBeatVirtual : pValues.isPulseVirtual;
    m_pLed->setLight(desktop::FlashStep(pNow - time, kFadeMs), isVirtual);
    const bool hasFlashed = time != LiveValues::kNever;
    if (hasFlashed == m_hasFlashed && isVirtual == m_isVirtual)
        return;
    m_hasFlashed = hasFlashed;
    m_isVirtual = isVirtual;
    _Describe();
}

void LedPanel::setColors(const LookColors& pColors)
{
    m_pLed->setColors(
        m_kind == eBeats ? pColors.beat : pColors.pulse, pColors.virtualBeat, pColors.trough);
}

void LedPanel::Retranslate()
{
    const bool isBeat = m_kind == eBeats;
    m_pTitle->setText(isBeat ? tr("Beat") : tr("Pulse"));
    m_pLed->setAccessibleName(isBeat ? tr("Beat lamp") : tr("Pulse lamp"));
    setToolTip(isBeat ? tr("Flashes when a beat falls due. A ring only: the beat was not heard but "
                           "predicted.")
                      : tr("Flashes when a pulse is heard. A ring only: a beat was missing and is "
                           "assumed."));
    _SetWidth();
    _Describe();
}

/// Nothing moves when its type is another one.
void LedPanel::_SetWidth()
{
    const QFontMetrics metrics = fontMetrics();
    m_pType->setAlignment(Qt::AlignHCenter);
    m_pType->setFixedWidth(
        std::max(metrics.horizontalAdvance(tr("virtual")), metrics.horizontalAdvance(tr("real"))) +
        2);
}

void LedPanel::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::FontChange)
        _SetWidth();
    LivePanel::changeEvent(pEvent);
}

void LedPanel::_Describe()
{
    if (!m_hasFlashed)
        m_pType->setText(QStringLiteral("–"));
    else
        m_pType->setText(m_isVirtual ? tr("virtual") : tr("real"));
}

#include "moc_LedPanel.cpp"
