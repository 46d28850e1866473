// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClockState.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/live/BpmPanel.h>
#include <desktop/live/detail/TempoHint.h>

#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>

#include <cmath>

namespace {

constexpr double kTempoScale = 4.2;  ///< of the window's font
constexpr double kUnitScale = 1.4;
constexpr int kConfidenceLetters = 20;
constexpr qint64 kBeatMs = 100;  ///< a tempo changes with beats

QFont Scaled(QFont pFont, double pScale, QFont::Weight pWeight)
{
    pFont.setPointSizeF(pFont.pointSizeF() * pScale);
    pFont.setWeight(pWeight);
    return pFont;
}

void setTextOf(QLabel& pLabel, const QString& pText)
{
    if (pLabel.text() != pText)
        pLabel.setText(pText);
}

}  // namespace

BpmPanel::BpmPanel(Configuration& pConfiguration, QWidget* pParent)
    : LivePanel(pParent), m_configuration(pConfiguration), m_pTempo(new QLabel(this)),
      m_pUnit(new QLabel(this)), m_pConfidenceTitle(new QLabel(this)),
      m_pConfidence(new QProgressBar(this)), m_pBarTitle(new QLabel(this)),
      m_pBar(new QLabel(this)), m_pHint(new QLabel(this))
{
    m_pTempo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_pConfidence->setRange(0, 100);
    m_pConfidence->setFormat(QStringLiteral("%p %"));
    m_pHint->setForegroundRole(QPalette::PlaceholderText);
    m_pHint->setWordWrap(true);
    m_pHint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* pLayout = new QGridLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setVerticalSpacing(2);
    pLayout->setRowStretch(0, 1);
    pLayout->addWidget(m_pTempo, 1, 0, 2, 1);
    pLayout->addWidget(m_pUnit, 2, 1, Qt::AlignLeft | Qt::AlignBottom);
    pLayout->addWidget(m_pConfidenceTitle, 1, 2, Qt::AlignBottom);
    pLayout->addWidget(m_pConfidence, 2, 2, Qt::AlignTop);
    pLayout->addWidget(m_pBarTitle, 1, 3, Qt::AlignBottom);
    pLayout->addWidget(m_pBar, 2, 3, Qt::AlignTop);
    pLayout->addWidget(m_pHint, 3, 0, 1, 5);
    pLayout->setRowStretch(4, 1);
    pLayout->setColumnStretch(4, 1);
    _SetFonts();
    Retranslate();
}

void BpmPanel::_SetFonts()
{
    m_pTempo->setFont(Scaled(font(), kTempoScale, QFont::DemiBold));
    // As large as any tempo: a change of its text does not lay out the window anew.
    const QFontMetrics metrics = m_pTempo->fontMetrics();
    m_pTempo->setFixedSize(metrics.horizontalAdvance(QStringLiteral("888.8")), metrics.height());
    m_pUnit->setFont(Scaled(font(), kUnitScale, QFont::Normal));
    // On the line on which the number stands.
    m_pUnit->setContentsMargins(0, 0, 0, metrics.descent() - m_pUnit->fontMetrics().descent());
    m_pConfidence->setMaximumWidth(kConfidenceLetters * fontMetrics().averageCharWidth());
    static_cast<QGridLayout*>(layout())->setHorizontalSpacing(fontMetrics().height() / 2);
    // Two lines always, so that a hint moves nothing.
    m_pHint->setFixedHeight(2 * m_pHint->fontMetrics().lineSpacing());
}

void BpmPanel::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::FontChange)
        _SetFonts();
    LivePanel::changeEvent(pEvent);
}

void BpmPanel::Retranslate()
{
    m_pUnit->setText(tr("BPM", "beats per minute"));
    m_pTempo->setAccessibleName(tr("Tempo in beats per minute"));
    m_pConfidenceTitle->setText(tr("Confidence"));
    m_pConfidence->setAccessibleName(tr("Confidence"));
    m_pConfidence->setToolTip(tr("How sure it is that the next beat falls with the music's."));
    m_pBarTitle->setText(tr("Bar"));
    m_pBar->setAccessibleName(tr("Beat in the bar"));
    m_pBar->setToolTip(tr("The place of the beat in its bar."));
}

void BpmPanel::setColors(const LookColors&) {}

void BpmPanel::Refresh(const LiveValues& pValues, qint64 pNow)
{
    if (pNow - m_lastFrame < kBeatMs)
        return;
    m_lastFrame = pNow;
    _ShowTempo(pValues);
    _ShowConfidence(pValues);
    _ShowBar(pValues);
    _ShowHint(pValues);
}

void BpmPanel::_ShowConfidence(const LiveValues& pValues)
{
    const bool isKnown = pValues.confidence >= 0.0;
    const int confidence = isKnown ? int(std::lround(100.0 * pValues.confidence)) : 0;
    if (m_pConfidence->value() != confidence)
        m_pConfidence->setValue(confidence);
    if (m_pConfidence->isTextVisible() != isKnown)
        m_pConfidence->setTextVisible(isKnown);
}

void BpmPanel::_ShowBar(const LiveValues& pValues)
{
    QString dots;
    for (int beat = 1; beat <= pValues.beatsPerBar; ++beat)
        dots += beat == pValues.beatInBar ? QStringLiteral("● ") : QStringLiteral("○ ");
    setTextOf(*m_pBar, dots.trimmed());
}

void BpmPanel::_ShowTempo(const LiveValues& pValues)
{
    const bool isKnown = pValues.bpm > 0.0;
    setTextOf(*m_pTempo,
              isKnown ? QLocale().toString(pValues.shownBPM, 'f', 1) : QStringLiteral("–"));
    const auto role = isKnown && !pValues.isHeld ? QPalette::WindowText : QPalette::PlaceholderText;
    if (m_pTempo->foregroundRole() != role)
        m_pTempo->setForegroundRole(role);
}

void BpmPanel::_ShowHint(const LiveValues& pValues)
{
    if (!m_help.isEmpty())
        return setTextOf(*m_pHint, m_help);
    const QString range = pValues.isAutomatic ? QString() : _DescribeRange(pValues.measuredBPM);
    setTextOf(*m_pHint, range.isEmpty() ? _DescribeState(pValues) : range);
}

QString BpmPanel::_DescribeState(const LiveValues& pValues) const
{
    if (pValues.charge == BeatClockCharge_Held)
        return tr("Held by hand.");
    if (pValues.charge == BeatClockCharge_Hand)
        return tr("Led by hand.");
    if (!pValues.isAnalyzing)
        return tr("Waiting for sound.");
    if (!pValues.isPlaying && !m_isStoppedShown)
        return {};
    if (!pValues.isPlaying)
        return pValues.bpm > 0.0 ? tr("Stopped; this was the tempo.") : tr("Stopped: no music.");
    if (pValues.isHeld)
        return tr("Held: not measured now.");
    return pValues.bpm > 0.0 ? QString() : tr("Measuring…");
}

QString BpmPanel::_DescribeRange(double pMeasured) const
{
    const Profile profile = m_configuration.getSelectedProfile();
    const desktop::TempoHint hint =
        desktop::FindTempoHint(pMeasured, profile.getMinimalBPM(), profile.getMaximalBPM());
    if (hint.kind == desktop::eNoHint)
        return {};
    const QString measured = tr("Measured %1 BPM, out of the range of “%2”")
                                 .arg(QLocale().toString(pMeasured, 'f', 1), profile.getName());
    const QString other = QLocale().toString(hint.bpm, 'f', 1);
    if (hint.kind == desktop::eHalfHint)
        return tr("%1; half of it: %2.").arg(measured, other);
    if (hint.kind == desktop::eDoubleHint)
        return tr("%1; the double: %2.").arg(measured, other);
    return measured + QLatin1Char('.');
}

#include "moc_BpmPanel.cpp"
