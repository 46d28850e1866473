// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/HintLabel.h>
#include <desktop/settings/ProfilesModel.h>
#include <desktop/settings/ProfilesPanel.h>

#include <QGridLayout>
#include <QListView>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalBlocker>

ProfilesPanel::ProfilesPanel(Configuration& pConfiguration, QWidget* pParent)
    : SettingsPanel(pConfiguration, pParent), m_pModel(new ProfilesModel(pConfiguration, this)),
      m_pAutomatic(new QRadioButton(this)), m_pList(new QListView(this)),
      m_pSummary(new HintLabel(this)), m_pAdd(new QPushButton(this)),
      m_pDuplicate(new QPushButton(this)), m_pEdit(new QPushButton(this)),
      m_pRemove(new QPushButton(this)), m_pRemovedText(new HintLabel(this)),
      m_pUndo(new QPushButton(this))
{
    _MakeLayout();
    _Connect();
    _Retranslate();
    Refresh();
}

void ProfilesPanel::_MakeLayout()
{
    m_pList->setObjectName(QStringLiteral("profiles"));
    m_pList->setModel(m_pModel);
    m_pList->setUniformItemSizes(true);
    m_pList->setMinimumHeight(m_pList->fontMetrics().lineSpacing() * 3);
    m_pSummary->setObjectName(QStringLiteral("summary"));
    m_pAdd->setObjectName(QStringLiteral("add"));
    m_pDuplicate->setObjectName(QStringLiteral("duplicate"));
    m_pEdit->setObjectName(QStringLiteral("edit"));
    m_pRemove->setObjectName(QStringLiteral("remove"));
    m_pRemovedText->setObjectName(QStringLiteral("removed"));
    m_pUndo->setObjectName(QStringLiteral("undo"));
    m_pAutomatic->setObjectName(QStringLiteral("automatic"));
    // It goes off when a profile is chosen.
    m_pAutomatic->setAutoExclusive(false);
    auto* pGrid = new QGridLayout(this);
    pGrid->addWidget(m_pAutomatic, 0, 0, 1, 4);
    pGrid->addWidget(m_pList, 1, 0, 1, 4);
    pGrid->addWidget(m_pAdd, 2, 0);
    pGrid->addWidget(m_pDuplicate, 2, 1);
    pGrid->addWidget(m_pEdit, 2, 2);
    pGrid->addWidget(m_pRemove, 2, 3);
    pGrid->addWidget(m_pSummary, 3, 0, 1, 4);
    pGrid->addWidget(m_pRemovedText, 4, 0, 1, 3);
    pGrid->addWidget(m_pUndo, 4, 3);
    pGrid->setRowStretch(1, 1);
}

void ProfilesPanel::_Connect()
{
    connect(m_pList->selectionModel(),
            &QItemSelectionModel::currentChanged,
            this,
            &ProfilesPanel::_OnCurrentChanged);
    connect(m_pList, &QListView::doubleClicked, m_pEdit, &QPushButton::click);
    // The profile that was in force before is the current one still.
    connect(
        m_pList, &QListView::clicked, this, [this] { _ChooseAutomatic(false); });
    connect(
        m_pAutomatic, &QRadioButton::clicked, this, [this] { _ChooseAutomatic(true); });
    connect(m_pAdd, &QPushButton::clicked, this, [this] { _OpenEditor(ProfileEditor::eNew); });
    connect(m_pDuplicate, &QPushButton::clicked, this, &ProfilesPanel::_Duplicate);
    connect(m_pEdit, &QPushButton::clicked, this, [this] {
        _OpenEditor(_IsCurrentOwn() ? ProfileEditor::eOwn : ProfileEditor::eBuiltIn);
    });
    connect(m_pRemove, &QPushButton::clicked, this, &ProfilesPanel::_Remove);
    connect(m_pUndo, &QPushButton::clicked, this, &ProfilesPanel::_Undo);
    const std::pair<int, QPushButton*> keys[] = {
        {Qt::Key_Delete, m_pRemove}, {Qt::Key_F2, m_pEdit}, {Qt::Key_Return, m_pEdit}};
    for (const auto& [key, pButton] : keys) {
        auto* pShortcut = new QShortcut(QKeySequence(key), m_pList);
        pShortcut->setContext(Qt::WidgetShortcut);
        connect(pShortcut, &QShortcut::activated, pButton, &QPushButton::click);
    }
}

// ---- Changes ------------------------------------------------------------------------------------

void ProfilesPanel::_OnCurrentChanged(const QModelIndex& pIndex)
{
    if (!pIndex.isValid() ||
        !m_configuration.setSelectedProfile(m_pModel->getProfile(pIndex.row())))
        return;
    _ChooseAutomatic(false);
    _ShowState();
    Q_EMIT OnProfileChanged();
    Q_EMIT OnConfigurationChanged();
}

void ProfilesPanel::setAutomatic(bool pIsAutomatic)
{
    m_isAutomatic = pIsAutomatic;
    _ShowChoice();
    _ShowState();
}

void ProfilesPanel::_ChooseAutomatic(bool pIsAutomatic)
{
    const bool isOther = pIsAutomatic != m_isAutomatic;
    setAutomatic(pIsAutomatic);
    if (isOther)
        Q_EMIT OnAutomaticChosen(pIsAutomatic);
}

void ProfilesPanel::ChooseProfile(int pRow)
{
    const QModelIndex row = m_pModel->index(pRow);
    if (!row.isValid())
        return;
    m_pList->setCurrentIndex(row);
    _ChooseAutomatic(false);
}

QStringList ProfilesPanel::getNames() const
{
    return m_pModel->getNames();
}

/// Nothing in the list is chosen while it is found automatically.
void ProfilesPanel::_ShowChoice()
{
    m_pAutomatic->setChecked(m_isAutomatic);
    m_pSummary->setVisible(!m_isAutomatic);
    const QSignalBlocker blocker(m_pList->selectionModel());
    if (m_isAutomatic)
        m_pList->clearSelection();
    else
        m_pList->setCurrentIndex(m_pModel->index(m_pModel->getSelectedRow()));
    m_pList->viewport()->update();
}

void ProfilesPanel::_OpenEditor(ProfileEditor::eKind pKind)
{
    if (m_pEditor)
        return m_pEditor->activateWindow();
    const bool isNew = pKind == ProfileEditor::eNew;
    const Profile profile = _Current();
    m_pEditor = new ProfileEditor(pKind,
                                  isNew ? desktop::ProfileValues() : desktop::ValuesOf(profile),
                                  m_pModel->getNames(isNew ? -1 : m_pModel->getSelectedRow()),
                                  this);
    m_pEditor->setAttribute(Qt::WA_DeleteOnClose);
    ProfileEditor* pEditor = m_pEditor;
    connect(pEditor, &ProfileEditor::accepted, this, [this, pEditor, pKind, profile] {
        _OnEdited(*pEditor, pKind, profile);
    });
    // Not exec(): the event loop goes on, and the beat with it.
    pEditor->open();
}

void ProfilesPanel::_OnEdited(const ProfileEditor& pEditor,
                              ProfileEditor::eKind pKind,
                              const Profile& pProfile)
{
    const desktop::ProfileValues values = pEditor.getValues();
    if (pKind == ProfileEditor::eNew || pEditor.isSavedAsNew()) {
        _Add(values);
    } else {
        desktop::Apply(values, pProfile);
        // A setter of a profile does not tell the configuration.
        if (pProfile.isSerializable())
            m_configuration.setIsModified(true);
    }
    _Changed();
}

void ProfilesPanel::_Duplicate()
{
    const Profile original = _Current();
    desktop::ProfileValues values = desktop::ValuesOf(original);
    values.name = _CopyName(values.name);
    Profile added = _Add(values);
    added.setMaximalThreshold(original.getMaximalThreshold());
    added.setMinimalThreshold(original.getMinimalThreshold());
    _Changed();
}

QString ProfilesPanel::_CopyName(const QString& pName) const
{
    const QStringList names = m_pModel->getNames();
    QString copy = tr("%1 (copy)").arg(pName);
    if (!desktop::HasName(names, copy))
        return copy;
    return desktop::FirstFreeName(names, [&pName](int pNumber) {
        return tr("%1 (copy %2)").arg(pName, QString::number(pNumber));
    });
}

Profile ProfilesPanel::_Add(const desktop::ProfileValues& pValues)
{
    const Profile added = m_configuration.Add(pValues.name,
                                              pValues.minimalBPM,
                                              pValues.maximalBPM,
                                              pValues.sensibility,
                                              pValues.low,
                                              pValues.high);
    m_configuration.setSelectedProfile(added);
    return added;
}

void ProfilesPanel::_Remove()
{
    const Profile profile = _Current();
    if (!profile.isSerializable())
        return;
    m_removed = profile;
    // A handle of the kind that the configuration takes; only its ID is looked at.
    m_configuration.Remove(UserProfile(profile.getName(),
                                       profile.getSensibility(),
                                       profile.getFilterLowFrequency(),
                                       profile.getFilterHighFrequency(),
                                       profile.getID(),
                                       profile.getMinimalBPM(),
                                       profile.getMaximalBPM()));
    _Changed();
}

void ProfilesPanel::_Undo()
{
    const Profile removed = *m_removed;
    m_removed.reset();
    Profile restored = _Add(desktop::ValuesOf(removed));
    restored.setMaximalThreshold(removed.getMaximalThreshold());
    restored.setMinimalThreshold(removed.getMinimalThreshold());
    _Changed();
    m_pList->setFocus();
}

void ProfilesPanel::_Changed()
{
    Refresh();
    Q_EMIT OnProfileChanged();
    Q_EMIT OnConfigurationChanged();
}

// ---- What is shown ------------------------------------------------------------------------------

void ProfilesPanel::Refresh()
{
    {
        const QSignalBlocker blocker(m_pList->selectionModel());
        m_pModel->Reload();
    }
    m_pList->setCurrentIndex(m_pModel->index(m_pModel->getSelectedRow()));
    _ShowChoice();
    _ShowState();
}

void ProfilesPanel::_Retranslate()
{
    setWindowTitle(tr("Profiles"));
    m_pAutomatic->setText(tr("Automatic: follows any music by itself"));
    m_pAutomatic->setToolTip(tr("Or choose a profile for the tempo range and band of your music."));
    m_pAutomatic->setAccessibleDescription(m_pAutomatic->toolTip());
    m_pList->setAccessibleName(tr("Profiles"));
    m_pAdd->setText(tr("A&dd…"));
    m_pAdd->setToolTip(tr("Make a new profile."));
    m_pDuplicate->setText(tr("D&uplicate"));
    m_pDuplicate->setToolTip(tr("Make a profile of your own from this one."));
    m_pEdit->setText(tr("&Edit…"));
    m_pEdit->setToolTip(tr("Change name, tempo range, band and sensibility (F2)."));
    m_pRemove->setText(tr("Re&move"));
    m_pUndo->setText(tr("Br&ing back"));
    m_pModel->UpdateTexts();
    _ShowState();
}

void ProfilesPanel::_ShowState()
{
    const Profile profile = _Current();
    const QString kind = profile.isSerializable()
                             ? tr("Your own profile; it is saved with the settings.")
                             : tr("Built in: changes last until the program ends. To keep them, "
                                  "duplicate it.");
    m_pSummary->setHint(
        tr("%1, sensibility %2. %3", "band, sensibility. kind of profile")
            .arg(_BandText(profile), QLocale().toString(profile.getSensibility()), kind));
    m_pEdit->setEnabled(!profile.isReadOnly());
    m_pRemove->setEnabled(profile.isSerializable());
    m_pRemove->setToolTip(profile.isSerializable() ? tr("Remove this profile (Del).")
                                                   : tr("A built-in profile cannot be removed."));
    for (QPushButton* pButton : {m_pAdd, m_pDuplicate, m_pEdit, m_pRemove})
        pButton->setAccessibleDescription(pButton->toolTip());
    m_pRemovedText->setVisible(m_removed.has_value());
    m_pUndo->setVisible(m_removed.has_value());
    if (m_removed)
        m_pRemovedText->setHint(tr("“%1” is removed.").arg(m_removed->getName()));
}

Profile ProfilesPanel::_Current() const
{
    return m_configuration.getSelectedProfile();
}

bool ProfilesPanel::_IsCurrentOwn() const
{
    return _Current().isSerializable();
}

QString ProfilesPanel::_BandText(const Profile& pProfile)
{
    const int low = pProfile.getFilterLowFrequency();
    const int high = pProfile.getFilterHighFrequency();
    const QLocale locale;
    if (low < 0 && high < 0)
        return tr("All frequencies");
    if (low < 0)
        return tr("Up to %1 Hz").arg(locale.toString(high));
    if (high < 0)
        return tr("From %1 Hz").arg(locale.toString(low));
    return tr("%1 to %2 Hz").arg(locale.toString(low), locale.toString(high));
}

#include "moc_ProfilesPanel.cpp"
