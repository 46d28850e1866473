// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/Outputs.h>
#include <shared/outputs/kinds/OutputKinds.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <lo/lo.h>
#include <numeric>
#include <vector>

// How late ticks arrive as OSC over loopback, and what an output costs: osc_punctuality [SECONDS]
//
// A clock at 128 BPM, 24 ticks a beat, and liblo's own server, which notes when each bundle is
// there and the instant that its time tag names. The cost is the processor's time of the output's
// thread.

namespace {

using Times = std::vector<double>;  // ms

QSet<QString> Tasks()
{
    const QStringList names =
        QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return {names.begin(), names.end()};
}

/// The processor's time of these threads so far, ms.
double CostOf(const QSet<QString>& pTasks)
{
    constexpr double kNanoSeconds = 1e6;
    double cost = 0.0;
    for (const QString& task : pTasks) {
        QFile file(QStringLiteral("/proc/self/task/%1/schedstat").arg(task));
        if (file.open(QIODevice::ReadOnly))
            cost += file.readAll().split(' ').value(0).toDouble() / kNanoSeconds;
    }
    return cost;
}

int Note(const char*, const char*, lo_arg**, int, lo_message pMessage, void* pTimes)
{
    lo_timetag now;
    lo_timetag_now(&now);
    const double lateness = lo_timetag_diff(now, lo_message_get_timestamp(pMessage));
    static_cast<Times*>(pTimes)->push_back(1000.0 * lateness);
    return 0;
}

void Print(Times& pTimes, double pSeconds, double pCost)
{
    std::sort(pTimes.begin(), pTimes.end());
    const double count = double(pTimes.size());
    const double mean = std::accumulate(pTimes.begin(), pTimes.end(), 0.0) / count;
    double squares = 0.0;
    for (const double time : pTimes)
        squares += (time - mean) * (time - mean);
    std::printf(
        "%zu ticks: mean %.3f ms late, SD %.3f ms, 99 %% within %.3f ms, all within %.3f ms\n",
        pTimes.size(),
        mean,
        std::sqrt(squares / count),
        pTimes[std::size_t(0.99 * (count - 1.0))],
        pTimes.back());
    std::printf("the output's thread: %.2f %% of a core\n", pCost / pSeconds / 10.0);
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const double seconds = argc > 1 ? std::atof(argv[1]) : 30.0;
    lo_server server = lo_server_new_with_proto(nullptr, LO_UDP, nullptr);
    Times times;
    lo_server_add_method(server, "/phase", nullptr, &Note, &times);
    BeatClock clock;
    clock.HoldAt(128.0, shared::ClockThread::getTime());
    shared::ClockThread thread(clock);
    thread.Start();
    Outputs outputs(thread, [](const BeatClockState&) { return 1.0; });
    QString reason;
    const QSet<QString> before = Tasks();
    outputs.Add(QStringLiteral("osc"),
                shared::makeReceiver(QStringLiteral("osc"),
                                     QStringLiteral("127.0.0.1:%1").arg(lo_server_get_port(server)),
                                     QStringLiteral("plain; tick24 /phase f phase"),
                                     reason));
    QElapsedTimer watch;
    watch.start();
    while (double(watch.elapsed()) < 1000.0 * seconds)
        lo_server_recv_noblock(server, 50);
    // The clock's thread began anew for the output, and the first of the new ones is the output's.
    QSet<QString> added = Tasks() - before;
    const QString runner = *std::min_element(
        added.begin(), added.end(), [](const QString& pOne, const QString& pOther) {
            return pOne.toLong() < pOther.toLong();
        });
    const double cost = CostOf({runner});
    outputs.RemoveAll();
    lo_server_free(server);
    Print(times, seconds, cost);
    return 0;
}
