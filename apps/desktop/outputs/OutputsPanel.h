// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/session/MonitorOutputs.h>
#include <desktop/settings/SettingsPanel.h>

#include <QPointer>

class DecimalField;
class HintLabel;
class OutputEditor;
class OutputsModel;
class QLabel;
class QListView;
class QPushButton;
class QSlider;

/// What follows the beat outside of the program: the stored outputs with their states, to be
/// enabled, edited, moved in time and tried. All acts at once on what is sent.
class OutputsPanel final : public SettingsPanel
{
    Q_OBJECT

public:
    /// pOutputs is not owned and must outlive the panel.
    OutputsPanel(Configuration& pConfiguration,
                 MonitorOutputs& pOutputs,
                 QWidget* pParent = nullptr);

    void Refresh() override;

protected:
    void _Retranslate() override;

private:
    void _SetFields();
    void _MakeLayout();
    void _Connect();
    void _ConnectKeys();
    const MonitorOutputs::Entry* _Current() const;
    void _Choose(const QString& pName);
    void _OpenEditor(const StoredOutput& pOutput);
    void _Toggle();
    void _Remove();
    void _ChooseOffset(double pOffset);
    void _Judge(const QString& pRefusal);
    void _ShowCurrent();
    void _ShowNotice();
    QString _Describe(const MonitorOutputs::Entry& pEntry) const;

    MonitorOutputs& m_outputs;  ///< not owned
    OutputsModel* m_pModel;
    QListView* m_pList;
    HintLabel* m_pState;
    HintLabel* m_pEmpty;
    QPushButton* m_pAdd;
    QPushButton* m_pEdit;
    QPushButton* m_pRemove;
    QPushButton* m_pTest;
    QLabel* m_pOffsetLabel;
    QSlider* m_pOffset;
    DecimalField* m_pOffsetField;
    HintLabel* m_pNotice;
    QString m_refusal;                 ///< of the last change
    QPointer<OutputEditor> m_pEditor;  ///< deletes itself when it is closed
};
