// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputSettings.h>

#include <QDialog>
#include <QString>

#include <functional>

class HintLabel;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/// Edits an output. It closes once the output is kept; what is refused is explained, and stays
/// there to be mended.
class OutputEditor final : public QDialog
{
    Q_OBJECT

public:
    /// Keeps an output. Returns what is refused, in words for people, or an empty text.
    using Keep = std::function<QString(const StoredOutput& pOutput)>;

    /// pOutput without a name is a new one.
    OutputEditor(const StoredOutput& pOutput, Keep pKeep, QWidget* pParent = nullptr);

    /// As it is in the fields.
    StoredOutput getOutput() const;
    void accept() override;

protected:
    void changeEvent(QEvent* pEvent) override;

private:
    void _MakeFields();
    void _AddRow(QLabel* pLabel, QWidget* pField, HintLabel* pHint);
    void _MakeButtons();
    void _Fill();
    void _ShowKind();
    void _Retranslate();

    const StoredOutput m_original;
    const Keep m_keep;
    QGridLayout* m_pGrid;
    QLabel* m_pNameLabel;
    QLineEdit* m_pName;
    QLabel* m_pKindLabel;
    QComboBox* m_pKind;
    HintLabel* m_pKindHint;
    QLabel* m_pAddressLabel;
    QLineEdit* m_pAddress;
    HintLabel* m_pAddressHint;
    QLabel* m_pPresetLabel;
    QComboBox* m_pPreset;
    HintLabel* m_pPresetHint;
    HintLabel* m_pRefusal;
    QPushButton* m_pAccept;
    QPushButton* m_pCancel;
};
