// SPDX-License-Identifier: MIT
#include <desktop/outputs/OutputsModel.h>

#include <algorithm>

OutputsModel::OutputsModel(QObject* pParent) : QAbstractListModel(pParent) {}

int OutputsModel::rowCount(const QModelIndex& pParent) const
{
    return pParent.isValid() ? 0 : int(m_entries.size());
}

QVariant OutputsModel::data(const QModelIndex& pIndex, int pRole) const
{
    const MonitorOutputs::Entry* pEntry = getEntry(pIndex.row());
    if (!pEntry)
        return {};
    switch (pRole) {
    case Qt::DisplayRole:
        return _Text(*pEntry);
    case Qt::AccessibleTextRole:
        return _AccessibleText(*pEntry);
    case Qt::ToolTipRole:
        return pEntry->words;
    case Qt::CheckStateRole:
        return pEntry->output.isEnabled ? Qt::Checked : Qt::Unchecked;
    case eStateRole:
        return int(pEntry->state);
    default:
        return {};
    }
}

bool OutputsModel::setData(const QModelIndex& pIndex, const QVariant& pValue, int pRole)
{
    const MonitorOutputs::Entry* pEntry = getEntry(pIndex.row());
    if (!pEntry || pRole != Qt::CheckStateRole)
        return false;
    // What is shown is what could be stored.
    Q_EMIT OnEnabledChosen(pEntry->output.name, pValue.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags OutputsModel::flags(const QModelIndex& pIndex) const
{
    return QAbstractListModel::flags(pIndex) | Qt::ItemIsUserCheckable;
}

void OutputsModel::setEntries(const std::vector<MonitorOutputs::Entry>& pEntries)
{
    const auto isSame = [](const MonitorOutputs::Entry& pLeft,
                           const MonitorOutputs::Entry& pRight) {
        return pLeft.output.name == pRight.output.name;
    };
    const bool isOtherList =
        !std::equal(m_entries.begin(), m_entries.end(), pEntries.begin(), pEntries.end(), isSame);
    if (isOtherList)
        beginResetModel();
    m_entries = pEntries;
    if (isOtherList)
        endResetModel();
    else
        Retranslate();
}

void OutputsModel::Retranslate()
{
    if (!m_entries.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

const MonitorOutputs::Entry* OutputsModel::getEntry(int pRow) const
{
    const bool isThere = pRow >= 0 && pRow < rowCount();
    return isThere ? &m_entries[std::size_t(pRow)] : nullptr;
}

int OutputsModel::Find(const QString& pName) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const auto& pEntry) {
        return pEntry.output.name.compare(pName, Qt::CaseInsensitive) == 0;
    });
    return found == m_entries.end() ? -1 : int(found - m_entries.begin());
}

QString OutputsModel::_DescribeState(MonitorOutputs::eState pState)
{
    switch (pState) {
    case MonitorOutputs::eReached:
        return tr("reached");
    case MonitorOutputs::eAway:
        return tr("away");
    case MonitorOutputs::eUseless:
        return tr("cannot be used");
    case MonitorOutputs::eOff:
        break;
    }
    return tr("off");
}

QString OutputsModel::_Text(const MonitorOutputs::Entry& pEntry)
{
    return tr("%1: %2", "output: its state").arg(pEntry.output.name, _DescribeState(pEntry.state));
}

QString OutputsModel::_AccessibleText(const MonitorOutputs::Entry& pEntry)
{
    return pEntry.words.isEmpty()
               ? _Text(pEntry)
               : tr("%1, %2", "output with its state, what there is to say of it")
                     .arg(_Text(pEntry), pEntry.words);
}

#include "moc_OutputsModel.cpp"
