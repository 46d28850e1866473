// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/ProfileLimits.h>

#include <desktop/settings/DecimalField.h>
#include <desktop/settings/HintLabel.h>
#include <desktop/settings/ProfileEditor.h>
#include <desktop/settings/detail/PlainText.h>
#include <desktop/settings/detail/ProfileCheck.h>

#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>
#include <limits>

namespace {

/// More than a profile takes, so that a refused number can be typed, explained and mended.
constexpr int kWideTempo = 99999;
constexpr double kWideSensibility = ProfileLimits::kMaximalSensibility;
constexpr int kFieldWidth = 14;  ///< letters

void SetUp(QSpinBox* pField, const char* pName, int pMinimum, int pMaximum)
{
    pField->setObjectName(QLatin1String(pName));
    pField->setRange(pMinimum, pMaximum);
    pField->setAlignment(Qt::AlignRight);
    pField->setFixedWidth(pField->fontMetrics().averageCharWidth() * kFieldWidth);
}

}  // namespace

ProfileEditor::ProfileEditor(eKind pKind,
                             const desktop::ProfileValues& pValues,
                             const QStringList& pTaken,
                             QWidget* pParent)
    : QDialog(pParent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint), m_kind(pKind),
      m_original(pValues), m_taken(pTaken), m_pGrid(new QGridLayout(this)),
      m_pNameLabel(new QLabel(this)), m_pName(new QLineEdit(this)),
      m_pNameHint(new HintLabel(this)), m_pTempoLabel(new QLabel(this)),
      m_pMinimalBPM(new QSpinBox(this)), m_pMaximalBPM(new QSpinBox(this)),
      m_pTempoHint(new HintLabel(this)), m_pBandLabel(new QLabel(this)), m_pLow(new QSpinBox(this)),
      m_pHigh(new QSpinBox(this)), m_pBandHint(new HintLabel(this)),
      m_pSensibilityLabel(new QLabel(this)), m_pSensibility(new DecimalField(this)),
      m_pSensibilityHint(new HintLabel(this)), m_pNotice(new HintLabel(this)),
      m_pAccept(new QPushButton(this)), m_pSaveAsNew(new QPushButton(this)),
      m_pCancel(new QPushButton(this))
{
    _MakeFields();
    _MakeButtons();
    _Fill();
    _Connect();
    _Retranslate();
    m_pName->selectAll();
}

void ProfileEditor::_MakeFields()
{
    m_pName->setObjectName(QStringLiteral("name"));
    SetUp(m_pMinimalBPM, "minimalBPM", 0, kWideTempo);
    SetUp(m_pMaximalBPM, "maximalBPM", 0, kWideTempo);
    SetUp(m_pLow, "low", -1, std::numeric_limits<int>::max());
    SetUp(m_pHigh, "high", -1, std::numeric_limits<int>::max());
    m_pSensibility->setObjectName(QStringLiteral("sensibility"));
    m_pSensibility->setKeyboardTracking(true);
    m_pSensibility->setRange(0.0, std::max(kWideSensibility, m_original.sensibility));
    m_pSensibility->setSingleStep(0.1);
    m_pSensibility->setFixedWidth(m_pMinimalBPM->width());
    _AddRow(m_pNameLabel, m_pName, nullptr, m_pNameHint);
    _AddRow(m_pTempoLabel, m_pMinimalBPM, m_pMaximalBPM, m_pTempoHint);
    _AddRow(m_pBandLabel, m_pLow, m_pHigh, m_pBandHint);
    _AddRow(m_pSensibilityLabel, m_pSensibility, nullptr, m_pSensibilityHint);
    m_pGrid->addWidget(m_pNotice, m_pGrid->rowCount(), 0, 1, 4);
    m_pGrid->setColumnStretch(3, 1);
    m_pGrid->setColumnMinimumWidth(3, fontMetrics().averageCharWidth() * 40);
}

void ProfileEditor::_AddRow(QLabel* pLabel, QWidget* pFirst, QWidget* pSecond, HintLabel* pHint)
{
    const int line = m_pGrid->rowCount();
    pLabel->setBuddy(pFirst);
    pHint->setObjectName(pFirst->objectName() + QStringLiteral("Hint"));
    // Two lines of words fit, so that nothing moves when a value is refused.
    pHint->setMinimumHeight(pHint->fontMetrics().lineSpacing() * 2);
    m_pGrid->addWidget(pLabel, line, 0);
    m_pGrid->addWidget(pFirst, line, 1, 1, pSecond || pFirst != m_pName ? 1 : 2);
    if (pSecond)
        m_pGrid->addWidget(pSecond, line, 2);
    m_pGrid->addWidget(pHint, line, 3);
}

void ProfileEditor::_MakeButtons()
{
    auto* pBox = new QDialogButtonBox(this);
    m_pAccept->setObjectName(QStringLiteral("accept"));
    m_pSaveAsNew->setObjectName(QStringLiteral("saveAsNew"));
    m_pCancel->setObjectName(QStringLiteral("cancel"));
    pBox->addButton(m_pCancel, QDialogButtonBox::RejectRole);
    pBox->addButton(m_pAccept, QDialogButtonBox::AcceptRole);
    if (m_kind == eBuiltIn)
        pBox->addButton(m_pSaveAsNew, QDialogButtonBox::ActionRole);
    m_pSaveAsNew->setVisible(m_kind == eBuiltIn);
    m_pNotice->setVisible(m_kind == eBuiltIn);
    m_pAccept->setDefault(true);
    connect(pBox, &QDialogButtonBox::accepted, this, [this] { _Finish(false); });
    connect(pBox, &QDialogButtonBox::rejected, this, &ProfileEditor::reject);
    connect(m_pSaveAsNew, &QPushButton::clicked, this, [this] { _Finish(true); });
    m_pGrid->addWidget(pBox, m_pGrid->rowCount(), 0, 1, 4);
}

void ProfileEditor::_Fill()
{
    m_pName->setText(m_original.name);
    m_pMinimalBPM->setValue(qRound(m_original.minimalBPM));
    m_pMaximalBPM->setValue(qRound(m_original.maximalBPM));
    m_pLow->setValue(m_original.low);
    m_pHigh->setValue(m_original.high);
    m_pSensibility->setValue(m_original.sensibility);
    m_shownSensibility = m_pSensibility->value();
}

void ProfileEditor::_Connect()
{
    connect(m_pName, &QLineEdit::textChanged, this, &ProfileEditor::_Check);
    for (const QSpinBox* pField : {m_pMinimalBPM, m_pMaximalBPM, m_pLow, m_pHigh})
        connect(pField, QOverload<int>::of(&QSpinBox::valueChanged), this, &ProfileEditor::_Check);
    connect(m_pSensibility,
            QOverload<double>::of(&QDoubleSpinBox::valueChanged),
            this,
            &ProfileEditor::_Check);
}

desktop::ProfileValues ProfileEditor::getValues() const
{
    const auto tempo = [](const QSpinBox* pField, double pOriginal) {
        return pField->value() == qRound(pOriginal) ? pOriginal : double(pField->value());
    };
    const bool isTouched = m_pSensibility->value() != m_shownSensibility;
    return {m_pName->text(),
            tempo(m_pMinimalBPM, m_original.minimalBPM),
            tempo(m_pMaximalBPM, m_original.maximalBPM),
            m_pLow->value(),
            m_pHigh->value(),
            isTouched ? m_pSensibility->value() : m_original.sensibility};
}

// ---- Refusals -----------------------------------------------------------------------------------

void ProfileEditor::_Show(HintLabel* pHint, const QString& pRefusal, const QString& pLimits)
{
    if (pRefusal.isEmpty())
        pHint->setHint(pLimits);
    else
        pHint->setRefusal(pRefusal);
}

/// Shows every refusal; false when there is one.
bool ProfileEditor::_Check()
{
    using Check = desktop::ProfileCheck;
    const desktop::ProfileValues values = getValues();
    const QString tempos = Check::Tempos(values.minimalBPM, values.maximalBPM);
    const QString band = Check::Band(values.low, values.high);
    const QString sensibility = Check::Sensibility(values.sensibility);
    _Show(m_pTempoHint,
          tempos,
          tr("Lowest and highest tempo to look for, 1 to %1 BPM").arg(Check::kMaximalTempo));
    _Show(m_pBandHint, band, tr("Lower and upper edge of the band to listen to"));
    _Show(m_pSensibilityHint,
          sensibility,
          tr("A pulse is that many times louder than the average; 0 or more"));
    for (QSpinBox* pField : {m_pMinimalBPM, m_pMaximalBPM})
        pField->setAccessibleDescription(m_pTempoHint->text());
    for (QSpinBox* pField : {m_pLow, m_pHigh})
        pField->setAccessibleDescription(m_pBandHint->text());
    m_pSensibility->setAccessibleDescription(m_pSensibilityHint->text());
    return _CheckName() && tempos.isEmpty() && band.isEmpty() && sensibility.isEmpty();
}

bool ProfileEditor::_CheckName()
{
    // A built-in profile that is saved as a new one stays, and so does its name.
    const QStringList taken = m_isSavedAsNew ? m_taken + QStringList(m_original.name) : m_taken;
    const QString refusal = desktop::ProfileCheck::Name(m_pName->text(), taken);
    // An empty field of a new profile is no mistake yet.
    const bool isFresh = m_kind == eNew && m_pName->text().isEmpty() && !m_pName->isModified();
    _Show(m_pNameHint, isFresh ? QString() : refusal, tr("A name of your choice"));
    m_pName->setAccessibleDescription(m_pNameHint->text());
    return refusal.isEmpty();
}

void ProfileEditor::accept()
{
    m_pName->setModified(true);
    if (_Check())
        return QDialog::accept();
    const std::pair<HintLabel*, QWidget*> fields[] = {{m_pNameHint, m_pName},
                                                      {m_pTempoHint, m_pMinimalBPM},
                                                      {m_pBandHint, m_pLow},
                                                      {m_pSensibilityHint, m_pSensibility}};
    for (const auto& [pHint, pField] : fields)
        if (pHint->isRefusal())
            return pField->setFocus();
}

void ProfileEditor::_Finish(bool pIsSavedAsNew)
{
    m_isSavedAsNew = pIsSavedAsNew;
    accept();
}

// ---- Texts --------------------------------------------------------------------------------------

void ProfileEditor::_Retranslate()
{
    setWindowTitle(m_kind == eNew ? tr("New profile") : tr("Profile “%1”").arg(m_original.name));
    m_pNameLabel->setText(tr("&Name:"));
    m_pTempoLabel->setText(tr("&Tempo:"));
    m_pBandLabel->setText(tr("&Band:"));
    m_pSensibilityLabel->setText(tr("&Sensibility:"));
    m_pName->setAccessibleName(desktop::PlainText(m_pNameLabel->text()));
    m_pMinimalBPM->setAccessibleName(tr("Lowest tempo"));
    m_pMaximalBPM->setAccessibleName(tr("Highest tempo"));
    m_pLow->setAccessibleName(tr("Lower edge of the band"));
    m_pHigh->setAccessibleName(tr("Upper edge of the band"));
    m_pSensibility->setAccessibleName(desktop::PlainText(m_pSensibilityLabel->text()));
    for (QSpinBox* pField : {m_pMinimalBPM, m_pMaximalBPM})
        pField->setSuffix(tr(" BPM"));
    for (QSpinBox* pField : {m_pLow, m_pHigh}) {
        pField->setSuffix(tr(" Hz"));
        pField->setSpecialValueText(tr("no edge"));
    }
    m_pNotice->setHint(tr("This profile is built in: changes last until the program ends. To keep "
                          "them, save them as a new profile under a name of its own."));
    m_pAccept->setText(m_kind == eBuiltIn ? tr("&Use until exit") : tr("&OK"));
    m_pSaveAsNew->setText(tr("Save as ne&w"));
    m_pCancel->setText(tr("&Cancel"));
    _Check();
}

void ProfileEditor::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::LanguageChange) {
        setLocale(QLocale());
        _Retranslate();
    }
    QDialog::changeEvent(pEvent);
}

#include "moc_ProfileEditor.cpp"
