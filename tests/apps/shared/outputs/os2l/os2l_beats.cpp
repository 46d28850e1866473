// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/Outputs.h>
#include <shared/outputs/os2l/Os2lReceiver.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <cstdio>

// Beats for a light program: os2l_beats HOST:PORT BPM BEATS
//
// Waits until it is there, for a minute at most. script/lights tries a real one with it.

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const auto address = shared::Os2lReceiver::AddressOf(arguments.value(1));
    const double bpm = arguments.value(2).toDouble();
    const int beats = arguments.value(3).toInt();
    if (!address || bpm < 20.0 || beats < 1) {
        std::fprintf(stderr, "usage: os2l_beats HOST:PORT BPM BEATS\n");
        return 2;
    }
    BeatClock clock;
    shared::ClockThread thread(clock);
    thread.Start();
    Outputs outputs(thread, [](const BeatClockState&) { return 1.0; });
    const QString name = QStringLiteral("lights");
    QObject::connect(&outputs, &Outputs::OnStateChanged, [](const QString&, const QString& pWords) {
        std::printf("%s\n", qPrintable(pWords));
        std::fflush(stdout);
    });
    outputs.Add(name, std::make_unique<shared::Os2lReceiver>(address));
    QElapsedTimer patience;
    patience.start();
    // An output that was added this moment is told what comes behind it.
    while (!outputs.isOpen(name) || patience.elapsed() < 1000) {
        if (patience.elapsed() > 60000)
            return 1;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
    clock.HoldAt(bpm, shared::ClockThread::getTime());
    QThread::msleep(static_cast<unsigned long>((beats - 0.5) * 60000.0 / bpm));
    return 0;
}
