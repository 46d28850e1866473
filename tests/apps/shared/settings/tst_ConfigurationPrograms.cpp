// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <QtTest>

#include <apps/stage/Stage.h>
#include <limits>
#include <linux/capability.h>
#include <memory>
#include <support/TestClass.h>
#include <support/Text.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kAtOnce = 8;  ///< programs

/// A program for which what is read-only is so, for root as well.
class OrdinaryProcess : public QProcess
{
protected:
    void setupChildProcess() override
    {
        if (::geteuid() == 0 && ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0) != 0)
            ::_exit(99);
    }
};

}  // namespace

/// Several programs on one configuration, and what they may come upon.
class tst_ConfigurationPrograms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void changesAtOnce_areAllKept();
    void sameProfileAtOnce_isAddedOnce();
    void killedPrograms_keepNobodyOut();
    void pipe_isRefusedAtOnce_data();
    void pipe_isRefusedAtOnce();
    void link_isKept();
    void absurdValues_areSaidOnce_data();
    void absurdValues_areSaidOnce();
    void installedForAll_savesInTheUsersFolder();
    void installedForAll_withSettingsForAll_readsThem();

private:
    QString _Path() const { return m_stage.path(Text("AudioAnalyzer.cfg")); }
    QStringList _Remains() const;
    std::vector<StagedRun> _RunAtOnce(const QList<QStringList>& pCommands) const;
    StagedRun _RunOrdinary(const char* pArguments) const;

    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM)}};
};

void tst_ConfigurationPrograms::init()
{
    QFile::remove(_Path());
}

/// What programs may leave beside the configuration.
QStringList tst_ConfigurationPrograms::_Remains() const
{
    const QDir folder(QFileInfo(_Path()).path());
    return folder.entryList({Text("*.tmp"), Text("*.lock")}, QDir::AllEntries | QDir::Hidden);
}

/// Runs all commands, always some at the same time; the results in their order.
std::vector<StagedRun>
tst_ConfigurationPrograms::_RunAtOnce(const QList<QStringList>& pCommands) const
{
    std::vector<std::unique_ptr<QProcess>> processes;
    std::vector<StagedRun> runs;
    for (const QStringList& command : pCommands) {
        if (processes.size() - runs.size() == kAtOnce)
            runs.push_back(Stage::Finish(*processes[runs.size()]));
        processes.push_back(std::make_unique<QProcess>());
        m_stage.Start(*processes.back(), Text("audio-analyzer"), command);
    }
    while (runs.size() < processes.size())
        runs.push_back(Stage::Finish(*processes[runs.size()]));
    return runs;
}

void tst_ConfigurationPrograms::changesAtOnce_areAllKept()
{
    QList<QStringList> commands;
    QStringList expected;
    for (int i = 0; i < 24; ++i) {
        commands << QStringList{Text("profiles"), Text("add"), Text("P%1 ").arg(i)};
        expected << Text("P%1 ").arg(i);
    }
    const QList<QPair<QString, QString>> settings = {{Text("average-duration"), Text("3.5")},
                                                     {Text("bpm-duration"), Text("21")},
                                                     {Text("device"), Text("Deck")},
                                                     {Text("display-speakers"), Text("off")},
                                                     {Text("display-stopped"), Text("on")},
                                                     {Text("gray-mode"), Text("off")},
                                                     {Text("language"), Text("de")},
                                                     {Text("profile"), Text("Slow")},
                                                     {Text("stop-duration"), Text("1.25")},
                                                     {Text("stop-threshold"), Text("99")},
                                                     {Text("threshold"), Text("2000")},
                                                     {Text("top-most"), Text("off")}};
    for (int i = 0; i < settings.size(); ++i)
        commands.insert(4 * i,
                        {Text("config"), Text("set"), settings[i].first, settings[i].second});
    for (const StagedRun& run : _RunAtOnce(commands)) {
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.exitCode, 0);
    }
    const QByteArray profiles = m_stage.Run("profiles").output;
    for (const QString& name : expected)
        QVERIFY2(profiles.contains("  " + name.toUtf8()), qPrintable(name));
    const QString shown = QString::fromUtf8(m_stage.Run("config show").output);
    for (const auto& [name, value] : settings)
        QVERIFY2(shown.contains(QRegularExpression(
                     Text("\\b%1 +%2 ").arg(name, QRegularExpression::escape(value)))),
                 qPrintable(name));
    QCOMPARE(_Remains(), QStringList());
}

void tst_ConfigurationPrograms::sameProfileAtOnce_isAddedOnce()
{
    QList<QStringList> commands;
    for (int i = 0; i < kAtOnce; ++i)
        commands << QStringList{Text("profiles"), Text("add"), Text("Same")};
    int added = 0;
    for (const StagedRun& run : _RunAtOnce(commands)) {
        added += run.exitCode == 0;
        QVERIFY(run.exitCode == 0 || run.errors.contains("there is a profile \"Same\" already"));
    }
    QCOMPARE(added, 1);
    QCOMPARE(m_stage.Run("profiles").output.count("Same"), 1);
}

/// Whatever they were at when they ended.
void tst_ConfigurationPrograms::killedPrograms_keepNobodyOut()
{
    QCOMPARE(m_stage.Run("config set stop-threshold 77").exitCode, 0);
    for (int i = 0; i < 30; ++i) {
        QProcess process;
        m_stage.Start(process,
                      Text("audio-analyzer"),
                      {Text("config"), Text("set"), Text("threshold"), QString::number(i)});
        QVERIFY(process.waitForStarted());
        QThread::usleep(ulong(i) * 1000);
        process.kill();
        QVERIFY(process.waitForFinished());
    }
    QCOMPARE(m_stage.Run("config set bpm-duration 21").exitCode, 0);
    QCOMPARE(_Remains(), QStringList());
    const QByteArray shown = m_stage.Run("config show").output;
    QVERIFY2(shown.contains("stop-threshold           77 "), shown.constData());
    QVERIFY2(shown.contains("bpm-duration             21 "), shown.constData());
}

void tst_ConfigurationPrograms::pipe_isRefusedAtOnce_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("words");
    const QByteArray noFile = " is not a file; move it away";
    QTest::newRow("show") << Text("config show") << noFile;
    QTest::newRow("set") << Text("config set threshold 5") << noFile;
    QTest::newRow("list") << Text("profiles") << noFile;
    QTest::newRow("add") << Text("profiles add X") << noFile;
    QTest::newRow("reset") << Text("config reset") << QByteArray(" cannot be written; the folder");
    QTest::newRow("analyze") << Text("analyze --profile House x.wav") << noFile;
}

void tst_ConfigurationPrograms::pipe_isRefusedAtOnce()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, words);
    QCOMPARE(::mkfifo(QFile::encodeName(_Path()).constData(), 0600), 0);
    const StagedRun run = m_stage.Run(arguments.split(QLatin1Char(' ')));
    QVERIFY(run.exitCode > 0);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(_Path().toUtf8() + words), run.errors.constData());
    QVERIFY(!QFileInfo(_Path()).isFile() && QFileInfo::exists(_Path()));
}

void tst_ConfigurationPrograms::link_isKept()
{
    const QString target = m_stage.path(Text("mine/settings.cfg"));
    QVERIFY(QDir().mkpath(QFileInfo(target).path()));
    QVERIFY(QFile::link(Text("mine/settings.cfg"), _Path()));
    QCOMPARE(m_stage.Run("config set threshold 77").exitCode, 0);
    QVERIFY(QFileInfo(_Path()).isSymLink());
    QVERIFY(QFileInfo(target).isFile());
    QCOMPARE(m_stage.Run("config path").output, _Path().toUtf8() + '\n');
    QVERIFY(m_stage.Run("config show").output.contains("threshold                77 "));
}

void tst_ConfigurationPrograms::absurdValues_areSaidOnce_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("lines");
    QTest::newRow("show") << Text("config show") << 1;
    QTest::newRow("set") << Text("config set threshold 5") << 1;
    QTest::newRow("list") << Text("profiles") << 1;
    QTest::newRow("add") << Text("profiles add X") << 1;
    QTest::newRow("reset") << Text("config reset") << 0;
    QTest::newRow("listen") << Text("listen -q --duration 0.3 --format beats") << 1;
}

void tst_ConfigurationPrograms::absurdValues_areSaidOnce()
{
    QFETCH(QString, arguments);
    m_stage.setDevices({Stage::Device("Deck", "music")});
    Configuration absurd;
    absurd.setAverageVolumeCalculationDuration(1e300);
    absurd.setBPMCalculationDuration(std::numeric_limits<double>::infinity());
    absurd.setStopDetectionDuration(1e9);
    QVERIFY(absurd._Save(_Path()));
    const StagedRun run = m_stage.Run(arguments.split(QLatin1Char(' ')));
    // On a busy machine there may be nothing to hear yet; what matters is that it ends by itself.
    QVERIFY2(run.exitCode >= 0, run.errors.constData());
    QTEST(int(run.errors.count('\n')), "lines");
    const QByteArray words = "stop-duration 10 instead of 1e+09, average-duration 60 instead of "
                             "1e+300, bpm-duration 600 instead of inf\n";
    QVERIFY2(run.errors.isEmpty() || run.errors.endsWith(words), run.errors.constData());
}

StagedRun tst_ConfigurationPrograms::_RunOrdinary(const char* pArguments) const
{
    OrdinaryProcess process;
    m_stage.Start(process, Text("audio-analyzer"), Text(pArguments).split(QLatin1Char(' ')));
    return Stage::Finish(process);
}

void tst_ConfigurationPrograms::installedForAll_savesInTheUsersFolder()
{
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
    const QByteArray programs = QFile::encodeName(QFileInfo(_Path()).path());
    const QString mine = home.filePath(Text("audio-analyzer/AudioAnalyzer.cfg"));
    // As long as its own folder can be written, it is there.
    QCOMPARE(_RunOrdinary("config path").output, _Path().toUtf8() + '\n');
    QCOMPARE(::chmod(programs.constData(), 0555), 0);
    const StagedRun path = _RunOrdinary("config path");
    const bool isMadeByAsking = QFile::exists(QFileInfo(mine).path());
    const StagedRun set = _RunOrdinary("config set threshold 77");
    const StagedRun show = _RunOrdinary("config show");
    const bool isMine = QFileInfo(mine).isFile();
    QCOMPARE(::chmod(programs.constData(), 0755), 0);
    qunsetenv("XDG_CONFIG_HOME");
    QCOMPARE(path.output, mine.toUtf8() + '\n');
    QVERIFY(!isMadeByAsking);
    QCOMPARE(set.errors, QByteArray());
    QCOMPARE(set.exitCode, 0);
    QVERIFY(isMine);
    QVERIFY(!QFile::exists(_Path()));
    QVERIFY(show.output.contains("threshold                77 "));
}

void tst_ConfigurationPrograms::installedForAll_withSettingsForAll_readsThem()
{
    QCOMPARE(m_stage.Run("config set threshold 77").exitCode, 0);
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
    const QByteArray programs = QFile::encodeName(QFileInfo(_Path()).path());
    QCOMPARE(::chmod(programs.constData(), 0555), 0);
    const StagedRun show = _RunOrdinary("config show");
    const StagedRun set = _RunOrdinary("config set threshold 78");
    QCOMPARE(::chmod(programs.constData(), 0755), 0);
    qunsetenv("XDG_CONFIG_HOME");
    QVERIFY(show.output.contains("threshold                77 "));
    QCOMPARE(set.exitCode, 1);
    QVERIFY2(set.errors.contains(_Path().toUtf8() + " cannot be written; the folder "),
             set.errors.constData());
    QVERIFY(QDir(home.path()).isEmpty());
}

AA_TEST(tst_ConfigurationPrograms, QCoreApplication)
#include "tst_ConfigurationPrograms.moc"
