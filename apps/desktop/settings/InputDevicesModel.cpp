// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>

#include <desktop/settings/InputDevicesModel.h>

#include <QStringList>

#include <algorithm>
#include <cmath>

InputDevicesModel::InputDevicesModel(QObject* pParent) : QAbstractListModel(pParent)
{
    using M = QtAudioInputDevicesManager;
    const M* pWatcher = M::GetInstance();
    connect(pWatcher, &M::OnConnected, this, &InputDevicesModel::_OnConnected);
    connect(pWatcher, &M::OnDisconnected, this, &InputDevicesModel::_OnDisconnected);
    if (SoundBackEnd::get())
        m_rows.push_back({{kDefaultInput, false, {}}, true});
    const QList<QtAudioInputDeviceInfo> devices = QtAudioInputDeviceInfo::Enumerate();
    for (const QtAudioInputDeviceInfo& device : devices)
        if (Find(device.getDeviceName()) < 0)
            m_rows.push_back(_MakeRow(device.getDeviceName(), device.isDefault(), true));
}

// ---- What is listed -----------------------------------------------------------------------------

int InputDevicesModel::rowCount(const QModelIndex& pParent) const
{
    return pParent.isValid() ? 0 : int(m_rows.size());
}

QVariant InputDevicesModel::data(const QModelIndex& pIndex, int pRole) const
{
    if (!hasIndex(pIndex.row(), pIndex.column(), pIndex.parent()))
        return {};
    const Row& row = m_rows[std::size_t(pIndex.row())];
    switch (pRole) {
    case Qt::DisplayRole:
        return _Text(row);
    case Qt::ToolTipRole:
        return row.device.isMonitor()
                   ? tr("%1: records what this computer plays").arg(row.device.name)
                   : row.device.name;
    case eNameRole:
        return row.device.name;
    case eDefaultRole:
        return row.device.isDefault;
    case eMonitorRole:
        return row.device.isMonitor();
    case ePresentRole:
        return row.isPresent;
    case eChosenRole:
        return !m_chosen.isEmpty() && row.device.name == m_chosen;
    case Qt::AccessibleTextRole:
        return _AccessibleText(row);
    case eLevelRole:
        return row.level ? QVariant(*row.level) : QVariant();
    default:
        return {};
    }
}

QHash<int, QByteArray> InputDevicesModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractListModel::roleNames();
    names.insert(eNameRole, "name");
    names.insert(eDefaultRole, "isDefault");
    names.insert(eMonitorRole, "isMonitor");
    names.insert(ePresentRole, "isPresent");
    names.insert(eChosenRole, "isChosen");
    names.insert(eLevelRole, "level");
    return names;
}

QString InputDevicesModel::_Text(const Row& pRow) const
{
    if (pRow.device.name == kDefaultInput)
        return tr("The system's default, whichever it is");
    QStringList marks;
    if (!pRow.isPresent)
        marks.append(tr("absent"));
    if (pRow.device.isDefault)
        marks.append(tr("default"));
    if (pRow.device.isMonitor())
        marks.append(tr("monitor"));
    const QString name = _Description(pRow);
    if (marks.isEmpty())
        return name;
    return tr("%1 (%2)", "device (its marks)").arg(name, marks.join(QStringLiteral(", ")));
}

QString InputDevicesModel::_AccessibleText(const Row& pRow) const
{
    return pRow.level ? tr("%1, level %2 dB", "device").arg(_Text(pRow)).arg(*pRow.level)
                      : _Text(pRow);
}

InputDevicesModel::Row
InputDevicesModel::_MakeRow(const QString& pName, bool pIsDefault, bool pIsPresent)
{
    return {{pName, pIsDefault, {}, findSoundSource(pName)}, pIsPresent};
}

/// As the sound server describes it, unless another one has the same words.
QString InputDevicesModel::_Description(const Row& pRow) const
{
    const auto describe = [](const Row& pOther) {
        return pOther.device.source ? pOther.device.source->description : QString();
    };
    const QString words = describe(pRow);
    const auto count = std::count_if(
        m_rows.begin(), m_rows.end(), [&](const Row& pOther) { return describe(pOther) == words; });
    if (words.isEmpty())
        return pRow.device.name;
    return count == 1 ? words : tr("%1, %2", "description, name").arg(words, pRow.device.name);
}

int InputDevicesModel::Find(const QString& pName) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&pName](const Row& pRow) {
        return pRow.device.name == pName;
    });
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

int InputDevicesModel::getPresentCount() const
{
    return int(std::count_if(
        m_rows.begin(),
        m_rows.end(),
        [](const Row& pRow) { return pRow.isPresent && pRow.device.name != kDefaultInput; }));
}

// ---- The levels ---------------------------------------------------------------------------------

/// A row is told anew only when its level is another one.
void InputDevicesModel::setLevels(const std::map<QString, double>& pPeaks)
{
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const std::optional<int> level = _LevelOf(m_rows[i], pPeaks);
        if (level == m_rows[i].level)
            continue;
        m_rows[i].level = level;
        Q_EMIT dataChanged(index(int(i)), index(int(i)), {eLevelRole});
    }
}

/// It rises at once and falls slowly.
std::optional<int> InputDevicesModel::_LevelOf(const Row& pRow,
                                               const std::map<QString, double>& pPeaks) const
{
    const auto isMeant = [&pRow](const Row& pOther) {
        return pRow.device.name == kDefaultInput ? pOther.device.isDefault
                                                 : pOther.device.name == pRow.device.name;
    };
    const auto meant = std::find_if(m_rows.begin(), m_rows.end(), isMeant);
    const auto peak = meant == m_rows.end() ? pPeaks.end() : pPeaks.find(meant->device.name);
    if (peak == pPeaks.end())
        return {};
    const double decibels = 20.0 * std::log10(std::max(peak->second, 1e-9));
    const int level = int(std::lround(std::clamp(decibels, double(kLeastLevel), 0.0)));
    return pRow.level ? std::max(level, *pRow.level - kFall) : level;
}

// ---- The choice ---------------------------------------------------------------------------------

void InputDevicesModel::setChosen(const QString& pName)
{
    if (pName == m_chosen)
        return;
    const int before = Find(m_chosen);
    m_chosen = pName;
    // An absent device was listed for being chosen only.
    if (before >= 0 && !m_rows[std::size_t(before)].isPresent &&
        m_rows[std::size_t(before)].device.name != kDefaultInput)
        _Remove(before);
    else if (before >= 0)
        _Changed(before);
    const int after = Find(pName);
    if (after >= 0)
        _Changed(after);
    else if (!pName.isEmpty())
        _Append(pName, false, false);
}

void InputDevicesModel::setChosenPresent(bool pIsPresent)
{
    const int row = Find(m_chosen);
    if (row < 0 || m_rows[std::size_t(row)].isPresent == pIsPresent)
        return;
    m_rows[std::size_t(row)].isPresent = pIsPresent;
    _Changed(row);
}

// ---- The watcher --------------------------------------------------------------------------------

void InputDevicesModel::_OnConnected(const QtAudioInputDeviceInfo& pDevice)
{
    const int row = Find(pDevice.getDeviceName());
    if (row < 0) {
        _Append(pDevice.getDeviceName(), pDevice.isDefault(), true);
    } else if (!m_rows[std::size_t(row)].isPresent) {
        m_rows[std::size_t(row)].isPresent = true;
        _Changed(row);
    }
    _UpdateDefaults();
}

void InputDevicesModel::_OnDisconnected(const QtAudioInputDeviceInfo& pDevice)
{
    const int row = Find(pDevice.getDeviceName());
    if (row >= 0 && pDevice.getDeviceName() == m_chosen)
        setChosenPresent(false);
    else if (row >= 0)
        _Remove(row);
    _UpdateDefaults();
}

/// The watcher's list is the new one already when it reports.
void InputDevicesModel::_UpdateDefaults()
{
    QtAudioInputDevicesManager* pWatcher = QtAudioInputDevicesManager::GetInstance();
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const QtAudioInputDeviceInfo* pKnown = pWatcher->GetAudioInputDevice(m_rows[i].device.name);
        const bool isDefault = pKnown && pKnown->isDefault();
        if (m_rows[i].device.isDefault == isDefault)
            continue;
        m_rows[i].device.isDefault = isDefault;
        _Changed(int(i));
    }
}

void InputDevicesModel::_Append(const QString& pName, bool pIsDefault, bool pIsPresent)
{
    const int row = rowCount();
    beginInsertRows({}, row, row);
    m_rows.push_back(_MakeRow(pName, pIsDefault, pIsPresent));
    endInsertRows();
}

void InputDevicesModel::_Remove(int pRow)
{
    beginRemoveRows({}, pRow, pRow);
    m_rows.erase(m_rows.begin() + pRow);
    endRemoveRows();
}

void InputDevicesModel::_Changed(int pRow)
{
    Q_EMIT dataChanged(index(pRow), index(pRow));
}

void InputDevicesModel::Retranslate()
{
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::DisplayRole, Qt::ToolTipRole});
}

#include "moc_InputDevicesModel.cpp"
