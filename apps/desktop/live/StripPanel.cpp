// SPDX-License-Identifier: MIT
#include <desktop/live/StripCanvas.h>
#include <desktop/live/StripPanel.h>
#include <desktop/session/ClockOfDay.h>
#include <desktop/session/StripLog.h>

#include <QHBoxLayout>
#include <QStringList>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace {

constexpr std::array<int, 4> kSpans = {120, 60, 30, 15};  // seconds
constexpr std::size_t kTold = 5;                          // of the newest sayings

}  // namespace

StripPanel::StripPanel(StripLog& pLog, QWidget* pParent)
    : LivePanel(pParent), m_log(pLog), m_pCanvas(new StripCanvas(this)), m_pPause(_MakeButton()),
      m_pNearer(_MakeButton()), m_pFarther(_MakeButton())
{
    m_pPause->setCheckable(true);
    m_pNearer->setText(QStringLiteral("+"));
    m_pFarther->setText(QStringLiteral("−"));
    auto* pButtons = new QVBoxLayout;
    for (QToolButton* pButton : {m_pPause, m_pNearer, m_pFarther})
        pButtons->addWidget(pButton);
    pButtons->addStretch(1);
    auto* pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pCanvas, 1);
    pLayout->addLayout(pButtons);
    connect(m_pPause, &QToolButton::toggled, this, &StripPanel::setPaused);
    connect(
        m_pNearer, &QToolButton::clicked, this, [this] { Zoom(1); });
    connect(m_pFarther, &QToolButton::clicked, this, [this] { Zoom(-1); });
    connect(m_pCanvas, &StripCanvas::OnTurned, this, &StripPanel::Zoom);
    Zoom(0);
    Retranslate();
}

StripPanel::~StripPanel() = default;

QToolButton* StripPanel::_MakeButton()
{
    auto* pButton = new QToolButton(this);
    pButton->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return pButton;
}

void StripPanel::Retranslate()
{
    m_pPause->setText(tr("Pause"));
    m_pPause->setToolTip(tr("Holds the picture still (P)"));
    m_pNearer->setAccessibleName(tr("Nearer"));
    m_pNearer->setToolTip(tr("Shows less time (+, or the mouse wheel)"));
    m_pFarther->setAccessibleName(tr("Farther"));
    m_pFarther->setToolTip(tr("Shows more time (−, or the mouse wheel)"));
    m_pCanvas->Retranslate();
}

const StripData& StripPanel::getData() const
{
    return m_frozen ? *m_frozen : m_log.getData();
}

void StripPanel::Refresh(const LiveValues&, qint64)
{
    m_log.Advance();
    m_pCanvas->Show(getData());
    if (getData().getSaid() != m_said)
        _TellSayings();
}

void StripPanel::setColors(const LookColors& pColors)
{
    m_pCanvas->setColors(pColors);
}

void StripPanel::setPaused(bool pIsPaused)
{
    if (pIsPaused == isPaused())
        return;
    m_frozen = pIsPaused ? std::make_unique<StripData>(m_log.getData()) : nullptr;
    m_pPause->setChecked(pIsPaused);
    m_pCanvas->Show(getData());
    m_pCanvas->Redraw();
    Q_EMIT OnPaused(pIsPaused);
}

void StripPanel::Zoom(int pSteps)
{
    m_zoom = std::clamp(m_zoom + pSteps, 0, int(kSpans.size()) - 1);
    m_pNearer->setEnabled(m_zoom + 1 < int(kSpans.size()));
    m_pFarther->setEnabled(m_zoom > 0);
    m_pCanvas->setSpan(getSeconds());
}

int StripPanel::getSeconds() const
{
    return kSpans[std::size_t(m_zoom)];
}

/// For those who do not see the ticks.
void StripPanel::_TellSayings()
{
    m_said = getData().getSaid();
    const auto& sayings = getData().getSayings();
    QStringList lines;
    for (std::size_t i = sayings.size() - std::min(sayings.size(), kTold); i < sayings.size(); ++i)
        lines.append(
            QStringLiteral("%1  %2").arg(desktop::describeClock(sayings[i].time), sayings[i].text));
    m_pCanvas->setAccessibleDescription(lines.join(QLatin1Char('\n')));
}

#include "moc_StripPanel.cpp"
