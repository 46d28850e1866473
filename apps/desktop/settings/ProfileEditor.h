// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/settings/detail/ProfileValues.h>

#include <QDialog>
#include <QStringList>

class DecimalField;
class HintLabel;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

/// Edits the values of a profile. It closes with good values only: whatever is refused is explained
/// beside its field, and stays there to be mended.
class ProfileEditor final : public QDialog
{
    Q_OBJECT

public:
    enum eKind
    {
        eNew,
        eOwn,
        eBuiltIn  ///< may be used until exit, or saved as a new profile
    };

    /// pTaken: the names of all other profiles.
    ProfileEditor(eKind pKind,
                  const desktop::ProfileValues& pValues,
                  const QStringList& pTaken,
                  QWidget* pParent = nullptr);

    /// The values as they are in the fields; what was not touched is exactly as it was.
    desktop::ProfileValues getValues() const;
    /// A built-in profile is to be kept as a new one, and to stay as it is.
    bool isSavedAsNew() const { return m_isSavedAsNew; }

    void accept() override;

protected:
    void changeEvent(QEvent* pEvent) override;

private:
    void _MakeFields();
    void _MakeButtons();
    void _AddRow(QLabel* pLabel, QWidget* pFirst, QWidget* pSecond, HintLabel* pHint);
    void _Connect();
    void _Fill();
    void _Retranslate();
    void _Show(HintLabel* pHint, const QString& pRefusal, const QString& pLimits);
    bool _Check();
    bool _CheckName();
    void _Finish(bool pIsSavedAsNew);

    eKind m_kind;
    desktop::ProfileValues m_original;
    QStringList m_taken;
    double m_shownSensibility = 0.0;  ///< m_original's, as its field rounds it
    bool m_isSavedAsNew = false;
    QGridLayout* m_pGrid;
    QLabel* m_pNameLabel;
    QLineEdit* m_pName;
    HintLabel* m_pNameHint;
    QLabel* m_pTempoLabel;
    QSpinBox* m_pMinimalBPM;
    QSpinBox* m_pMaximalBPM;
    HintLabel* m_pTempoHint;
    QLabel* m_pBandLabel;
    QSpinBox* m_pLow;
    QSpinBox* m_pHigh;
    HintLabel* m_pBandHint;
    QLabel* m_pSensibilityLabel;
    DecimalField* m_pSensibility;
    HintLabel* m_pSensibilityHint;
    HintLabel* m_pNotice;
    QPushButton* m_pAccept;
    QPushButton* m_pSaveAsNew;
    QPushButton* m_pCancel;
};
