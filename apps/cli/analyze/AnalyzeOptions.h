// SPDX-License-Identifier: MIT
#pragma once

#include <cli/output/OutputFormat.h>
#include <shared/settings/AnalysisOptions.h>

#include <QString>
#include <QStringList>

/// What "analyze" was asked to do.
struct AnalyzeOptions
{
    QStringList inputs;  ///< "-" = standard input
    eOutputFormat format = eBeatsFormat;
    QString output;           ///< file or folder; empty = standard output
    bool isRealOnly = false;  ///< without virtual beats
    QString click;            ///< click track to write; empty = none
    QString plot;             ///< picture to write; empty = none
    int rawRate = 0;          ///< Hz, of raw PCM input; 0 = audio files
    int rawChannels = 1;
    int jobs = 1;
    bool isLookingAhead = false;  ///< the automatic tracker decides with the whole in mind
    bool isPartial = false;       ///< what can be read of a damaged file is enough
    bool isQuiet = false;
    /// One of the processes that another one started: it tells its progress in a form for programs.
    bool isWorker = false;
    AnalysisOptions analysis;
    QStringList analysisArguments;  ///< the arguments that made analysis, to be handed to workers
};
