// SPDX-License-Identifier: MIT
#include <desktop/outputs/OutputEditor.h>
#include <desktop/settings/HintLabel.h>
#include <shared/outputs/kinds/OutputKinds.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

using shared::OutputKind;

namespace {

constexpr int kFieldLetters = 60;

QString WithoutMark(const QString& pText)
{
    return QString(pText).remove(QLatin1Char('&')).remove(QLatin1Char(':')).trimmed();
}

}  // namespace

OutputEditor::OutputEditor(const StoredOutput& pOutput, Keep pKeep, QWidget* pParent)
    : QDialog(pParent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_original(pOutput), m_keep(std::move(pKeep)), m_pGrid(new QGridLayout(this)),
      m_pNameLabel(new QLabel(this)), m_pName(new QLineEdit(this)), m_pKindLabel(new QLabel(this)),
      m_pKind(new QComboBox(this)), m_pKindHint(new HintLabel(this)),
      m_pAddressLabel(new QLabel(this)), m_pAddress(new QLineEdit(this)),
      m_pAddressHint(new HintLabel(this)), m_pPresetLabel(new QLabel(this)),
      m_pPreset(new QComboBox(this)), m_pPresetHint(new HintLabel(this)),
      m_pRefusal(new HintLabel(this)), m_pAccept(new QPushButton(this)),
      m_pCancel(new QPushButton(this))
{
    _MakeFields();
    _MakeButtons();
    _Fill();
    _Retranslate();
    connect(m_pKind,
            QOverload<int>::of(&QComboBox::currentIndexChanged),
            this,
            &OutputEditor::_ShowKind);
    m_pName->selectAll();
    m_pName->setFocus();
}

void OutputEditor::_MakeFields()
{
    m_pName->setObjectName(QStringLiteral("name"));
    m_pKind->setObjectName(QStringLiteral("kind"));
    m_pAddress->setObjectName(QStringLiteral("address"));
    m_pPreset->setObjectName(QStringLiteral("preset"));
    m_pRefusal->setObjectName(QStringLiteral("refusal"));
    m_pName->setMaxLength(OutputSettings::kLongestName);
    m_pAddress->setMaxLength(OutputSettings::kLongestText);
    m_pPreset->setEditable(true);
    m_pPreset->setInsertPolicy(QComboBox::NoInsert);
    m_pPreset->lineEdit()->setMaxLength(OutputSettings::kLongestText);
    for (const OutputKind& kind : shared::getOutputKinds())
        m_pKind->addItem(QLatin1String(kind.name));
    _AddRow(m_pNameLabel, m_pName, nullptr);
    _AddRow(m_pKindLabel, m_pKind, m_pKindHint);
    _AddRow(m_pAddressLabel, m_pAddress, m_pAddressHint);
    _AddRow(m_pPresetLabel, m_pPreset, m_pPresetHint);
    m_pGrid->addWidget(m_pRefusal, m_pGrid->rowCount(), 0, 1, 2);
    m_pGrid->setColumnStretch(1, 1);
    m_pGrid->setColumnMinimumWidth(1, fontMetrics().averageCharWidth() * kFieldLetters);
}

void OutputEditor::_AddRow(QLabel* pLabel, QWidget* pField, HintLabel* pHint)
{
    const int line = m_pGrid->rowCount();
    pLabel->setBuddy(pField);
    m_pGrid->addWidget(pLabel, line, 0);
    m_pGrid->addWidget(pField, line, 1);
    if (!pHint)
        return;
    // All words fit, so that nothing moves with another kind.
    constexpr int kLines = 4;
    pHint->setMinimumHeight(pHint->fontMetrics().lineSpacing() *
                            (pField == m_pPreset ? kLines : 2));
    pHint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_pGrid->addWidget(pHint, line + 1, 1);
}

void OutputEditor::_MakeButtons()
{
    auto* pBox = new QDialogButtonBox(this);
    m_pAccept->setObjectName(QStringLiteral("accept"));
    m_pCancel->setObjectName(QStringLiteral("cancel"));
    pBox->addButton(m_pCancel, QDialogButtonBox::RejectRole);
    pBox->addButton(m_pAccept, QDialogButtonBox::AcceptRole);
    m_pAccept->setDefault(true);
    connect(pBox, &QDialogButtonBox::accepted, this, &OutputEditor::accept);
    connect(pBox, &QDialogButtonBox::rejected, this, &OutputEditor::reject);
    m_pGrid->addWidget(pBox, m_pGrid->rowCount(), 0, 1, 2);
}

void OutputEditor::_Fill()
{
    m_pName->setText(m_original.name);
    // A kind that is not known here is none of the list.
    const int kind = m_pKind->findText(m_original.kind, Qt::MatchFixedString);
    m_pKind->setCurrentIndex(m_original.name.isEmpty() ? 0 : kind);
    m_pAddress->setText(m_original.address);
    _ShowKind();
    m_pPreset->setEditText(m_original.preset);
}

void OutputEditor::_ShowKind()
{
    const OutputKind* pKind = shared::findOutputKind(m_pKind->currentText());
    const QString place = pKind ? QLatin1String(pKind->place) : QString();
    const bool hasPresets = pKind && pKind->describePresets;
    m_pKindHint->setHint(pKind ? pKind->describe() : QString());
    // The preset has a field of its own.
    m_pAddress->setPlaceholderText(place.section(QLatin1Char('['), 0, 0));
    m_pAddressHint->setHint(pKind && !pKind->needsAddress ? tr("May stay empty.") : QString());
    const QString preset = m_pPreset->currentText();
    m_pPreset->clear();
    if (pKind && pKind->listPresets)
        m_pPreset->addItems(pKind->listPresets());
    m_pPreset->setEditText(preset);
    m_pPreset->setEnabled(hasPresets);
    m_pPresetHint->setHint(hasPresets ? pKind->describePresets() : tr("This kind has none."));
    for (const auto& [pField, pHint] : {std::pair<QWidget*, HintLabel*>{m_pKind, m_pKindHint},
                                        {m_pAddress, m_pAddressHint},
                                        {m_pPreset, m_pPresetHint}})
        pField->setAccessibleDescription(pHint->text());
}

StoredOutput OutputEditor::getOutput() const
{
    StoredOutput output = m_original;
    output.name = m_pName->text().trimmed();
    output.kind = m_pKind->currentText();
    output.address = m_pAddress->text().trimmed();
    output.preset = m_pPreset->isEnabled() ? m_pPreset->currentText().trimmed() : QString();
    // Whoever knows the form of the command line may give both at once.
    const OutputKind* pKind = shared::findOutputKind(output.kind);
    if (pKind && pKind->division == OutputKind::eAtFirstSlash && output.preset.isEmpty())
        shared::readOutputPlace(QString(output.address), output);
    return output;
}

void OutputEditor::accept()
{
    const QString refusal = m_keep(getOutput());
    m_pRefusal->setRefusal(refusal);
    if (refusal.isEmpty())
        QDialog::accept();
}

void OutputEditor::_Retranslate()
{
    setWindowTitle(m_original.name.isEmpty() ? tr("New output")
                                             : tr("Output “%1”").arg(m_original.name));
    m_pNameLabel->setText(tr("&Name:"));
    m_pKindLabel->setText(tr("&Kind:"));
    m_pAddressLabel->setText(tr("&Address:"));
    m_pPresetLabel->setText(tr("&Preset:"));
    m_pName->setAccessibleName(WithoutMark(m_pNameLabel->text()));
    m_pKind->setAccessibleName(WithoutMark(m_pKindLabel->text()));
    m_pAddress->setAccessibleName(WithoutMark(m_pAddressLabel->text()));
    m_pPreset->setAccessibleName(WithoutMark(m_pPresetLabel->text()));
    m_pPreset->lineEdit()->setAccessibleName(m_pPreset->accessibleName());
    m_pPreset->view()->setAccessibleName(m_pPreset->accessibleName());
    m_pAccept->setText(tr("&OK"));
    m_pCancel->setText(tr("&Cancel"));
    _ShowKind();
}

void OutputEditor::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::LanguageChange)
        _Retranslate();
    QDialog::changeEvent(pEvent);
}

#include "moc_OutputEditor.cpp"
