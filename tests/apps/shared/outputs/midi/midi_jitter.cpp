// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/Outputs.h>
#include <shared/outputs/midi/MidiClock.h>
#include <shared/outputs/midi/MidiPorts.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <apps/shared/outputs/midi/JackServer.h>
#include <atomic>
#include <cmath>
#include <cstdio>

// How evenly MIDI clock arrives: midi_jitter [SECONDS [FRAMES [BPM...]]]
//
// A JACK server without hardware and of its own, a beat clock held at each tempo, and a monitor
// that writes down at which frame each message arrives. Drift: the last clock against the first one
// and the tempo, by the system's monotonic clock.

namespace {

constexpr int kSettling = 24;  // clocks

/// Counts the clocks that a port is given.
class CountingPort : public shared::MidiPort
{
public:
    explicit CountingPort(std::atomic<int>& pClocks)
        : m_port(shared::MakeMidiPort(QStringLiteral("jack:monitor"))), m_clocks(pClocks)
    {
    }
    bool Open() override { return m_port->Open(); }
    void Close() override { m_port->Close(); }
    bool Send(const shared::MidiEvent& pEvent) override
    {
        m_clocks += pEvent.message.bytes[0] == 0xF8 ? 1 : 0;
        return m_port->Send(pEvent);
    }
    bool isThere() const override { return m_port->isThere(); }
    QString getState() const override { return m_port->getState(); }

private:
    const std::unique_ptr<shared::MidiPort> m_port;
    std::atomic<int>& m_clocks;  ///< not owned
};

struct Measured
{
    int count = 0;  ///< clocks
    bool startsFirst = false;
    double mean = 0.0;  ///< ms between two
    double deviation = 0.0;
    double least = 1e9;
    double most = 0.0;
    double drift = 0.0;  ///< ms
};

bool Await(const std::function<bool()>& pCondition)
{
    QElapsedTimer clock;
    clock.start();
    bool isTrue = false;
    while (!(isTrue = pCondition()) && clock.elapsed() < 60000) {
        QCoreApplication::processEvents();
        QThread::msleep(2);
    }
    return isTrue;
}

Measured Evaluate(JackMonitor& pMonitor, double pBPM)
{
    Measured measured;
    const double interval = 60000.0 / 24.0 / pBPM;
    JackMonitor::Event event = {};
    jack_nframes_t last = 0;
    double sum = 0.0;
    double squares = 0.0;
    const double rate = jack_get_sample_rate(pMonitor.getClient()) / 1000.0;
    double first = 0.0;
    bool hasStarted = false;
    while (pMonitor.Take(event)) {
        hasStarted = hasStarted || event.bytes[0] == 0xFA;
        if (event.bytes[0] != 0xF8)
            continue;
        // The first beat falls due the moment the clock is set going.
        if (++measured.count <= kSettling) {
            measured.startsFirst = measured.count == 1 ? hasStarted : measured.startsFirst;
            first = event.time;
        } else {
            const double distance = double(event.frame - last) / rate;
            sum += distance;
            squares += (distance - interval) * (distance - interval);
            measured.least = std::min(measured.least, distance);
            measured.most = std::max(measured.most, distance);
        }
        last = event.frame;
        measured.drift = event.time - first - (measured.count - kSettling) * interval;
    }
    const int distances = std::max(measured.count - kSettling, 1);
    measured.mean = sum / distances;
    measured.deviation = std::sqrt(squares / distances);
    return measured;
}

bool Measure(JackMonitor& pMonitor, double pBPM, int pSeconds)
{
    std::atomic<int> sent{0};
    BeatClock clock;
    shared::ClockThread thread(clock);
    thread.Start();
    Outputs outputs(thread, [](const BeatClockState&) { return 1.0; });
    const QString name = QStringLiteral("clock");
    outputs.Add(name,
                std::make_unique<shared::MidiClock>(std::make_unique<CountingPort>(sent), false));
    if (!Await([&] { return outputs.isOpen(name); }))
        return false;
    clock.HoldAt(pBPM, shared::ClockThread::getTime());
    QThread::sleep(static_cast<unsigned long>(pSeconds));
    outputs.RemoveAll();
    const Measured it = Evaluate(pMonitor, pBPM);
    std::printf("%6.1f | %6d | %7d | %-8s | %7.3f | %6.3f | %8.3f | %8.3f | %+7.3f\n",
                pBPM,
                sent.load(),
                it.count,
                it.startsFirst ? "yes" : "NO",
                it.mean,
                it.deviation,
                it.least,
                it.most,
                it.drift);
    std::fflush(stdout);
    return it.count > kSettling;
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int seconds = arguments.value(1, QStringLiteral("20")).toInt();
    JackServer server(arguments.value(2, QStringLiteral("1024")).toInt(), true);
    server.Start();
    JackMonitor monitor;
    if (!Await([&] { return monitor.Open(); })) {
        std::fprintf(stderr, "no JACK server: is jackd installed?\n");
        return 1;
    }
    std::printf(
        "   BPM | clocks | arrived | FA first | mean ms | SD ms | least ms | most ms | drift ms\n");
    QStringList tempos = arguments.mid(3);
    if (tempos.isEmpty())
        tempos = QStringList{QStringLiteral("60"), QStringLiteral("128"), QStringLiteral("200")};
    for (const QString& bpm : tempos)
        if (!Measure(monitor, bpm.toDouble(), seconds))
            return 1;
    return 0;
}
