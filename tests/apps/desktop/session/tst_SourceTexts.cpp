// SPDX-License-Identifier: MIT
#include <desktop/session/DeviceChoice.h>
#include <desktop/session/SourceTexts.h>
#include <desktop/window/Placement.h>

#include <QtTest>

#include <support/TestClass.h>

Q_DECLARE_METATYPE(SourceState)

namespace {

InputDevice Device(const char* pName, bool pIsDefault, int pChannels)
{
    QAudioFormat format;
    if (pChannels > 0) {
        format.setCodec(QStringLiteral("audio/pcm"));
        format.setSampleRate(48000);
        format.setSampleSize(16);
        format.setSampleType(QAudioFormat::SignedInt);
        format.setChannelCount(pChannels);
    }
    return {QLatin1String(pName), pIsDefault, format};
}

}  // namespace

/// What is said, what is listened to and where it is shown, by itself.
class tst_SourceTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void state_isSaidInPlainWords_data();
    void state_isSaidInPlainWords();
    void time_isReadable_data();
    void time_isReadable();
    void choice_prefersWhatCanBeAnalysed_data();
    void choice_prefersWhatCanBeAnalysed();
    void window_isPlaced_data();
    void window_isPlaced();
};

void tst_SourceTexts::state_isSaidInPlainWords_data()
{
    QTest::addColumn<SourceState>("state");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("isWarning");
    SourceState none;
    QTest::newRow("no device") << none << QStringLiteral("No input device") << true;
    SourceState device;
    device.kind = SourceState::eDevice;
    device.name = QStringLiteral("Deck");
    device.capture = eCaptureWaiting;
    QTest::newRow("waiting") << device << QStringLiteral("Waiting for “Deck”") << true;
    device.capture = eCaptureStarting;
    QTest::newRow("starting") << device << QStringLiteral("Opening “Deck”") << false;
    device.capture = eCaptureUnusable;
    QTest::newRow("no format") << device << QStringLiteral("no format") << true;
    device.channels = 6;
    QTest::newRow("six channels") << device << QStringLiteral("6 channels") << true;
    device.capture = eCaptureRunning;
    QTest::newRow("stopped") << device << QStringLiteral("no music") << false;
    device.isPlaying = true;
    QTest::newRow("playing") << device << QStringLiteral("Listening to “Deck”") << false;
    const std::pair<eCaptureNotice, const char*> notices[] = {
        {eNoDataNotice, "No data comes from “Deck”"},
        {eDigitalSilenceNotice, "silence"},
        {eTooQuietNotice, "Too quiet"},
        {eClippedNotice, "Clipped"}};
    for (const auto& [notice, word] : notices) {
        device.notice = notice;
        QTest::newRow(word) << device << QString::fromUtf8(word) << true;
    }
    SourceState file;
    file.kind = SourceState::eFile;
    file.name = QStringLiteral("song.flac");
    file.position = 12.9;
    file.sound = eFileHeard;
    QTest::newRow("file of unknown length")
        << file << QStringLiteral("Playing “song.flac”   0:12") << false;
    file.sound = eFileMuted;
    QTest::newRow("muted file") << file
                                << QStringLiteral("Playing “song.flac” without sound: muted   0:12")
                                << false;
    file.sound = eFileNoServer;
    QTest::newRow("no server") << file
                               << QStringLiteral("without sound: no sound server answers   0:12")
                               << false;
    file.sound = eFileNoOutput;
    QTest::newRow("no output") << file << QStringLiteral("without sound: there is no output   0:12")
                               << false;
    file.sound = eFileStuck;
    QTest::newRow("stuck output") << file
                                  << QStringLiteral(
                                         "without sound: the output takes no sound   0:12")
                                  << false;
    file.length = 61.0;
    QTest::newRow("file") << file << QStringLiteral("0:12 of 1:01") << false;
    file.kind = SourceState::eEnded;
    QTest::newRow("ended") << file << QStringLiteral("“song.flac” has ended") << false;
    file.error = QStringLiteral("is a folder");
    QTest::newRow("failed") << file << QStringLiteral("“song.flac”: is a folder") << true;
}

void tst_SourceTexts::state_isSaidInPlainWords()
{
    QFETCH(SourceState, state);
    QFETCH(QString, word);
    QFETCH(bool, isWarning);
    const SourceTexts::Text text = SourceTexts::Describe(state);
    QVERIFY2(text.text.contains(word), qPrintable(text.text));
    QCOMPARE(text.isWarning, isWarning);
}

void tst_SourceTexts::time_isReadable_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("start") << 0.0 << QStringLiteral("0:00");
    QTest::newRow("before") << -1.0 << QStringLiteral("0:00");
    QTest::newRow("a minute") << 60.0 << QStringLiteral("1:00");
    QTest::newRow("not rounded up") << 59.99 << QStringLiteral("0:59");
    QTest::newRow("ten minutes") << 605.0 << QStringLiteral("10:05");
    QTest::newRow("an hour") << 3600.0 << QStringLiteral("1:00:00");
    QTest::newRow("a night") << 36061.0 << QStringLiteral("10:01:01");
}

void tst_SourceTexts::time_isReadable()
{
    QFETCH(double, seconds);
    QTEST(SourceTexts::DescribeTime(seconds), "text");
}

void tst_SourceTexts::choice_prefersWhatCanBeAnalysed_data()
{
    QTest::addColumn<int>("defaultChannels");
    QTest::addColumn<int>("monitorChannels");
    QTest::addColumn<int>("lineChannels");
    QTest::addColumn<QString>("choice");
    const QString standard = QStringLiteral("Mic");
    QTest::newRow("default") << 1 << 1 << 1 << standard;
    QTest::newRow("no monitor if possible") << 2 << 1 << 1 << QStringLiteral("Line");
    QTest::newRow("monitor") << 2 << 1 << 2 << QStringLiteral("deck.monitor");
    QTest::newRow("none fits") << 2 << 2 << 2 << standard;
    QTest::newRow("no formats") << 0 << 0 << 0 << standard;
}

void tst_SourceTexts::choice_prefersWhatCanBeAnalysed()
{
    QFETCH(int, defaultChannels);
    QFETCH(int, monitorChannels);
    QFETCH(int, lineChannels);
    const std::vector<InputDevice> devices = {Device("deck.monitor", false, monitorChannels),
                                              Device("Line", false, lineChannels),
                                              Device("Mic", true, defaultChannels)};
    QTEST(chooseDevice(devices), "choice");
    QCOMPARE(chooseDevice({}), QString());
}

void tst_SourceTexts::window_isPlaced_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("top left") << int(TopLeft) << QPoint(100, 50);
    QTest::newRow("top right") << int(TopRight) << QPoint(700, 50);
    QTest::newRow("bottom left") << int(BottomLeft) << QPoint(100, 450);
    QTest::newRow("bottom right") << int(BottomRight) << QPoint(700, 450);
    QTest::newRow("center") << int(Center) << QPoint(400, 250);
}

void tst_SourceTexts::window_isPlaced()
{
    QFETCH(int, position);
    QFETCH(QPoint, corner);
    const QRect screen(100, 50, 1000, 600);
    const auto place = eStartingPosition(position);
    QCOMPARE(placeWindow(place, {400, 200}, screen).value(), corner);
    // Too large for the screen: its corner stays reachable.
    QCOMPARE(placeWindow(place, {4000, 2000}, screen).value(), QPoint(100, 50));
    QVERIFY(!placeWindow(Default, {400, 200}, screen));
}

AA_TEST(tst_SourceTexts, NoApplication)
#include "tst_SourceTexts.moc"
