// SPDX-License-Identifier: MIT
#include <cli/plot/Plot.h>
#include <cli/plot/PlotScript.h>
#include <shared/files/WholeFile.h>

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace {

constexpr int kTimeoutMs = 60000;
constexpr int kMaximalReason = 300;  ///< characters

bool isSvg(const QString& pPath)
{
    return QFileInfo(pPath).suffix().compare(QLatin1String("svg"), Qt::CaseInsensitive) == 0;
}

bool isPng(const QString& pPath)
{
    return QFileInfo(pPath).suffix().compare(QLatin1String("png"), Qt::CaseInsensitive) == 0;
}

/// gnuplot does not notice a full disk, but then the picture lacks its end.
bool isComplete(const QString& pPath)
{
    QFile file(pPath);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    file.seek(qMax<qint64>(0, file.size() - 32));
    const QByteArray tail = file.readAll();
    return tail.contains("</svg>") || tail.contains("IEND");
}

}  // namespace

bool Plot::isSupported(const QString& pPath)
{
    return isSvg(pPath) || isPng(pPath);
}

bool Plot::Write(const QString& pPath,
                 const AnalysisResult& pResult,
                 const LevelTrace& pTrace,
                 const BeliefTrace& pBeliefs)
{
    if (!isSupported(pPath))
        return _Fail(tr("Cannot draw \"%1\": name a file that ends in .svg or .png.").arg(pPath));
    WholeFile file;
    if (!file.Create(pPath))
        return _Fail(file.getError());
    const ePlotFormat format = isSvg(pPath) ? ePlotFormat::eSvg : ePlotFormat::ePng;
    if (!_Draw(PlotScript(pResult, pTrace, &pBeliefs).Make(format), file.getTemporaryPath()))
        return _Fail(tr("Cannot draw \"%1\": %2").arg(pPath, m_error));
    return file.Commit() || _Fail(file.getError());
}

bool Plot::_Draw(const QByteArray& pScript, const QString& pOutput)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("gnuplot"));
    if (program.isEmpty())
        return _Fail(tr("gnuplot is not found; install the package gnuplot-nox."));
    QProcess gnuplot;
    gnuplot.setStandardOutputFile(pOutput);
    // Neither the user's start-up file nor a file name ever reaches the script.
    gnuplot.start(program, {QStringLiteral("--default-settings"), QStringLiteral("-")});
    gnuplot.write(pScript);
    gnuplot.closeWriteChannel();
    if (!gnuplot.waitForFinished(kTimeoutMs))
        return _Fail(tr("gnuplot does not finish (%1).").arg(gnuplot.errorString()));
    if (gnuplot.exitStatus() != QProcess::NormalExit || gnuplot.exitCode() != 0) {
        const QString reason = QString::fromLocal8Bit(gnuplot.readAllStandardError()).simplified();
        return _Fail(tr("gnuplot failed: %1").arg(reason.right(kMaximalReason)));
    }
    return isComplete(pOutput) ||
           _Fail(tr("gnuplot left the picture unfinished; check the free space."));
}

bool Plot::_Fail(const QString& pError)
{
    m_error = pError;
    return false;
}
