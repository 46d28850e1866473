// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/Profile.h>

#include <desktop/settings/ProfileEditor.h>
#include <desktop/settings/SettingsPanel.h>

#include <QPointer>

#include <optional>

class HintLabel;
class ProfilesModel;
class QListView;
class QPushButton;
class QRadioButton;

/// How beats are found: automatically, or by a tempo profile; which one is in force, and the user's
/// own ones. A removed profile can be brought back until the next one is removed.
class ProfilesPanel final : public SettingsPanel
{
    Q_OBJECT

public:
    explicit ProfilesPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    void Refresh() override;
    /// By default a profile is in force.
    void setAutomatic(bool pIsAutomatic);
    /// As the user would.
    void ChooseAutomatic() { _ChooseAutomatic(true); }
    /// The profile of a row from 0; beyond the last one nothing happens.
    void ChooseProfile(int pRow);
    /// Of all profiles, in their order.
    QStringList getNames() const;

Q_SIGNALS:
    /// The user has chosen "Automatic", or a profile.
    void OnAutomaticChosen(bool pIsAutomatic);
    /// The selected profile is another one, or has other values.
    void OnProfileChanged();

protected:
    void _Retranslate() override;

private:
    void _MakeLayout();
    void _Connect();
    void _OnCurrentChanged(const QModelIndex& pIndex);
    void _ChooseAutomatic(bool pIsAutomatic);
    void _ShowChoice();
    void _OpenEditor(ProfileEditor::eKind pKind);
    void
    _OnEdited(const ProfileEditor& pEditor, ProfileEditor::eKind pKind, const Profile& pProfile);
    void _Duplicate();
    QString _CopyName(const QString& pName) const;
    void _Remove();
    void _Undo();
    /// A new profile of these values, selected.
    Profile _Add(const desktop::ProfileValues& pValues);
    void _Changed();
    void _ShowState();
    Profile _Current() const;
    bool _IsCurrentOwn() const;
    static QString _BandText(const Profile& pProfile);

    ProfilesModel* m_pModel;
    QRadioButton* m_pAutomatic;
    bool m_isAutomatic = false;
    QListView* m_pList;
    HintLabel* m_pSummary;
    QPushButton* m_pAdd;
    QPushButton* m_pDuplicate;
    QPushButton* m_pEdit;
    QPushButton* m_pRemove;
    HintLabel* m_pRemovedText;
    QPushButton* m_pUndo;
    std::optional<Profile> m_removed;   ///< the last one, which can be brought back
    QPointer<ProfileEditor> m_pEditor;  ///< deletes itself when it is closed
};
