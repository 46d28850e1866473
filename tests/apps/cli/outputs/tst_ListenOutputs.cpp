// SPDX-License-Identifier: MIT
#include <QtTest>

#include <apps/cli/live/ListenEvents.h>
#include <apps/shared/outputs/osc/OscListener.h>
#include <apps/stage/Stage.h>
#include <support/TestClass.h>
#include <support/Text.h>

namespace {

QStringList ListenTo(const QStringList& pOptions, const char* pSeconds = "0.4")
{
    return QStringList{QStringLiteral("listen"),
                       QStringLiteral("--device"),
                       QStringLiteral("Deck"),
                       QStringLiteral("--format"),
                       QStringLiteral("beats"),
                       QStringLiteral("--duration"),
                       QString::fromLatin1(pSeconds)} +
           pOptions;
}

/// An address for --osc whose receiver counts beats.
QString CountingPlace(const OscListener& pListener)
{
    return QStringLiteral("127.0.0.1:%1/beat /b i beat").arg(pListener.getPort());
}

}  // namespace

/// The command "listen" with outputs, on the fake back end.
class tst_ListenOutputs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void outputs_getTheBeats_thatArePrinted();
    void storedOutputs_areFollowed_ifEnabledOrAskedFor_data();
    void storedOutputs_areFollowed_ifEnabledOrAskedFor();
    void states_areEvents_forPrograms();
    void outputThatCannotBeUsed_isSaid_andTheRestGoesOn();
    void wrongUsage_isRefused_data();
    void wrongUsage_isRefused();

private:
    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM)}};
};

void tst_ListenOutputs::init()
{
    m_stage.setDevices({Stage::Device("Deck", "music")});
    QFile::remove(m_stage.path(QStringLiteral("AudioAnalyzer.ini")));
}

void tst_ListenOutputs::outputs_getTheBeats_thatArePrinted()
{
    OscListener first;
    OscListener second;
    const StagedRun run = m_stage.Run(ListenTo({QStringLiteral("--osc"),
                                                CountingPlace(first),
                                                QStringLiteral("--osc"),
                                                CountingPlace(second)},
                                               "8"));
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.errors.contains("osc: sending OSC to 127.0.0.1:" +
                                QByteArray::number(first.getPort())));
    QVERIFY(run.errors.contains("osc 2: sending OSC to 127.0.0.1:" +
                                QByteArray::number(second.getPort())));
    const int beats = Lines(run.output).size();
    QVERIFY(beats >= 4);
    for (OscListener* pListener : {&first, &second}) {
        QStringList expected;
        for (int i = 0; i < beats; ++i)
            expected += QStringLiteral("/b i %1").arg(i);
        QCOMPARE(pListener->take(beats), expected.join(QLatin1Char('\n')));
    }
}

void tst_ListenOutputs::storedOutputs_areFollowed_ifEnabledOrAskedFor_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("followed");
    const auto options = [](const char* pText) {
        return QString::fromLatin1(pText).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    QTest::newRow("enabled") << options("") << QStringLiteral("on");
    QTest::newRow("asked") << options("--output OFF") << QStringLiteral("off on");
    QTest::newRow("none") << options("--no-outputs") << QString();
    QTest::newRow("one alone") << options("--no-outputs --output off") << QStringLiteral("off");
}

void tst_ListenOutputs::storedOutputs_areFollowed_ifEnabledOrAskedFor()
{
    QFETCH(QStringList, options);
    m_stage.Run("outputs add on osc 127.0.0.1:9/plain");
    m_stage.Run("outputs add off osc 127.0.0.1:9/wled");
    m_stage.Run("outputs disable off");
    const StagedRun run = m_stage.Run(ListenTo(options));
    QCOMPARE(run.exitCode, 0);
    QStringList followed;
    for (const char* pName : {"off", "on"})
        if (run.errors.contains(QByteArray(pName) + ": sending OSC"))
            followed += QString::fromLatin1(pName);
    QTEST(followed.join(QLatin1Char(' ')), "followed");
}

void tst_ListenOutputs::states_areEvents_forPrograms()
{
    const StagedRun run = m_stage.Run("listen --device Deck --format ndjson --duration 0.4 "
                                      "--osc 127.0.0.1:9/wled");
    const QList<QJsonObject> told = Select(Events(run.output), "output");
    QCOMPARE(told.size(), 1);
    QCOMPARE(told[0][QStringLiteral("name")].toString(), QStringLiteral("osc"));
    QCOMPARE(told[0][QStringLiteral("open")].toBool(), true);
    QCOMPARE(told[0][QStringLiteral("state")].toString(),
             QStringLiteral("sending OSC to 127.0.0.1:9 (UDP), wled"));
}

void tst_ListenOutputs::outputThatCannotBeUsed_isSaid_andTheRestGoesOn()
{
    QVERIFY(m_stage.Write(QStringLiteral("AudioAnalyzer.ini"),
                          "[Outputs]\nsize=2\n1\\Name=fog\n1\\Kind=smoke\n2\\Kind=osc\n"));
    const StagedRun run = m_stage.Run(ListenTo({}, "8"));
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.errors.contains("output 2 is left out"));
    QVERIFY(run.errors.contains("fog: there is no kind of output \"smoke\""));
    QVERIFY(Lines(run.output).size() >= 4);
}

void tst_ListenOutputs::wrongUsage_isRefused_data()
{
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("--osc desk:0") << QByteArray("--osc: \"desk:0\": give HOST:PORT[/PRESET]");
    QTest::newRow("--osc desk:1/no") << QByteArray("--osc: \"no\": give a preset");
    QTest::newRow("--osc=") << QByteArray("--osc: 1 required HOST:PORT[/PRESET] missing");
    QTest::newRow("--output away") << QByteArray("--output away: there is no such output");
}

void tst_ListenOutputs::wrongUsage_isRefused()
{
    QFETCH(QByteArray, reason);
    const StagedRun run =
        m_stage.Run(ListenTo(QString::fromLatin1(QTest::currentDataTag()).split(QLatin1Char(' '))));
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.contains(reason), run.errors.constData());
}

AA_TEST(tst_ListenOutputs, QCoreApplication)
#include "tst_ListenOutputs.moc"
