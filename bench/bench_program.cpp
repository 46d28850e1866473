// SPDX-License-Identifier: MIT
#include "BenchSignals.h"

#include <QDataStream>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <string>

// The command line program as a user starts it. AA_PROGRAM is empty when the hosts are not built.

namespace {

void writeWave(const QString& pPath, const waves::Samples& pSamples)
{
    QFile file(pPath);
    file.open(QIODevice::WriteOnly);
    QDataStream stream(&file);
    stream.setByteOrder(QDataStream::LittleEndian);
    const quint32 bytes = static_cast<quint32>(2 * pSamples.size());
    stream.writeRawData("RIFF", 4);
    stream << quint32(36 + bytes);
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32(16) << quint16(1) << quint16(1) << quint32(44100) << quint32(88200)
           << quint16(2) << quint16(16);
    stream.writeRawData("data", 4);
    stream << bytes;
    for (const short sample : pSamples)
        stream << qint16(sample);
}

void run(benchmark::State& state, const QStringList& pArguments)
{
    for (auto _ : state) {
        QProcess process;
        process.start(QStringLiteral(AA_PROGRAM), pArguments);
        process.waitForFinished();
        if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
            state.SkipWithError("the program failed");
            return;
        }
    }
}

void version(benchmark::State& state)
{
    run(state, {QStringLiteral("--version")});
}

void fileOfOneSecond(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("one-second.wav"));
    const waves::Samples& track = bench::track();
    writeWave(path, waves::Samples(track.begin(), track.begin() + 44100));
    run(state, {QStringLiteral("analyze"), path});
}

/// A minute of FLAC under as many names as there are files.
void flacFiles(benchmark::State& state, int files, int jobs)
{
    const QTemporaryDir folder;
    const QString original = folder.filePath(QStringLiteral("0.flac"));
    if (QProcess::execute(QStringLiteral(AA_DEMO_PROGRAM), {original}) != 0) {
        state.SkipWithError("no demo track");
        return;
    }
    QStringList arguments = {QStringLiteral("analyze"),
                             QStringLiteral("--quiet"),
                             QStringLiteral("--jobs"),
                             QString::number(jobs),
                             original};
    for (int i = 1; i < files; ++i) {
        arguments << folder.filePath(QStringLiteral("%1.flac").arg(i));
        QFile::link(original, arguments.last());
    }
    run(state, arguments);
    state.counters["realtime"] = benchmark::Counter(
        60.0 * files * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

bool registerAll()
{
    if (sizeof(AA_PROGRAM) > 1) {
        for (const int jobs : {1, 2})
            benchmark::RegisterBenchmark(
                ("program/8 minutes of FLAC, jobs " + std::to_string(jobs)).c_str(),
                flacFiles,
                8,
                jobs)
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark("start-up/--version", version)
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark("start-up/file of 1 s", fileOfOneSecond)
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}

[[maybe_unused]] const bool isRegistered = registerAll();

}  // namespace
