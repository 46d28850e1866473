// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/DecimalField.h>
#include <desktop/settings/HintLabel.h>
#include <desktop/settings/ManualBeatPanel.h>
#include <shared/settings/BeatSettings.h>

#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

constexpr double kSlowestBPM = 10.0;  ///< of the clock
constexpr double kFastestBPM = 999.0;
constexpr double kOffsetStep = 5.0;  ///< ms

bool IsTempo(double pBPM)
{
    return pBPM >= kSlowestBPM && pBPM <= kFastestBPM;
}

}  // namespace

ManualBeatPanel::ManualBeatPanel(Configuration& pConfiguration, QWidget* pParent)
    : SettingsPanel(pConfiguration, pParent), m_state(), m_pTempo(new QLabel(this)),
      m_pCharge(new HintLabel(this)), m_pTap(new QPushButton(this)), m_pHalf(new QPushButton(this)),
      m_pDouble(new QPushButton(this)), m_pRound(new QPushButton(this)),
      m_pLock(new QPushButton(this)), m_pOne(new QPushButton(this)),
      m_pOffsetLabel(new QLabel(this)), m_pOffset(new DecimalField(this))
{
    _SetFields();
    _MakeLayout();
    _Connect();
    _Retranslate();
}

void ManualBeatPanel::_SetFields()
{
    m_pTempo->setObjectName(QStringLiteral("tempo"));
    m_pCharge->setObjectName(QStringLiteral("charge"));
    m_pTap->setObjectName(QStringLiteral("tap"));
    m_pHalf->setObjectName(QStringLiteral("half"));
    m_pDouble->setObjectName(QStringLiteral("double"));
    m_pRound->setObjectName(QStringLiteral("round"));
    m_pLock->setObjectName(QStringLiteral("lock"));
    m_pOne->setObjectName(QStringLiteral("one"));
    m_pOffset->setObjectName(QStringLiteral("offset"));
    QFont large = m_pTempo->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    large.setBold(true);
    m_pTempo->setFont(large);
    // Nothing moves when the tempo gets longer.
    m_pTempo->setMinimumWidth(QFontMetrics(large).horizontalAdvance(QStringLiteral("888.8 BPM ")));
    m_pTap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_pLock->setCheckable(true);
    m_pOffset->setRange(-BeatSettings::kFarthestOffset, BeatSettings::kFarthestOffset);
    m_pOffset->setSingleStep(kOffsetStep);
    m_pOffset->setDecimals(0);
}

void ManualBeatPanel::_MakeLayout()
{
    auto* pGrid = new QGridLayout(this);
    pGrid->addWidget(m_pTap, 0, 0, 2, 3);
    pGrid->addWidget(m_pTempo, 0, 3, 1, 3);
    pGrid->addWidget(m_pCharge, 1, 3, 1, 3);
    pGrid->addWidget(m_pHalf, 2, 0, 1, 2);
    pGrid->addWidget(m_pDouble, 2, 2, 1, 2);
    pGrid->addWidget(m_pRound, 2, 4, 1, 2);
    pGrid->addWidget(m_pOne, 3, 0, 1, 3);
    pGrid->addWidget(m_pLock, 3, 3, 1, 3);
    pGrid->addWidget(m_pOffsetLabel, 4, 0, 1, 3);
    pGrid->addWidget(m_pOffset, 4, 3, 1, 3);
    for (int column = 0; column < 6; ++column)
        pGrid->setColumnStretch(column, 1);
}

void ManualBeatPanel::_Connect()
{
    // The finger counts when it comes down, not when it goes up.
    connect(m_pTap, &QPushButton::pressed, this, &ManualBeatPanel::OnTapped);
    connect(m_pOne, &QPushButton::pressed, this, &ManualBeatPanel::OnOneMarked);
    connect(
        m_pHalf, &QPushButton::clicked, this, [this] { Q_EMIT OnScaled(1, 2); });
    connect(m_pDouble, &QPushButton::clicked, this, [this] { Q_EMIT OnScaled(2, 1); });
    connect(m_pRound, &QPushButton::clicked, this, &ManualBeatPanel::OnRounded);
    connect(m_pLock, &QPushButton::clicked, this, [this](bool pIsChecked) {
        Q_EMIT OnHoldChosen(pIsChecked);
        // What it shows is the clock's answer.
        _ShowLock();
    });
    connect(m_pOffset,
            QOverload<double>::of(&QDoubleSpinBox::valueChanged),
            this,
            &ManualBeatPanel::OnOffsetChanged);
}

void ManualBeatPanel::setClock(const BeatClockState& pState, double pShownBPM)
{
    m_state = pState;
    m_shownBPM = pShownBPM;
    _ShowClock();
}

void ManualBeatPanel::setOffset(double pMs)
{
    const QSignalBlocker blocker(m_pOffset);
    m_pOffset->setValue(pMs);
}

void ManualBeatPanel::_Retranslate()
{
    setWindowTitle(tr("Manual beat"));
    m_pTap->setText(tr("Tap (T)"));
    m_pTap->setToolTip(tr("Tap with the beat: here, or with the key T."));
    m_pHalf->setText(tr("Ha&lf"));
    m_pHalf->setToolTip(tr("Half the tempo, at once: here, or with the arrow down."));
    m_pDouble->setText(tr("Dou&ble"));
    m_pDouble->setToolTip(tr("Twice the tempo, at once: here, or with the arrow up."));
    m_pRound->setText(tr("&Round"));
    m_pRound->setToolTip(tr("The nearest whole tempo: here, or with the key Y."));
    m_pLock->setToolTip(
        tr("Keeps this tempo until it is released, whatever the music does: here, or with the key "
           "H."));
    m_pOne->setText(tr("The one (Space)"));
    m_pOne->setToolTip(tr("The beat of now is the first of the bar: here, or with the space bar."));
    m_pOffsetLabel->setText(tr("Shift the beats by:"));
    m_pOffset->setSuffix(tr(" ms"));
    m_pOffset->setToolTip(
        tr("All beats that are shown and sent fall later by so much, or earlier when it is "
           "negative."));
    m_pOffset->setAccessibleName(tr("Shift of the beats"));
    m_pTempo->setAccessibleName(tr("Tempo of the beats"));
    _ShowClock();
    const auto fields = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* pField : fields)
        pField->setAccessibleDescription(pField->toolTip());
}

void ManualBeatPanel::_ShowClock()
{
    const double bpm = m_state.isRunning() ? m_state.bpm : 0.0;
    m_pTempo->setText(bpm > 0.0 ? tr("%1 BPM").arg(QLocale().toString(m_shownBPM, 'f', 1))
                                : QStringLiteral("–"));
    m_pCharge->setHint(_DescribeCharge());
    m_pHalf->setEnabled(IsTempo(bpm / 2.0));
    m_pDouble->setEnabled(IsTempo(bpm * 2.0));
    m_pRound->setEnabled(bpm > 0.0);
    m_pOne->setEnabled(bpm > 0.0);
    _ShowLock();
}

/// Pressed, in the colour of what is chosen, and in words.
void ManualBeatPanel::_ShowLock()
{
    const bool isHeld = m_state.charge == BeatClockCharge_Held;
    m_pLock->setEnabled(isHeld || m_state.isRunning());
    m_pLock->setChecked(isHeld);
    m_pLock->setText(isHeld ? tr("Lo&cked (H)") : tr("Lo&ck (H)"));
    const QColor color = isHeld ? palette().color(QPalette::Highlight) : QColor();
    // A palette that is set is painted, whether it is another one or not.
    if (color == m_lockColor)
        return;
    m_lockColor = color;
    QPalette colors;
    if (isHeld) {
        colors.setColor(QPalette::Button, color);
        colors.setColor(QPalette::ButtonText, palette().color(QPalette::HighlightedText));
    }
    m_pLock->setPalette(colors);
}

QString ManualBeatPanel::_DescribeCharge() const
{
    if (!m_state.isRunning())
        return tr("Tap with the beat");
    if (m_state.charge == BeatClockCharge_Held)
        return tr("Held until released");
    if (m_state.charge == BeatClockCharge_Hand)
        return tr("The hand leads");
    if (m_state.numerator != m_state.denominator)
        return tr("The music leads, at %1/%2 of its tempo")
            .arg(m_state.numerator)
            .arg(m_state.denominator);
    return tr("The music leads");
}

#include "moc_ManualBeatPanel.cpp"
