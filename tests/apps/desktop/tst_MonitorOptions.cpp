// SPDX-License-Identifier: MIT
#include <desktop/MonitorOptions.h>

#include <QtTest>

#include <support/TestClass.h>
#include <vector>

namespace {

MonitorOptions Parse(const QList<QByteArray>& pArguments)
{
    std::vector<const char*> values{"beat-monitor"};
    for (const QByteArray& argument : pArguments)
        values.push_back(argument.constData());
    return parseMonitorOptions(int(values.size()), values.data());
}

}  // namespace

/// The command line.
class tst_MonitorOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_runs();
    void options_areRead();
    void help_namesEveryOption();
    void version_isTold();
    void mistake_isRefusedInWords_data();
    void mistake_isRefusedInWords();
};

void tst_MonitorOptions::nothing_runs()
{
    const MonitorOptions options = Parse({});
    QCOMPARE(options.action, MonitorOptions::eRun);
    QVERIFY(options.device.isEmpty() && options.iniPath.isEmpty() && options.file.isEmpty());
    QVERIFY(!options.isLooped);
}

void tst_MonitorOptions::options_areRead()
{
    QTemporaryFile ini;
    QVERIFY(ini.open());
    const MonitorOptions options = Parse({"--device",
                                          "D\xc3\xa9"
                                          "ck",
                                          "--ini",
                                          ini.fileName().toUtf8(),
                                          "--play",
                                          "a b.wav",
                                          "--loop"});
    QCOMPARE(options.action, MonitorOptions::eRun);
    QCOMPARE(options.device, QStringLiteral("Déck"));
    QCOMPARE(options.iniPath, ini.fileName());
    QCOMPARE(options.file, QStringLiteral("a b.wav"));
    QVERIFY(options.isLooped);
}

void tst_MonitorOptions::help_namesEveryOption()
{
    const MonitorOptions options = Parse({"--help"});
    QCOMPARE(options.action, MonitorOptions::eShowText);
    for (const char* name : {"--help", "--version", "--device", "--ini", "--play", "--loop"})
        QVERIFY2(options.text.contains(QLatin1String(name)), name);
}

void tst_MonitorOptions::version_isTold()
{
    const MonitorOptions options = Parse({"--version"});
    QCOMPARE(options.action, MonitorOptions::eShowText);
    const QRegularExpression version(QStringLiteral("^beat-monitor \\d+\\.\\d+\\.\\d+\\n$"));
    QVERIFY(version.match(options.text).hasMatch());
}

void tst_MonitorOptions::mistake_isRefusedInWords_data()
{
    QTest::addColumn<QList<QByteArray>>("arguments");
    QTest::addColumn<QString>("word");
    QTest::newRow("unknown") << QList<QByteArray>{"--tempo"} << QStringLiteral("--tempo");
    QTest::newRow("no value") << QList<QByteArray>{"--device"} << QStringLiteral("--device");
    QTest::newRow("no such file") << QList<QByteArray>{"--ini", "/nowhere.ini"}
                                  << QStringLiteral("/nowhere.ini");
    QTest::newRow("loop of nothing") << QList<QByteArray>{"--loop"} << QStringLiteral("--play");
    QTest::newRow("extra") << QList<QByteArray>{"song.wav"} << QStringLiteral("song.wav");
}

void tst_MonitorOptions::mistake_isRefusedInWords()
{
    QFETCH(QList<QByteArray>, arguments);
    QFETCH(QString, word);
    const MonitorOptions options = Parse(arguments);
    QCOMPARE(options.action, MonitorOptions::eRefuse);
    QVERIFY2(options.text.contains(word), qPrintable(options.text));
}

AA_TEST(tst_MonitorOptions, NoApplication)
#include "tst_MonitorOptions.moc"
