// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/session/MonitorOutputs.h>

#include <QAbstractListModel>
#include <QString>

#include <vector>

/// The stored outputs with what there is to say of each. A row is checked while its output is
/// enabled.
///
/// Threads: the event-loop thread.
class OutputsModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum eRole
    {
        eStateRole = Qt::UserRole  ///< int, MonitorOutputs::eState
    };

    explicit OutputsModel(QObject* pParent = nullptr);

    int rowCount(const QModelIndex& pParent = QModelIndex()) const override;
    QVariant data(const QModelIndex& pIndex, int pRole) const override;
    bool setData(const QModelIndex& pIndex, const QVariant& pValue, int pRole) override;
    Qt::ItemFlags flags(const QModelIndex& pIndex) const override;

    void setEntries(const std::vector<MonitorOutputs::Entry>& pEntries);
    /// Null beyond the last row. [valid until setEntries()]
    const MonitorOutputs::Entry* getEntry(int pRow) const;
    /// -1 when there is none.
    int Find(const QString& pName) const;
    /// The language has changed.
    void Retranslate();

Q_SIGNALS:
    /// The user has checked an output, or taken its check away.
    void OnEnabledChosen(const QString& pName, bool pIsEnabled);

private:
    static QString _DescribeState(MonitorOutputs::eState pState);
    static QString _Text(const MonitorOutputs::Entry& pEntry);
    static QString _AccessibleText(const MonitorOutputs::Entry& pEntry);

    std::vector<MonitorOutputs::Entry> m_entries;
};
