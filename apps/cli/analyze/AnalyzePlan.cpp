// SPDX-License-Identifier: MIT
#include <cli/analyze/AnalyzePlan.h>
#include <cli/output/ClickTrack.h>
#include <cli/output/OutputFile.h>
#include <cli/plot/Plot.h>

#include <QDir>
#include <QFileInfo>
#include <QMap>

namespace {

bool IsStandardStream(const QString& pPath)
{
    return pPath == QLatin1String("-");
}

/// Where several outputs go, or one whose name is to be derived; empty when pOptions names none.
QString FolderOf(const AnalyzeOptions& pOptions)
{
    const bool isFolder = pOptions.output.endsWith(QLatin1Char('/')) ||
                          QFileInfo(pOptions.output).isDir() ||
                          (pOptions.inputs.size() > 1 && !OutputFile::isStream(pOptions.output));
    return !pOptions.output.isEmpty() && isFolder ? pOptions.output : QString();
}

/// Name of the output for an input, without the folder.
QString DerivedName(const QString& pInput, eOutputFormat pFormat)
{
    const QFileInfo info(pInput);
    QString base = IsStandardStream(pInput) ? QStringLiteral("stdin") : info.completeBaseName();
    if (base.isEmpty())
        base = info.fileName();
    return base + getOutputFormat(pFormat).suffix;
}

/// The same for two paths that lead to the same file.
QString Identity(const QString& pPath)
{
    const QFileInfo info(pPath);
    const QString folder = QFileInfo(info.absolutePath()).canonicalFilePath();
    if (info.exists())
        return info.canonicalFilePath();
    return folder.isEmpty() ? QDir::cleanPath(info.absoluteFilePath())
                            : QDir(folder).filePath(info.fileName());
}

}  // namespace

bool AnalyzePlan::Make(const AnalyzeOptions& pOptions)
{
    m_folder = FolderOf(pOptions);
    if (!_CheckInputs(pOptions) || !_CheckExtras(pOptions) || !_CheckStream(pOptions))
        return false;
    _MakeTasks(pOptions);
    return _CheckOutputs(pOptions);
}

bool AnalyzePlan::_CheckInputs(const AnalyzeOptions& pOptions)
{
    if (pOptions.inputs.count(QStringLiteral("-")) > 1)
        return _Fail(tr("standard input can only be read once; name - only once"));
    if (pOptions.inputs.contains(QString()))
        return _Fail(tr("an input has an empty name; name a file"));
    return true;
}

bool AnalyzePlan::_CheckExtras(const AnalyzeOptions& pOptions)
{
    const bool isSingle = pOptions.inputs.size() == 1;
    if (!isSingle && !pOptions.click.isEmpty())
        return _Fail(tr("--click makes one click track; name one input only"));
    if (!isSingle && !pOptions.plot.isEmpty())
        return _Fail(tr("--plot makes one picture; name one input only"));
    if (!pOptions.click.isEmpty() && !ClickTrack::isSupported(pOptions.click))
        return _Fail(tr("--click %1: name a file that ends in .wav").arg(pOptions.click));
    if (!pOptions.plot.isEmpty() && !Plot::isSupported(pOptions.plot))
        return _Fail(tr("--plot %1: name a file that ends in .svg or .png").arg(pOptions.plot));
    return true;
}

bool AnalyzePlan::_CheckStream(const AnalyzeOptions& pOptions)
{
    if (pOptions.inputs.size() == 1)
        return true;
    const OutputFormatInfo& format = getOutputFormat(pOptions.format);
    if (m_folder.isEmpty() && !format.isSequence) {
        return _Fail(
            tr("several files do not fit into one %1 document; use -o DIR").arg(format.name));
    }
    if (QFileInfo(m_folder).isFile()) {
        return _Fail(
            tr("-o %1: is a file, but several inputs need a folder; use -o DIR").arg(m_folder));
    }
    return true;
}

void AnalyzePlan::_MakeTasks(const AnalyzeOptions& pOptions)
{
    const bool isOneOfMany = pOptions.inputs.size() > 1 || pOptions.isWorker;
    const QString stream = pOptions.output.isEmpty() ? QStringLiteral("-") : pOptions.output;
    for (const QString& input : pOptions.inputs) {
        AnalyzeTask task;
        task.input = input;
        task.output = m_folder.isEmpty()
                          ? stream
                          : QDir(m_folder).filePath(DerivedName(input, pOptions.format));
        task.isTagged = isOneOfMany;
        task.hasHeading =
            pOptions.inputs.size() > 1 && m_folder.isEmpty() && pOptions.format != eNdjsonFormat;
        m_tasks.push_back(task);
    }
}

/// No file may be written twice, and no input may be written to.
bool AnalyzePlan::_CheckOutputs(const AnalyzeOptions& pOptions)
{
    QMap<QString, QString> writers;  // identity of a file to what stands in its way
    for (const QString& input : pOptions.inputs)
        if (!IsStandardStream(input))
            writers.insert(Identity(input), tr("it is an input"));
    std::vector<std::pair<QString, QString>> outputs;  // path and what makes it
    for (const AnalyzeTask& task : m_tasks)
        outputs.emplace_back(task.output, tr("%1 is written there").arg(task.input));
    outputs.emplace_back(pOptions.click, tr("--click is written there"));
    outputs.emplace_back(pOptions.plot, tr("--plot is written there"));
    for (const auto& [path, maker] : outputs) {
        if (path.isEmpty() || OutputFile::isStream(path))
            continue;
        const QString identity = Identity(path);
        if (writers.contains(identity)) {
            return _Fail(tr("%1 cannot be written: %2; choose another name or folder")
                             .arg(path, writers.value(identity)));
        }
        writers.insert(identity, maker);
    }
    return true;
}

bool AnalyzePlan::_Fail(const QString& pReason)
{
    m_error = pReason;
    return false;
}
