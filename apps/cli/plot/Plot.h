// SPDX-License-Identifier: MIT
#pragma once

#include <cli/plot/BeliefTrace.h>
#include <cli/plot/LevelTrace.h>
#include <shared/beats/AnalysisResult.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

/// Draws an analysis to a picture by way of the program gnuplot.
///
/// The picture appears whole or not at all. Write() waits for gnuplot, some tenths of a second.
class Plot
{
    Q_DECLARE_TR_FUNCTIONS(Plot)

public:
    /// Draws to pPath, which must end in .svg or .png; pBeliefs, if they are the automatic
    /// tracker's, else empty. False when that failed: getError() says why and what to do. Needs no
    /// event loop.
    bool Write(const QString& pPath,
               const AnalysisResult& pResult,
               const LevelTrace& pTrace,
               const BeliefTrace& pBeliefs = {});
    /// One sentence on the last failure.
    QString getError() const { return m_error; }

    /// Whether Write() can write to a path of that name.
    static bool isSupported(const QString& pPath);

private:
    bool _Draw(const QByteArray& pScript, const QString& pOutput);
    bool _Fail(const QString& pError);

    QString m_error;
};
