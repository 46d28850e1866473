// SPDX-License-Identifier: MIT
#include <cli/CommandLine.h>
#include <cli/live/ListenTexts.h>
#include <cli/live/detail/LiveLine.h>
#include <shared/capture/InputDevices.h>

#include <QtTest>

#include <apps/cli/ParsedLine.h>
#include <support/SettingOf.h>
#include <support/TestClass.h>
#include <vector>

namespace {

QAudioFormat Format(int pRate, int pChannels, int pSize, QAudioFormat::SampleType pType)
{
    QAudioFormat format;
    format.setCodec(QStringLiteral("audio/pcm"));
    format.setSampleRate(pRate);
    format.setChannelCount(pChannels);
    format.setSampleSize(pSize);
    format.setSampleType(pType);
    return format;
}

}  // namespace

/// What the live commands print and read.
class tst_LiveTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void line_showsEverything();
    void line_hasNoTempo_beforeOneIsKnown();
    void line_fitsTheTerminal();
    void bar_coversSixtyDecibels_data();
    void bar_coversSixtyDecibels();
    void similarNames_areTheNearestFirst_data();
    void similarNames_areTheNearestFirst();
    void monitor_isToldByItsName_data();
    void monitor_isToldByItsName();
    void format_isDescribed();
    void listen_hasDefaults();
    void listen_readsEveryOption();
    void help_showsEveryCommand();
};

void tst_LiveTexts::line_showsEverything()
{
    cli::LiveValues values;
    values.isBeat = true;
    values.bpm = 127.96;
    values.beatInBar = 3;
    values.confidence = 0.916;
    values.peak = 32767;
    values.threshold = 3276;
    values.status = QStringLiteral("playing");
    values.seconds = 65.0;
    values.device = QStringLiteral("Deck");
    // -20 dB, a tenth of full scale, is two thirds of the way: the 13th of 20 places.
    QCOMPARE(
        cli::LiveLine(values, 200),
        QStringLiteral(
            "* 128.0 BPM  3   92 %  [############|#######] 32767 /  3276  playing   1:05  Deck"));
}

void tst_LiveTexts::line_hasNoTempo_beforeOneIsKnown()
{
    cli::LiveValues values;
    values.status = QStringLiteral("stopped");
    values.threshold = -1;
    QCOMPARE(cli::LiveLine(values, 200),
             QStringLiteral(
                 "    --- BPM  -    - %  [....................]     0 /     0  stopped   0:00  "));
}

void tst_LiveTexts::line_fitsTheTerminal()
{
    cli::LiveValues values;
    values.device = QString(300, QLatin1Char('x'));
    QCOMPARE(cli::LiveLine(values, 79).size(), 79);
}

void tst_LiveTexts::bar_coversSixtyDecibels_data()
{
    QTest::addColumn<int>("peak");
    QTest::addColumn<int>("filled");
    QTest::newRow("nothing") << 0 << 0;
    QTest::newRow("-60 dB") << 32 << 0;
    QTest::newRow("-30 dB") << 1036 << 10;
    QTest::newRow("-6 dB") << 16384 << 18;
    QTest::newRow("full scale") << 32767 << 20;
}

void tst_LiveTexts::bar_coversSixtyDecibels()
{
    QFETCH(int, peak);
    const QString bar = cli::LevelBar(peak, -1);
    QCOMPARE(bar.size(), 20);
    QTEST(bar.count(QLatin1Char('#')), "filled");
}

void tst_LiveTexts::similarNames_areTheNearestFirst_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("similar");
    QTest::newRow("letter case") << "usb audio"
                                 << "USB Audio|USB Audio 2";
    QTest::newRow("misspelt") << "USB Adio"
                              << "USB Audio";
    QTest::newRow("a part") << "monitor"
                            << "deck.monitor";
    QTest::newRow("blanks") << " Mic "
                            << "Mic";
    QTest::newRow("far") << "Theremin"
                         << "";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_LiveTexts::similarNames_areTheNearestFirst()
{
    QFETCH(QString, name);
    const QStringList names = {QStringLiteral("USB Audio 2"),
                               QStringLiteral("Microphone array"),
                               QStringLiteral("USB Audio"),
                               QStringLiteral("deck.monitor"),
                               QStringLiteral("Mic")};
    if (name == QLatin1String(" Mic ")) {
        QCOMPARE(findSimilarNames(name, names).first(), QStringLiteral("Mic"));
        return;
    }
    QTEST(findSimilarNames(name, names).join(QLatin1Char('|')), "similar");
}

void tst_LiveTexts::monitor_isToldByItsName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isMonitor");
    QTest::newRow("server's name") << "alsa_output.pci-0000.analog-stereo.monitor" << true;
    QTest::newRow("description") << "Monitor of Built-in Audio" << true;
    QTest::newRow("case") << "DECK.MONITOR" << true;
    QTest::newRow("input") << "alsa_input.usb" << false;
    QTest::newRow("a microphone of that brand") << "Monitoring Mic" << false;
}

void tst_LiveTexts::monitor_isToldByItsName()
{
    QFETCH(QString, name);
    const InputDevice device = {name, false, QAudioFormat()};
    QTEST(device.isMonitor(), "isMonitor");
    QVERIFY(!device.isUsable());
}

void tst_LiveTexts::format_isDescribed()
{
    QCOMPARE(listentexts::describeFormat(Format(48000, 1, 16, QAudioFormat::SignedInt)),
             QStringLiteral("48000 Hz, mono, 16 bits signed"));
    QCOMPARE(listentexts::describeFormat(Format(8000, 6, 8, QAudioFormat::UnSignedInt)),
             QStringLiteral("8000 Hz, 6 channels, 8 bits unsigned"));
    QCOMPARE(listentexts::describeFormat(QAudioFormat()), QStringLiteral("no usable format"));
}

void tst_LiveTexts::listen_hasDefaults()
{
    const CommandLine command = Parse("listen");
    QCOMPARE(command.action, CommandLine::eListen);
    const ListenOptions& options = command.listen;
    QVERIFY(options.device.isEmpty() && !options.isSaved && !options.format);
    QVERIFY(!options.showsFormat && !options.measures && !options.isQuiet);
    QCOMPARE(options.duration, 0.0);
    QVERIFY(!options.offset);
    QVERIFY(options.analysis.settings.empty());
}

void tst_LiveTexts::listen_readsEveryOption()
{
    const CommandLine command = Parse(
        "listen -d Deck --save -f NDJSON --duration 2.5 --format-info --measure -q --offset -80 "
        "--profile slow --bpm 80:120 --threshold 77");
    QCOMPARE(command.text, QString());
    const ListenOptions& options = command.listen;
    QCOMPARE(options.device, QStringLiteral("Deck"));
    QVERIFY(options.isSaved && options.showsFormat && options.measures && options.isQuiet);
    QVERIFY(options.format == eNdjsonEvents);
    QCOMPARE(options.duration, 2.5);
    QCOMPARE(*options.offset, -80.0);
    QCOMPARE(options.analysis.profile, QStringLiteral("slow"));
    QCOMPARE(options.analysis.bpm->maximal, 120.0);
    QCOMPARE(options.analysis.settings.at(SettingOf("threshold")), 77.0);
    QVERIFY(!options.isHeard);
    QVERIFY(Parse("listen --play song.flac --sound").listen.isHeard);
    QCOMPARE(Parse("listen --sound").action, CommandLine::eRefuse);
}

void tst_LiveTexts::help_showsEveryCommand()
{
    for (const char* pCommand : {"listen", "devices", "outputs", "profiles", "config"}) {
        QVERIFY(Parse("--help").text.contains(QLatin1String(pCommand)));
        const CommandLine command = Parse((QByteArray(pCommand) + " --help").constData());
        QCOMPARE(command.action, CommandLine::eShowText);
        for (const QString& line : command.text.split(QLatin1Char('\n')))
            QVERIFY2(line.size() <= 100, qPrintable(line));
    }
}

AA_TEST(tst_LiveTexts, NoApplication)
#include "tst_LiveTexts.moc"
