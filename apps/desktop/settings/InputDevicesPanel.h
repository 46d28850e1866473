// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/settings/SettingsPanel.h>
#include <shared/capture/SoundBackEnd.h>

#include <QTimer>

#include <memory>

class HintLabel;
class InputDevicesModel;
class QListView;
class QPushButton;

/// The input devices, live, and the choice of one of them: by a click, Enter or the space bar. The
/// arrow keys alone choose nothing, since to open a device takes time.
///
/// Beside each stands its level, where the hosts' own back end tells it. Inputs are listened to for
/// that only as long as the panel can be seen.
class InputDevicesPanel final : public SettingsPanel
{
    Q_OBJECT

public:
    static constexpr int kLevelMs = 100;  ///< between two looks at the levels

    explicit InputDevicesPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    /// The watcher's list and the stored device, if it is present; an absent one is told by
    /// setCurrentDevice().
    void Refresh() override;

public Q_SLOTS:
    /// The device that is to be recorded, and whether it answers. Changes no setting.
    void setCurrentDevice(const QString& pName, bool pIsPresent);

    /// Says that no sound server was there when the program started.
    void setFallback(bool pIsFallback);

Q_SIGNALS:
    /// The device was chosen here; the configuration holds it already.
    void OnDeviceChosen(const QString& pName);

protected:
    void _Retranslate() override;
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;
    void hideEvent(QHideEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;

private:
    void _Choose(const QModelIndex& pIndex);
    void _LookAgain();
    void _ShowStatus();
    bool _IsSeen() const;
    void _ShowLevels();

    InputDevicesModel* m_pModel;
    QListView* m_pList;
    HintLabel* m_pStatus;
    QPushButton* m_pLookAgain;
    HintLabel* m_pFallback;
    std::unique_ptr<SoundLevels> m_levels;  ///< null while they are not shown
    QTimer m_levelTimer;
};
