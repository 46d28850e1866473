// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>

#include <QByteArray>

/// The plain text formats. Numbers have a decimal point, whatever the locale; lines end in a line
/// feed.

/// A comment line with a file's name, to go before the beats or the tempo of one of several files.
QByteArray makeHeading(const QString& pFile);
/// Beat times in seconds with six decimals, one a line and nothing else.
QByteArray makeBeatsText(const AnalysisResult& pResult);
/// Audacity labels: start, end (the same) and the beat's number, between tabs; " virtual" follows
/// the number of a virtual beat.
QByteArray makeLabelsText(const AnalysisResult& pResult);
/// Time instants for Sonic Visualiser's import: time,label, with the labels as above.
QByteArray makeCsvText(const AnalysisResult& pResult);
/// The MIREX line: two tempos an octave apart, the lower one first, and the share of that one,
/// which is 1 for a tempo below 68 BPM and else 0. All three are 0 when the tempo is unknown.
QByteArray makeTempoText(const AnalysisResult& pResult);
