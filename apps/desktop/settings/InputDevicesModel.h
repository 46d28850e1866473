// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/InputDevices.h>

#include <QAbstractListModel>
#include <QString>

#include <map>
#include <optional>
#include <vector>

class QtAudioInputDeviceInfo;

/// The input devices as the device watcher reports them, each name once, with the chosen one among
/// them whether it is present or not.
///
/// To ask the machine for its devices may take a tenth of a second. The model does so once, when it
/// is made; from then on the watcher's signals and its list are enough.
///
/// Threads: the event-loop thread.
class InputDevicesModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum eRole
    {
        eNameRole = Qt::UserRole,  ///< QString, as the device is opened
        eDefaultRole,              ///< bool, the default input of the system
        eMonitorRole,              ///< bool, records what the machine plays
        ePresentRole,              ///< bool
        eChosenRole,               ///< bool
        eLevelRole                 ///< int, dBFS from kLeastLevel to 0; invalid = unknown
    };

    static constexpr int kLeastLevel = -60;  ///< dBFS; whatever is quieter is shown there
    static constexpr int kFall = 6;          ///< dB by which a level may fall from one to the next

    explicit InputDevicesModel(QObject* pParent = nullptr);

    int rowCount(const QModelIndex& pParent = QModelIndex()) const override;
    QVariant data(const QModelIndex& pIndex, int pRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// The row of exactly that name; -1 when it is not listed.
    int Find(const QString& pName) const;
    /// Empty while none is chosen.
    const QString& getChosen() const { return m_chosen; }
    /// Chooses the device of exactly that name, listed or not; empty = none.
    void setChosen(const QString& pName);
    /// The chosen device answers, or it does not, whatever the watcher says.
    void setChosenPresent(bool pIsPresent);
    int getPresentCount() const;
    /// How loud the devices are, 0 to 1, by their names; nothing is known of others.
    void setLevels(const std::map<QString, double>& pPeaks);
    /// The language has changed.
    void Retranslate();

private:
    struct Row
    {
        InputDevice device;  ///< its format is not asked for
        bool isPresent;
        std::optional<int> level = {};  ///< dBFS; none = unknown
    };

    void _OnConnected(const QtAudioInputDeviceInfo& pDevice);
    void _OnDisconnected(const QtAudioInputDeviceInfo& pDevice);
    void _Append(const QString& pName, bool pIsDefault, bool pIsPresent);
    void _Remove(int pRow);
    void _UpdateDefaults();
    void _Changed(int pRow);
    static Row _MakeRow(const QString& pName, bool pIsDefault, bool pIsPresent);
    QString _Description(const Row& pRow) const;
    QString _Text(const Row& pRow) const;
    QString _AccessibleText(const Row& pRow) const;
    std::optional<int> _LevelOf(const Row& pRow, const std::map<QString, double>& pPeaks) const;

    std::vector<Row> m_rows;
    QString m_chosen;
};
