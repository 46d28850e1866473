// SPDX-License-Identifier: MIT
#pragma once

#include <cli/analyze/AnalyzeOptions.h>
#include <cli/evaluate/EvaluateOptions.h>
#include <cli/live/LiveOptions.h>
#include <cli/outputs/OutputsOptions.h>
#include <cli/settings/SettingsOptions.h>

#include <QString>

/// What the arguments ask the program to do.
struct CommandLine
{
    enum eAction
    {
        eShowText,  ///< print text to standard output and end well: help or version
        eRefuse,    ///< print text as an error and end with the usage exit code
        eAnalyze,
        eListen,
        eDevices,
        eProfiles,
        eConfig,
        eEvaluate,
        eOutputs
    };

    eAction action = eRefuse;
    QString text;
    AnalyzeOptions analyze;
    ListenOptions listen;
    DevicesOptions devices;
    ProfilesOptions profiles;
    ConfigOptions config;
    EvaluateOptions evaluate;
    OutputsOptions outputs;
};

/// Reads the arguments, the program's name among them, in UTF-8.
CommandLine parseCommandLine(int pCount, const char* const* pArguments);
