// SPDX-License-Identifier: MIT
#pragma once

#include <cli/outputs/OutputsOptions.h>
#include <shared/outputs/OutputReceiver.h>
#include <shared/outputs/OutputSettings.h>

#include <QCoreApplication>
#include <QString>

#include <memory>

/// The command "outputs": lists, edits and tries what follows the beat.
class OutputsCommand
{
    Q_DECLARE_TR_FUNCTIONS(OutputsCommand)

public:
    /// pOptions is not owned.
    explicit OutputsCommand(const OutputsOptions& pOptions);

    /// Does the work and returns the exit code.
    int Run();

private:
    int _List() const;
    int _ListPorts() const;
    int _Test() const;
    int _Try(const StoredOutput& pOutput, std::unique_ptr<shared::OutputReceiver> pReceiver) const;
    int _Change();
    int _Refuse(const QString& pReason) const;
    int _Fail(const QString& pReason) const;
    void _Load();
    QString _Edit();
    QString _Add();
    QString _Replace();
    QString _DescribeUnknown() const;

    const OutputsOptions& m_options;  ///< not owned
    OutputSettings m_settings;
};
