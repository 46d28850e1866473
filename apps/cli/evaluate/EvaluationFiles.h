// SPDX-License-Identifier: MIT
#pragma once

#include <cli/evaluate/BeatEvaluation.h>

#include <QString>
#include <QStringList>

/// The text files that an evaluation reads. Each function returns what is wrong with the file, its
/// name and line in front, or an empty text. [allocates]

/// Beats, one a line, seconds first and ascending. Further columns behind blanks, commas or
/// semicolons, empty lines and comments behind "#" are passed over. "-" = standard input.
QString readBeatFile(const QString& pPath, BeatTimes& pBeats);

/// A tempo in BPM, or two of them and the share of the first, of which the stronger one counts.
QString readTempoFile(const QString& pPath, double& pTempo);

/// The beats in pPath, and what NAME.json beside it says of them, when there is one: "genre",
/// "bpm", "tempo_range" [BPM, BPM], "duration" (seconds), "ignore" [[seconds, seconds], ...] and
/// "changes" [seconds, ...]; anything else is passed over.
QString readReference(const QString& pPath, BeatReference& pReference, QString& pGenre);

/// The file's name without folder and without the suffix of a file of beats or tempos.
QString getRecordingName(const QString& pPath);
/// The suffixes of those files, with the dot, the longer ones first.
const QStringList& getBeatSuffixes();
/// That of a file that holds a tempo alone.
QString getTempoSuffix();
