// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/HintLabel.h>
#include <desktop/settings/InputDevicesModel.h>
#include <desktop/settings/InputDevicesPanel.h>
#include <desktop/settings/LevelDelegate.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVector>
#include <QWindow>

#include <map>

InputDevicesPanel::InputDevicesPanel(Configuration& pConfiguration, QWidget* pParent)
    : SettingsPanel(pConfiguration, pParent), m_pModel(new InputDevicesModel(this)),
      m_pList(new QListView(this)), m_pStatus(new HintLabel(this)),
      m_pLookAgain(new QPushButton(this)), m_pFallback(new HintLabel(this))
{
    m_pList->setObjectName(QStringLiteral("devices"));
    m_pList->setModel(m_pModel);
    m_pList->setItemDelegate(new LevelDelegate(m_pList));
    m_pList->setUniformItemSizes(true);
    m_pList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pList->setMinimumHeight(m_pList->fontMetrics().lineSpacing() * 3);
    m_pList->installEventFilter(this);
    connect(m_pList, &QListView::clicked, this, &InputDevicesPanel::_Choose);
    m_pStatus->setObjectName(QStringLiteral("status"));
    m_pLookAgain->setObjectName(QStringLiteral("lookAgain"));
    connect(m_pLookAgain, &QPushButton::clicked, this, &InputDevicesPanel::_LookAgain);
    using Model = InputDevicesModel;
    connect(m_pModel, &Model::rowsInserted, this, &InputDevicesPanel::_ShowStatus);
    connect(m_pModel, &Model::rowsRemoved, this, &InputDevicesPanel::_ShowStatus);
    connect(m_pModel,
            &Model::dataChanged,
            this,
            [this](const QModelIndex&, const QModelIndex&, const QVector<int>& pRoles) {
                if (pRoles != QVector<int>{Model::eLevelRole})
                    _ShowStatus();
            });
    connect(&m_levelTimer, &QTimer::timeout, this, &InputDevicesPanel::_ShowLevels);

    auto* pLine = new QHBoxLayout;
    pLine->addWidget(m_pStatus, 1);
    pLine->addWidget(m_pLookAgain);
    auto* pLayout = new QVBoxLayout(this);
    pLayout->addWidget(m_pList, 1);
    pLayout->addLayout(pLine);
    pLayout->addWidget(m_pFallback);
    m_pFallback->setObjectName(QStringLiteral("fallback"));
    m_pFallback->hide();
    _Retranslate();
    Refresh();
    // Whoever records may let the watcher rest, where that is slow.
    QtAudioInputDevicesManager::GetInstance()->Start();
}

void InputDevicesPanel::Refresh()
{
    const QtAudioInputDeviceInfo* pStored = m_configuration.getSelectedAudioInputDevice();
    if (pStored)
        setCurrentDevice(pStored->getDeviceName(), true);
    _ShowStatus();
}

void InputDevicesPanel::setCurrentDevice(const QString& pName, bool pIsPresent)
{
    m_pModel->setChosen(pName);
    m_pModel->setChosenPresent(pIsPresent);
    if (!m_pList->hasFocus())
        m_pList->setCurrentIndex(m_pModel->index(m_pModel->Find(pName)));
    _ShowStatus();
}

void InputDevicesPanel::setFallback(bool pIsFallback)
{
    m_pFallback->setVisible(pIsFallback);
}

void InputDevicesPanel::_Choose(const QModelIndex& pIndex)
{
    const QString name = pIndex.data(InputDevicesModel::eNameRole).toString();
    if (name.isEmpty() || name == m_pModel->getChosen())
        return;
    m_pModel->setChosen(name);
    m_configuration.setSelectedAudioInputDevice(QtAudioInputDeviceInfo(name, false));
    _ShowStatus();
    Q_EMIT OnDeviceChosen(name);
    Q_EMIT OnConfigurationChanged();
}

bool InputDevicesPanel::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pObject == m_pList && pEvent->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(pEvent)->key();
        if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
            _Choose(m_pList->currentIndex());
            return true;
        }
    }
    return SettingsPanel::eventFilter(pObject, pEvent);
}

// ---- The levels ---------------------------------------------------------------------------------

void InputDevicesPanel::showEvent(QShowEvent* pEvent)
{
    SettingsPanel::showEvent(pEvent);
    m_levelTimer.start(kLevelMs);
}

void InputDevicesPanel::hideEvent(QHideEvent* pEvent)
{
    SettingsPanel::hideEvent(pEvent);
    m_levelTimer.stop();
    m_levels.reset();
    m_pModel->setLevels({});
}

/// A window that is minimised, covered or scrolled away is shown still.
bool InputDevicesPanel::_IsSeen() const
{
    const QWindow* pWindow = window()->windowHandle();
    return pWindow && pWindow->isExposed() && !window()->isMinimized() &&
           !m_pList->visibleRegion().isEmpty();
}

void InputDevicesPanel::_ShowLevels()
{
    SoundBackEnd* pBackEnd = SoundBackEnd::get();
    if (!pBackEnd || !_IsSeen())
        m_levels.reset();
    else if (!m_levels)
        m_levels = pBackEnd->HearLevels();
    m_pModel->setLevels(m_levels ? m_levels->TakePeaks() : std::map<QString, double>());
}

// ---- What is shown ------------------------------------------------------------------------------

void InputDevicesPanel::_LookAgain()
{
    QtAudioInputDevicesManager::GetInstance()->Enumerate(true);
}

void InputDevicesPanel::_Retranslate()
{
    setWindowTitle(tr("Audio inputs"));
    m_pList->setAccessibleName(tr("Audio inputs"));
    m_pLookAgain->setText(tr("L&ook again"));
    m_pLookAgain->setToolTip(
        tr("Looks for inputs now. Where that takes long, it is not done by itself while sound is "
           "recorded."));
    m_pLookAgain->setAccessibleDescription(m_pLookAgain->toolTip());
    m_pFallback->setHint(
        tr("No sound server answered at the start: these are the inputs that Qt finds by itself."));
    m_pModel->Retranslate();
    _ShowStatus();
}

void InputDevicesPanel::_ShowStatus()
{
    const int chosen = m_pModel->Find(m_pModel->getChosen());
    const bool isPresent = m_pModel->index(chosen).data(InputDevicesModel::ePresentRole).toBool();
    if (chosen >= 0 && !isPresent)
        m_pStatus->setRefusal(tr("The chosen input is absent; it is resumed when it returns"));
    else if (m_pModel->getPresentCount() == 0)
        m_pStatus->setRefusal(tr("No input found; connect one"));
    else if (chosen < 0)
        m_pStatus->setHint(tr("Choose an input"));
    else
        m_pStatus->setHint(tr("%n input(s)", nullptr, m_pModel->getPresentCount()));
}

#include "moc_InputDevicesPanel.cpp"
