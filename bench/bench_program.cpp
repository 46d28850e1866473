// SPDX-License-Identifier: MIT
#include "BenchSignals.h"

#include <QDataStream>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

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

/// One process for each list of arguments, side by side.
void run(benchmark::State& state, const std::vector<QStringList>& pArguments)
{
    for (auto _ : state) {
        std::vector<std::unique_ptr<QProcess>> processes;
        for (const QStringList& arguments : pArguments) {
            processes.push_back(std::make_unique<QProcess>());
            processes.back()->start(QStringLiteral(AA_PROGRAM), arguments);
        }
        for (const auto& pProcess : processes) {
            pProcess->waitForFinished();
            if (pProcess->exitStatus() != QProcess::NormalExit || pProcess->exitCode() != 0) {
                state.SkipWithError("the program failed");
                return;
            }
        }
    }
}

void version(benchmark::State& state)
{
    run(state, {{QStringLiteral("--version")}});
}

void fileOfOneSecond(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("one-second.wav"));
    const waves::Samples& track = bench::track();
    writeWave(path, waves::Samples(track.begin(), track.begin() + 44100));
    run(state, {{QStringLiteral("analyze"), path}});
}

constexpr int kFiles = 8;

/// A minute of FLAC under kFiles names, analysed by so many programs with so many jobs each.
void flacFiles(benchmark::State& state, int programs, int jobs)
{
    const QTemporaryDir folder;
    const QString original = folder.filePath(QStringLiteral("original.flac"));
    if (QProcess::execute(QStringLiteral(AA_DEMO_PROGRAM), {original}) != 0) {
        state.SkipWithError("no demo track");
        return;
    }
    const QStringList start = {QStringLiteral("analyze"),
                               QStringLiteral("--quiet"),
                               QStringLiteral("--jobs"),
                               QString::number(jobs)};
    std::vector<QStringList> arguments(size_t(programs), start);
    for (int i = 0; i < kFiles; ++i) {
        const QString name = folder.filePath(QStringLiteral("%1.flac").arg(i));
        QFile::link(original, name);
        arguments[size_t(i % programs)] << name;
    }
    run(state, arguments);
    state.counters["realtime"] = benchmark::Counter(
        60.0 * kFiles * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

bool registerAll()
{
    if (sizeof(AA_PROGRAM) > 1) {
        const auto add = [](const char* pName, int programs, int jobs) {
            benchmark::RegisterBenchmark(pName, flacFiles, programs, jobs)
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond);
        };
        add("program/8 minutes of FLAC, jobs 1", 1, 1);
        add("program/8 minutes of FLAC, jobs 2", 1, 2);
        add("program/8 minutes of FLAC, two programs", 2, 1);
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
