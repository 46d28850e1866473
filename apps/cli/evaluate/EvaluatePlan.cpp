// SPDX-License-Identifier: MIT
#include <cli/evaluate/EvaluatePlan.h>
#include <cli/evaluate/EvaluationFiles.h>

#include <QDirIterator>
#include <QFileInfo>

namespace {

/// The files below pFolder whose names end in one of pSuffixes, by path.
QStringList FindFiles(const QString& pFolder, const QStringList& pSuffixes)
{
    QStringList patterns;
    for (const QString& suffix : pSuffixes)
        patterns.append(QLatin1Char('*') + suffix);
    QStringList paths;
    QDirIterator files(pFolder, patterns, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        paths.append(files.next());
    paths.sort();
    return paths;
}

bool IsTempo(const QString& pPath)
{
    return pPath.endsWith(getTempoSuffix());
}

}  // namespace

bool EvaluatePlan::Make(const QString& pReference, const QString& pEstimate)
{
    const bool isEstimateFolder = QFileInfo(pEstimate).isDir();
    if (!QFileInfo(pReference).isDir()) {
        if (isEstimateFolder && !_FindEstimates(pEstimate))
            return false;
        const QString name = getRecordingName(pReference);
        m_tasks.push_back({pReference, isEstimateFolder ? m_estimates.value(name) : pEstimate});
        return true;
    }
    if (!isEstimateFolder)
        return _Fail(tr("%1 is a folder and %2 is none; give two files or two folders")
                         .arg(pReference, pEstimate));
    if (!_FindEstimates(pEstimate))
        return false;
    // Only what is surely meant as annotated beats, since the folder holds other files as well.
    for (const QString& path : FindFiles(pReference, {QStringLiteral(".beats")}))
        m_tasks.push_back({path, m_estimates.value(getRecordingName(path))});
    return !m_tasks.empty() ||
           _Fail(tr("%1: holds no file of annotated beats, NAME.beats").arg(pReference));
}

/// Beats tell more than a tempo alone, so they are taken where both lie in the folder.
bool EvaluatePlan::_FindEstimates(const QString& pFolder)
{
    for (const QString& path :
         FindFiles(pFolder, getBeatSuffixes() + QStringList(getTempoSuffix()))) {
        QString& known = m_estimates[getRecordingName(path)];
        if (!known.isEmpty() && IsTempo(known) == IsTempo(path))
            return _Fail(tr("%1 and %2 are both estimates of one recording").arg(known, path));
        if (known.isEmpty() || IsTempo(known))
            known = path;
    }
    return true;
}

bool EvaluatePlan::_Fail(const QString& pReason)
{
    m_error = pReason;
    return false;
}
