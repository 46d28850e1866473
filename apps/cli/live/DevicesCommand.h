// SPDX-License-Identifier: MIT
#pragma once

#include <cli/live/LiveOptions.h>
#include <cli/output/OutputFile.h>

#include <QCoreApplication>

struct InputDevice;

/// The command "devices": lists the input devices, and watches them.
class DevicesCommand
{
    Q_DECLARE_TR_FUNCTIONS(DevicesCommand)

public:
    /// pOptions is not owned.
    explicit DevicesCommand(const DevicesOptions& pOptions);

    /// Does the work and returns the exit code.
    int Run();

private:
    void _List();
    void _Watch();
    void _Write(const QString& pLine);
    QString _Describe(const InputDevice& pDevice, int pWidth) const;

    const DevicesOptions& m_options;  ///< not owned
    OutputFile m_output;
};
