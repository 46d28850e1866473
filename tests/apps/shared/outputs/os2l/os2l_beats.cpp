// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/Outputs.h>
#include <shared/outputs/os2l/Os2lReceiver.h>

#include <QCoreApplication>
#include <QTimer>

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
    bool isFound = false;
    QObject::connect(
        &outputs, &Outputs::OnStateChanged, [&](const QString&, const QString& pWords) {
            std::printf("%s\n", qPrintable(pWords));
            std::fflush(stdout);
            if (isFound || !outputs.isOpen(QStringLiteral("lights")))
                return;
            isFound = true;
            clock.HoldAt(bpm, shared::ClockThread::getTime());
            // Half a beat behind the last one.
            QTimer::singleShot(int((beats - 0.5) * 60000.0 / bpm), Qt::PreciseTimer, [] {
                QCoreApplication::exit(0);
            });
        });
    outputs.Add(QStringLiteral("lights"), std::make_unique<shared::Os2lReceiver>(address));
    QTimer::singleShot(60000 + int(beats * 60000.0 / bpm), [] { QCoreApplication::exit(1); });
    return QCoreApplication::exec();
}
