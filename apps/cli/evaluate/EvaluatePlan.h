// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

/// A file of annotated beats and what was estimated for it.
struct EvaluateTask
{
    QString reference;
    QString estimate;  ///< empty = there is none
};

/// Which estimate belongs to which annotated beats: two files, or those of one name in two folders.
class EvaluatePlan
{
    Q_DECLARE_TR_FUNCTIONS(EvaluatePlan)

public:
    /// False when the two do not go together; getError() says why.
    bool Make(const QString& pReference, const QString& pEstimate);

    /// In the order of the references' paths.
    const std::vector<EvaluateTask>& getTasks() const { return m_tasks; }
    QString getError() const { return m_error; }

private:
    bool _FindEstimates(const QString& pFolder);
    bool _Fail(const QString& pReason);

    std::vector<EvaluateTask> m_tasks;
    QHash<QString, QString> m_estimates;  ///< name of a recording to the estimate's path
    QString m_error;
};
