// SPDX-License-Identifier: MIT
#include <QtTest>

#include <apps/stage/Stage.h>
#include <support/TestClass.h>
#include <sys/stat.h>

namespace {

/// The value that "config show" gives a setting.
QString Setting(const Stage& pStage, const QString& pName)
{
    const QString text = QString::fromUtf8(pStage.Run("config show").output);
    for (const QString& line : text.split(QLatin1Char('\n')))
        if (line.startsWith(pName + QLatin1Char(' ')))
            return line.mid(pName.size()).section(QLatin1Char('#'), 0, 0).trimmed();
    return {};
}

QStringList Words(const char* pFirst, const char* pSecond, const QString& pThird)
{
    return {QLatin1String(pFirst), QLatin1String(pSecond), pThird};
}

}  // namespace

/// The commands "config" and "profiles" as programs.
class tst_ConfigProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void defaults_areShown_withoutAFile();
    void firstChange_leavesTheOthersAsTheyWereShown();
    void path_isBesideTheProgram();
    void set_isKept_data();
    void set_isKept();
    void set_isRefused_data();
    void set_isRefused();
    void reset_keepsTheProfiles_orNot();
    void damagedFile_isLeftAlone_untilReset();
    void unwritablePlace_isSaidWithItsPath();
    void deviceThatIsAway_isKept();
    void profiles_areListed();
    void profile_isAddedEditedSelectedAndRemoved();
    void profile_isRefused_data();
    void profile_isRefused();
    void builtInProfile_staysAsItIs();
    void analyze_findsTheUsersProfiles();
    void analyze_asksNoSoundServer();
    void usage_isRefused_data();
    void usage_isRefused();

private:
    QString _ConfigPath() const { return m_stage.path(QStringLiteral("AudioAnalyzer.cfg")); }

    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM)}};
};

void tst_ConfigProgram::init()
{
    QFile::remove(_ConfigPath());
}

void tst_ConfigProgram::defaults_areShown_withoutAFile()
{
    const StagedRun run = m_stage.Run("config");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, m_stage.Run("config show").output);
    QCOMPARE(run.output.count('\n'), 13);
    const QList<QPair<const char*, const char*>> defaults = {{"average-duration", "2"},
                                                             {"bpm-duration", "10"},
                                                             {"device", "none"},
                                                             {"display-speakers", "on"},
                                                             {"display-stopped", "off"},
                                                             {"gray-mode", "on"},
                                                             {"language", "none"},
                                                             {"profile", "Electro"},
                                                             {"stop-duration", "1.5"},
                                                             {"stop-threshold", "3276"},
                                                             {"threshold", "auto"},
                                                             {"top-most", "on"},
                                                             {"virtual-when-stopped", "off"}};
    for (const auto& [name, value] : defaults)
        QCOMPARE(Setting(m_stage, QLatin1String(name)), QLatin1String(value));
    QVERIFY(!QFile::exists(_ConfigPath()));
}

// The first change writes all of them, and none as it was not shown before.
void tst_ConfigProgram::firstChange_leavesTheOthersAsTheyWereShown()
{
    const QByteArray before = m_stage.Run("config").output;
    QCOMPARE(m_stage.Run("config set stop-threshold 99").exitCode, 0);
    QByteArray after = m_stage.Run("config").output;
    QCOMPARE(after.replace("  99    ", "  3276  "), before);
    QCOMPARE(m_stage.Run("config reset").exitCode, 0);
    QCOMPARE(m_stage.Run("config").output, before);
}

void tst_ConfigProgram::path_isBesideTheProgram()
{
    QCOMPARE(m_stage.Run("config path").output, _ConfigPath().toUtf8() + '\n');
}

void tst_ConfigProgram::set_isKept_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    const auto add = [](const char* pName, const char* pValue, const char* pShown = nullptr) {
        QTest::addRow("%s %s", pName, pValue)
            << pName << pValue << QString::fromUtf8(pShown ? pShown : pValue);
    };
    add("average-duration", "0.05");
    add("average-duration", "60");
    add("bpm-duration", "600");
    add("device", "Mic älter");
    add("device", "none");
    add("display-speakers", "off");
    add("display-stopped", "on");
    add("gray-mode", "No", "off");
    add("language", "pt_BR");
    add("profile", "slow", "Slow");
    add("stop-duration", "10");
    add("stop-threshold", "32767");
    add("threshold", "1234");
    add("threshold", "auto");
    add("top-most", "0", "off");
    add("virtual-when-stopped", "TRUE", "on");
    add("STOP-threshold", "5");
}

void tst_ConfigProgram::set_isKept()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    const QString key = name.toLower();
    const StagedRun run = m_stage.Run(QStringList(Words("config", "set", name)) << value);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QTEST(Setting(m_stage, key), "shown");
    // Another setting leaves it alone.
    QCOMPARE(m_stage.Run("config set bpm-duration 6").exitCode, 0);
    if (key != QLatin1String("bpm-duration"))
        QTEST(Setting(m_stage, key), "shown");
}

void tst_ConfigProgram::set_isRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("words");
    const auto add = [](const char* pName, const char* pValue, const char* pWords) {
        QTest::addRow("%s %s", pName, pValue) << pName << pValue << QByteArray(pWords);
    };
    add("average-duration", "0", "from 0.05 to 60");
    add("average-duration", "nan", "from 0.05 to 60");
    add("bpm-duration", "601", "from 0.05 to 600");
    add("device", " ", "name of a device");
    add("display-speakers", "maybe", "on or off");
    add("language", "x", "language code");
    add("language", "../../etc", "language code");
    // Kept for other hosts, and of no use here.
    add("normalization-duration", "6", "there is no setting");
    add("normalization-threshold", "5", "there is no setting");
    add("profile", "Polka", "there are: Electro, Hardcore, Slow");
    add("stop-duration", "10.5", "from 0.05 to 10");
    add("stop-threshold", "-1", "0 to 32767");
    add("stop-threshold", "1.5", "0 to 32767");
    add("threshold", "loud", "or auto");
    add("treshold", "5", "there are: threshold");
    add("zzz", "5", "there are: average-duration, bpm-duration");
}

void tst_ConfigProgram::set_isRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(QByteArray, words);
    const StagedRun run = m_stage.Run(QStringList(Words("config", "set", name)) << value);
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.contains(words), run.errors.constData());
    QVERIFY(!QFile::exists(_ConfigPath()));
}

void tst_ConfigProgram::reset_keepsTheProfiles_orNot()
{
    m_stage.Run("profiles add House --bpm 110:140 --band 20:90 --sensibility 1.25");
    m_stage.Run("profiles select House");
    m_stage.Run("config set stop-threshold 99");
    m_stage.Run("config set device Mic");
    QCOMPARE(m_stage.Run("config reset").exitCode, 0);
    QCOMPARE(Setting(m_stage, QStringLiteral("stop-threshold")), QStringLiteral("3276"));
    QCOMPARE(Setting(m_stage, QStringLiteral("device")), QStringLiteral("none"));
    QCOMPARE(Setting(m_stage, QStringLiteral("profile")), QStringLiteral("Electro"));
    QVERIFY(m_stage.Run("profiles")
                .output.contains("House         110:140 BPM  20:90 Hz  sensibility 1.25"));
    QCOMPARE(m_stage.Run("config reset --all").exitCode, 0);
    QVERIFY(!m_stage.Run("profiles").output.contains("House"));
}

void tst_ConfigProgram::damagedFile_isLeftAlone_untilReset()
{
    m_stage.Run("config set stop-threshold 99");
    QByteArray bytes = m_stage.Read(QStringLiteral("AudioAnalyzer.cfg"));
    bytes[20] = char(bytes[20] ^ 1);
    QVERIFY(m_stage.Write(QStringLiteral("AudioAnalyzer.cfg"), bytes));
    for (const char* pCommand :
         {"config show", "config set stop-threshold 5", "profiles", "profiles add X"}) {
        const StagedRun run = m_stage.Run(pCommand);
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.errors.contains(_ConfigPath().toUtf8() + " cannot be read or is damaged"));
        QCOMPARE(m_stage.Read(QStringLiteral("AudioAnalyzer.cfg")), bytes);
    }
    QCOMPARE(m_stage.Run("config reset").exitCode, 0);
    QCOMPARE(Setting(m_stage, QStringLiteral("stop-threshold")), QStringLiteral("3276"));
}

void tst_ConfigProgram::unwritablePlace_isSaidWithItsPath()
{
    // Also root cannot put a file in the place of a folder.
    QVERIFY(QDir().mkpath(_ConfigPath() + QStringLiteral("/x")));
    const StagedRun run = m_stage.Run("config reset");
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.errors.contains(_ConfigPath().toUtf8() + " cannot be written; the folder " +
                                QFileInfo(_ConfigPath()).path().toUtf8()));
    QVERIFY(QDir(_ConfigPath()).removeRecursively());
}

void tst_ConfigProgram::deviceThatIsAway_isKept()
{
    m_stage.Run("config set device Away");
    m_stage.Run("config set stop-threshold 99");
    m_stage.Run("profiles add House");
    QCOMPARE(Setting(m_stage, QStringLiteral("device")), QStringLiteral("Away"));
}

void tst_ConfigProgram::profiles_areListed()
{
    const StagedRun run = m_stage.Run("profiles list");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output,
             QByteArray("* Electro       90:175 BPM  0:75 Hz  sensibility 2  built-in\n"
                        "  Hardcore      130:250 BPM  0:75 Hz  sensibility 2  built-in\n"
                        "  Slow          70:135 BPM  0:150 Hz  sensibility 1.5  built-in\n"));
}

void tst_ConfigProgram::profile_isAddedEditedSelectedAndRemoved()
{
    QCOMPARE(m_stage.Run("profiles add House --bpm 110:140").exitCode, 0);
    QVERIFY(m_stage.Run("profiles")
                .output.contains("  House         110:140 BPM  0:75 Hz  sensibility 2\n"));
    QCOMPARE(m_stage.Run("profiles edit house --band 30: --sensibility 0.5").exitCode, 0);
    QVERIFY(m_stage.Run("profiles")
                .output.contains("  House         110:140 BPM  30: Hz  sensibility 0.5\n"));
    QCOMPARE(m_stage
                 .Run({QStringLiteral("profiles"),
                       QStringLiteral("edit"),
                       QStringLiteral("House"),
                       QStringLiteral("--name"),
                       QStringLiteral("Deep House")})
                 .exitCode,
             0);
    QCOMPARE(m_stage.Run(Words("profiles", "select", QStringLiteral("deep house"))).exitCode, 0);
    QVERIFY(m_stage.Run("profiles").output.contains("* Deep House    110:140 BPM"));
    QCOMPARE(Setting(m_stage, QStringLiteral("profile")), QStringLiteral("Deep House"));
    QCOMPARE(m_stage.Run(Words("profiles", "remove", QStringLiteral("Deep House"))).exitCode, 0);
    QCOMPARE(m_stage.Run("profiles").output.count('\n'), 3);
    QCOMPARE(Setting(m_stage, QStringLiteral("profile")), QStringLiteral("Electro"));
}

void tst_ConfigProgram::profile_isRefused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("words");
    const auto add = [](const char* pArguments, const char* pWords) {
        QTest::newRow(pArguments) << pArguments << QByteArray(pWords);
    };
    add("profiles add electro", "there is a profile \"Electro\" already");
    add("profiles add X --bpm 0.5:100", "MIN:MAX");
    add("profiles add X --bpm 100:1000", "MIN:MAX");
    add("profiles add X --bpm 100.5:120", "whole numbers");
    add("profiles add X --band 90:80", "LOW:HIGH");
    add("profiles add X --sensibility -1", "from 0 to 1000");
    add("profiles add X --name Y", "--name belongs to profiles edit");
    add("profiles edit Y --bpm 100:120", "there is no profile \"Y\"");
    add("profiles edit Mine", "give what to change");
    add("profiles edit Mine --name Slow", "there is a profile \"Slow\" already");
    add("profiles remove Y", "there is no profile");
    add("profiles select Y", "there is no profile");
}

void tst_ConfigProgram::profile_isRefused()
{
    m_stage.Run("profiles add Mine");
    const QByteArray before = m_stage.Read(QStringLiteral("AudioAnalyzer.cfg"));
    QFETCH(QString, arguments);
    QFETCH(QByteArray, words);
    const StagedRun run = m_stage.Run(arguments.split(QLatin1Char(' ')));
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.contains(words), run.errors.constData());
    QCOMPARE(m_stage.Read(QStringLiteral("AudioAnalyzer.cfg")), before);
}

void tst_ConfigProgram::builtInProfile_staysAsItIs()
{
    for (const char* pCommand : {"profiles edit Slow --bpm 80:90", "profiles remove Slow"}) {
        const StagedRun run = m_stage.Run(pCommand);
        QCOMPARE(run.exitCode, 2);
        QVERIFY(run.errors.contains("\"Slow\" is built in and stays as it is"));
    }
    QCOMPARE(m_stage.Run("profiles select Slow").exitCode, 0);
    QVERIFY(m_stage.Run("profiles").output.contains("* Slow"));
}

void tst_ConfigProgram::analyze_findsTheUsersProfiles()
{
    // A second of silence is enough to be told of an unknown profile.
    QVERIFY(m_stage.Write(QStringLiteral("quiet.raw"), QByteArray(2 * 44100, '\0')));
    const QStringList arguments = {QStringLiteral("analyze"),
                                   QStringLiteral("--raw"),
                                   QStringLiteral("44100"),
                                   QStringLiteral("--format"),
                                   QStringLiteral("json"),
                                   QStringLiteral("--profile"),
                                   QStringLiteral("house"),
                                   m_stage.path(QStringLiteral("quiet.raw"))};
    QCOMPARE(m_stage.Run(arguments).exitCode, 2);
    m_stage.Run("profiles add House --bpm 111:139");
    const StagedRun run = m_stage.Run(arguments);
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.contains("House"), run.output.constData());
    QVERIFY(run.output.contains("111") && run.output.contains("139"));
    QStringList wrong = arguments;
    wrong[6] = QStringLiteral("Polka");
    QVERIFY(m_stage.Run(wrong).errors.contains("Electro, Hardcore, Slow, House"));
}

// A sound server that does not answer: who asks the back end for its devices waits for ever.
void tst_ConfigProgram::analyze_asksNoSoundServer()
{
    const Stage stage({QStringLiteral(AUDIO_ANALYZER_PROGRAM)});
    QCOMPARE(stage.Run("profiles add House --bpm 111:139").exitCode, 0);
    QCOMPARE(stage.Run("config set device Deck").exitCode, 0);
    const QString devices = stage.path(QStringLiteral("devices.json"));
    QVERIFY(QFile::remove(devices));
    QCOMPARE(::mkfifo(QFile::encodeName(devices).constData(), 0600), 0);
    const QString quiet = stage.path(QStringLiteral("quiet.raw"));
    QVERIFY(stage.Write(QStringLiteral("quiet.raw"), QByteArray(2 * 44100, '\0')));
    for (const char* pProfile : {"House", "Polka"}) {
        const StagedRun run = stage.Run({QStringLiteral("analyze"),
                                         QStringLiteral("-q"),
                                         QStringLiteral("--raw"),
                                         QStringLiteral("44100"),
                                         QStringLiteral("--profile"),
                                         QLatin1String(pProfile),
                                         quiet});
        const bool isKnown = QByteArray(pProfile) == "House";
        QCOMPARE(run.exitCode, isKnown ? 0 : 2);
        QCOMPARE(run.errors.count('\n'), isKnown ? 0 : 1);
    }
}

void tst_ConfigProgram::usage_isRefused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("words");
    const auto add = [](const char* pArguments, const char* pWords) {
        QTest::newRow(pArguments) << pArguments << QByteArray(pWords);
    };
    add("config get", "show, set, path, reset");
    add("config set threshold", "a setting and its value");
    add("config show threshold", "takes nothing more");
    add("config show --all", "--all belongs to config reset");
    add("profiles drop X", "list, add, edit, remove, select");
    add("profiles add", "the name of one profile");
    add("profiles add Deep House", "quotes");
    add("profiles list Slow", "takes no name");
    add("profiles select Slow --bpm 80:90", "belong to profiles add and edit");
    add("devices Deck", "devices --help");
}

void tst_ConfigProgram::usage_isRefused()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, words);
    const StagedRun run = m_stage.Run(arguments.split(QLatin1Char(' ')));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(words), run.errors.constData());
}

AA_TEST(tst_ConfigProgram, QCoreApplication)
#include "tst_ConfigProgram.moc"
