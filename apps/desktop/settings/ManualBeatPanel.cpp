// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/ProfileLimits.h>

#include <desktop/settings/HintLabel.h>
#include <desktop/settings/ManualBeatPanel.h>

#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QShortcut>

#include <cmath>

namespace {

constexpr int kForgetMs = 10000;

bool IsTempo(double pBPM)
{
    return ProfileLimits::isTempoRange(pBPM, pBPM);
}

}  // namespace

ManualBeatPanel::ManualBeatPanel(Configuration& pConfiguration, QWidget* pParent)
    : SettingsPanel(pConfiguration, pParent), m_pTempo(new QLabel(this)),
      m_pState(new HintLabel(this)), m_pTap(new QPushButton(this)), m_pHalf(new QPushButton(this)),
      m_pDouble(new QPushButton(this)), m_pRound(new QPushButton(this)),
      m_pLock(new QPushButton(this)), m_pOne(new QPushButton(this))
{
    _MakeLayout();
    m_forget.setSingleShot(true);
    m_forget.setInterval(kForgetMs);
    connect(&m_forget, &QTimer::timeout, this, &ManualBeatPanel::_Forget);
    // The finger counts when it comes down, not when it goes up.
    connect(m_pTap, &QPushButton::pressed, this, &ManualBeatPanel::_Tap);
    auto* pKey = new QShortcut(QKeySequence(Qt::Key_T), this);
    pKey->setAutoRepeat(false);
    connect(pKey, &QShortcut::activated, this, &ManualBeatPanel::_Tap);
    connect(m_pOne, &QPushButton::pressed, this, &ManualBeatPanel::OnOneMarked);
    auto* pOneKey = new QShortcut(QKeySequence(Qt::Key_1), this);
    pOneKey->setAutoRepeat(false);
    connect(pOneKey, &QShortcut::activated, this, &ManualBeatPanel::OnOneMarked);
    connect(
        m_pHalf, &QPushButton::clicked, this, [this] { _Scale(1, 2); });
    connect(m_pDouble, &QPushButton::clicked, this, [this] { _Scale(2, 1); });
    connect(m_pRound, &QPushButton::clicked, this, &ManualBeatPanel::_Round);
    m_pLock->setCheckable(true);
    connect(m_pLock, &QPushButton::clicked, this, &ManualBeatPanel::_OnLockClicked);
    _Retranslate();
}

void ManualBeatPanel::_MakeLayout()
{
    m_pTempo->setObjectName(QStringLiteral("tempo"));
    m_pState->setObjectName(QStringLiteral("state"));
    m_pTap->setObjectName(QStringLiteral("tap"));
    m_pHalf->setObjectName(QStringLiteral("half"));
    m_pDouble->setObjectName(QStringLiteral("double"));
    m_pRound->setObjectName(QStringLiteral("round"));
    m_pLock->setObjectName(QStringLiteral("lock"));
    m_pOne->setObjectName(QStringLiteral("one"));
    QFont large = m_pTempo->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    large.setBold(true);
    m_pTempo->setFont(large);
    // Nothing moves when the tempo gets longer.
    m_pTempo->setMinimumWidth(QFontMetrics(large).horizontalAdvance(QStringLiteral("888.8 BPM ")));
    m_pState->setMinimumHeight(m_pState->fontMetrics().lineSpacing() * 2);
    m_pTap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* pGrid = new QGridLayout(this);
    pGrid->addWidget(m_pTap, 0, 0, 2, 2);
    pGrid->addWidget(m_pTempo, 0, 2, 1, 2);
    pGrid->addWidget(m_pState, 1, 2, 1, 2);
    pGrid->addWidget(m_pHalf, 2, 0);
    pGrid->addWidget(m_pDouble, 2, 1);
    pGrid->addWidget(m_pRound, 2, 2);
    pGrid->addWidget(m_pLock, 2, 3);
    pGrid->addWidget(m_pOne, 3, 0, 1, 2);
    for (int column = 0; column < 4; ++column)
        pGrid->setColumnStretch(column, 1);
    pGrid->setRowStretch(4, 1);
}

// ---- The hand -----------------------------------------------------------------------------------

void ManualBeatPanel::_Tap()
{
    if (!m_taps.Tap(HighResolutionTimer::getTime()))
        return;
    Q_EMIT OnTapped();
    const double tempo = m_taps.getBPM();
    if (tempo > 0.0)
        return _SetTempo(tempo);
    m_forget.start();
    _ShowState();
}

void ManualBeatPanel::_Scale(int pNumerator, int pDenominator)
{
    const double tempo = _BaseTempo() * pNumerator / pDenominator;
    // Taps so far tell another tempo from now on.
    m_taps.Clear();
    if (!IsTempo(tempo))
        return;
    Q_EMIT OnScaled(pNumerator, pDenominator);
    _SetTempo(tempo);
}

void ManualBeatPanel::_Round()
{
    const double tempo = std::round(_BaseTempo());
    m_taps.Clear();
    if (!IsTempo(tempo))
        return;
    Q_EMIT OnRounded();
    _SetTempo(tempo);
}

void ManualBeatPanel::_OnLockClicked(bool pIsLocked)
{
    if (!pIsLocked)
        _Release();
    else if (_BaseTempo() > 0.0)
        _Impose(_BaseTempo());
    _ShowState();
}

void ManualBeatPanel::_SetTempo(double pBPM)
{
    m_tempo = pBPM;
    if (m_isLocked || m_isLocking)
        _Impose(pBPM);
    else
        m_forget.start();
    _ShowState();
}

void ManualBeatPanel::_Impose(double pBPM)
{
    m_tempo = pBPM;
    m_isLocked = true;
    m_forget.stop();
    if (m_pAnalyzer)
        m_pAnalyzer->setFixedBPM(pBPM);
    Q_EMIT OnFixedTempoChanged(pBPM);
}

void ManualBeatPanel::_Release()
{
    m_isLocked = false;
    m_tempo = 0.0;
    m_taps.Clear();
    if (m_pAnalyzer)
        m_pAnalyzer->setFixedBPM(0.0);
    Q_EMIT OnFixedTempoChanged(0.0);
}

void ManualBeatPanel::_Forget()
{
    if (!m_isLocked)
        m_tempo = 0.0;
    m_taps.Clear();
    _ShowState();
}

/// That of the hand, else the measured one; 0 when there is neither.
double ManualBeatPanel::_BaseTempo() const
{
    if (m_tempo > 0.0)
        return m_tempo;
    if (m_followed > 0.0)
        return m_followed;
    return m_pAnalyzer ? m_pAnalyzer->getCurrentBPM() : 0.0;
}

void ManualBeatPanel::_OnAnalyzerChanged()
{
    if (m_pAnalyzer) {
        connect(m_pAnalyzer, &AudioAnalyzer::OnBPMChanged, this, &ManualBeatPanel::_ShowButtons);
        if (m_isLocked)
            m_pAnalyzer->setFixedBPM(m_tempo);
    }
    _ShowState();
}

void ManualBeatPanel::setFollowedTempo(double pBPM)
{
    if (pBPM == m_followed)
        return;
    m_followed = pBPM;
    _ShowButtons();
}

void ManualBeatPanel::setAutomatic(bool pIsAutomatic)
{
    m_isAutomatic = pIsAutomatic;
    _ShowState();
}

// ---- What is shown ------------------------------------------------------------------------------

void ManualBeatPanel::Refresh()
{
    _ShowState();
}

void ManualBeatPanel::_Retranslate()
{
    setWindowTitle(tr("Manual beat"));
    m_pTap->setText(tr("Tap (T)"));
    m_pTap->setToolTip(tr("Tap with the beat: here, or with the key T."));
    m_pHalf->setText(tr("Ha&lf"));
    m_pHalf->setToolTip(tr("Half the tempo."));
    m_pDouble->setText(tr("Dou&ble"));
    m_pDouble->setToolTip(tr("Twice the tempo."));
    m_pRound->setText(tr("&Round"));
    m_pRound->setToolTip(tr("The nearest whole tempo."));
    m_pLock->setText(tr("Lo&ck"));
    m_pLock->setToolTip(tr("Hold this tempo, or the measured one, until it is released."));
    m_pOne->setText(tr("The one (1)"));
    m_pOne->setToolTip(tr("The beat of now is the first of the bar: here, or with the key 1."));
    for (QPushButton* pButton : {m_pTap, m_pHalf, m_pDouble, m_pRound, m_pLock, m_pOne})
        pButton->setAccessibleDescription(pButton->toolTip());
    m_pTempo->setAccessibleName(tr("Tempo by hand"));
    _ShowState();
}

void ManualBeatPanel::_ShowState()
{
    m_pTempo->setText(m_tempo > 0.0 ? tr("%1 BPM").arg(QLocale().toString(m_tempo, 'f', 1))
                                    : QStringLiteral("–"));
    const QString refusal = _RangeRefusal();
    if (!refusal.isEmpty())
        m_pState->setRefusal(refusal);
    else if (m_isLocked)
        m_pState->setHint(tr("Locked until released"));
    else if (m_taps.getCount() > 0)
        m_pState->setHint(tr("%n tap(s)", nullptr, m_taps.getCount()));
    else
        m_pState->setHint(m_tempo > 0.0 ? tr("Lock to impose it") : tr("Tap with the beat"));
    _ShowButtons();
}

void ManualBeatPanel::_ShowButtons()
{
    const double base = _BaseTempo();
    m_pHalf->setEnabled(IsTempo(base * 0.5));
    m_pDouble->setEnabled(IsTempo(base * 2.0));
    m_pRound->setEnabled(IsTempo(std::round(base)));
    m_pLock->setEnabled(m_isLocked || base > 0.0);
    m_pLock->setChecked(m_isLocked);
}

/// Empty when nothing is locked or the profile lets the tempo pass.
QString ManualBeatPanel::_RangeRefusal() const
{
    const Profile profile = m_configuration.getSelectedProfile();
    const double held =
        std::max(std::min(m_tempo, profile.getMaximalBPM()), profile.getMinimalBPM());
    if (m_isAutomatic || !m_isLocked || held == m_tempo)
        return {};
    const QLocale locale;
    return tr("The profile takes %1 to %2 BPM: %3 holds")
        .arg(locale.toString(profile.getMinimalBPM(), 'f', 0),
             locale.toString(profile.getMaximalBPM(), 'f', 0),
             locale.toString(held, 'f', 1));
}

#include "moc_ManualBeatPanel.cpp"
