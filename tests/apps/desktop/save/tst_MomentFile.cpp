// SPDX-License-Identifier: MIT
#include <desktop/save/MomentFile.h>
#include <desktop/save/MomentTexts.h>
#include <desktop/session/SoundKeeper.h>
#include <desktop/window/SaveDialog.h>

#include <QCheckBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <apps/desktop/window/WindowTest.h>
#include <sndfile.h>
#include <support/IniFile.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using namespace windowtest;

namespace {

/// Checks every member and unpacks it.
QByteArray Unzip(const QString& pPath, const QString& pFolder)
{
    QProcess python;
    python.start(QStringLiteral("python3"),
                 {QStringLiteral("-c"),
                  QStringLiteral("import sys, zipfile\n"
                                 "z = zipfile.ZipFile(sys.argv[1])\n"
                                 "assert z.testzip() is None\n"
                                 "z.extractall(sys.argv[2])\n"
                                 "print(' '.join(sorted(z.namelist())))"),
                  pPath,
                  pFolder});
    // Of real time: a limit would be one of virtual time.
    python.waitForFinished(-1);
    return (python.readAllStandardOutput() + python.readAllStandardError()).trimmed();
}

QByteArray Content(const QTemporaryDir& pFolder, const char* pName)
{
    QFile file(pFolder.filePath(QLatin1String(pName)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

/// What happened, in a file.
class tst_MomentFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init()
    {
        PanelTest::Clear();
        desktoptest::ForgetSettings();
    }

    void file_hasAllMembers();
    void sound_isThere_onlyWhenTicked();
    void keeper_keepsTheLastTwoMinutes();
    void secrets_areLeftOut();
    void name_hasDateAndTime();
    void failure_isSaid_andLeavesNothing();
};

void tst_MomentFile::file_hasAllMembers()
{
    const QTemporaryDir folder;
    desktoptest::WriteWav(folder.filePath(QStringLiteral("song.wav")), desktoptest::Strokes(20.0));
    Stand stand;
    stand.session.PlayFile(folder.filePath(QStringLiteral("song.wav")), false);
    QTest::qWait(15000);
    stand.window.ShowProblem(QStringLiteral("The lamp is broken."));
    const QString path = folder.filePath(QStringLiteral("what.zip"));
    QVERIFY(stand.window.SaveMoment(path));
    QCOMPARE(Unzip(path, folder.path()),
             QByteArray("AudioAnalyzer.ini README.txt log.txt settings.json strip.json strip.png"));
    const QImage picture(folder.filePath(QStringLiteral("strip.png")));
    QCOMPARE(picture.size(), QSize(1600, 400));
    const QByteArray log = Content(folder, "log.txt");
    QVERIFY2(log.contains("  The lamp is broken.\n") && log.contains("song.wav"), log.constData());
    QVERIFY(Content(folder, "README.txt").contains("strip.json"));
    QVERIFY(!Content(folder, "README.txt").contains("sound.flac"));
    const QJsonObject settings = QJsonDocument::fromJson(Content(folder, "settings.json")).object();
    QCOMPARE(settings[QStringLiteral("tracker")].toString(), QStringLiteral("automatic"));
    QVERIFY(settings[QStringLiteral("settings")].toObject().contains(QStringLiteral("threshold")));
    const QJsonObject strip = QJsonDocument::fromJson(Content(folder, "strip.json")).object();
    const QJsonArray columns = strip[QStringLiteral("columns")].toArray();
    // Twenty a second, since the window was made.
    QVERIFY2(columns.size() > 290 && columns.size() < 310, QByteArray::number(columns.size()));
    const QJsonObject last = columns.last().toObject();
    QVERIFY(last[QStringLiteral("playing")].toBool());
    QVERIFY(std::fabs(last[QStringLiteral("bpm")].toDouble() - 128.0) < 2.0);
    QVERIFY(std::fabs(last[QStringLiteral("time")].toDouble() + 0.35) < 0.1);
    QCOMPARE(last[QStringLiteral("beliefs")].toArray().size(),
             strip[QStringLiteral("tempi")].toArray().size());
    QVERIFY(strip[QStringLiteral("beats")].toArray().size() >= 10);
    QVERIFY(strip[QStringLiteral("said")].toArray().size() >= 2);
}

void tst_MomentFile::sound_isThere_onlyWhenTicked()
{
    const QTemporaryDir folder;
    const std::vector<qint16> song = desktoptest::Strokes(4.0);
    desktoptest::WriteWav(folder.filePath(QStringLiteral("song.wav")), song);
    Stand stand;
    SaveDialog dialog(stand.session.getSound());
    auto* pBox = dialog.findChild<QCheckBox*>(QStringLiteral("with-sound"));
    QVERIFY(!pBox->isChecked());
    pBox->click();
    QVERIFY(stand.session.getSound().isOn());
    stand.session.PlayFile(folder.filePath(QStringLiteral("song.wav")), false);
    QTRY_COMPARE_WITH_TIMEOUT(stand.session.getSource().kind, SourceState::eEnded, 20000);
    const QString path = folder.filePath(QStringLiteral("what.zip"));
    QVERIFY(stand.window.SaveMoment(path));
    QVERIFY(Unzip(path, folder.path()).contains("sound.flac"));
    QVERIFY(Content(folder, "README.txt").contains("sound.flac"));
    SF_INFO info = {};
    const QByteArray sound = QFile::encodeName(folder.filePath(QStringLiteral("sound.flac")));
    SNDFILE* pFile = sf_open(sound.constData(), SFM_READ, &info);
    QVERIFY(pFile);
    std::vector<qint16> samples(std::size_t(info.frames), 0);
    QCOMPARE(sf_read_short(pFile, samples.data(), info.frames), info.frames);
    sf_close(pFile);
    QCOMPARE(info.channels, 1);
    QCOMPARE(samples, song);
    pBox->click();
    QCOMPARE(stand.session.getSound().getSeconds(), 0.0);
    QVERIFY(stand.session.getSound().MakeFlac().isEmpty());
}

void tst_MomentFile::keeper_keepsTheLastTwoMinutes()
{
    const QTemporaryDir folder;
    desktoptest::WriteWav(folder.filePath(QStringLiteral("song.wav")), desktoptest::Strokes(1.0));
    Stand stand;
    stand.session.getSound().setOn(true);
    stand.session.PlayFile(folder.filePath(QStringLiteral("song.wav")), true);
    QTest::qWait(130000);
    QCOMPARE(stand.session.getSound().getSeconds(), 120.0);
}

void tst_MomentFile::secrets_areLeftOut()
{
    const QByteArray ini = "[MainWindow]\nBPM=true\nMonkeys=3\n[Outputs]\n1\\password=hunter2\n"
                           "1\\Token=abc\n1\\address=osc://me:pw@stage:9000/x\n";
    QCOMPARE(moment::withoutSecrets(ini),
             QByteArray("[MainWindow]\nBPM=true\nMonkeys=3\n[Outputs]\n1\\password=\n"
                        "1\\Token=\n1\\address=osc://stage:9000/x\n"));
}

void tst_MomentFile::name_hasDateAndTime()
{
    QCOMPARE(MomentFile::MakeName(QDateTime({2026, 3, 4}, {5, 6, 7})),
             QStringLiteral("beat-monitor 2026-03-04 05-06-07.zip"));
}

void tst_MomentFile::failure_isSaid_andLeavesNothing()
{
    const QTemporaryDir folder;
    Stand stand;
    QVERIFY(!stand.window.SaveMoment(folder.filePath(QStringLiteral("nowhere/what.zip"))));
    QVERIFY2(stand.window.getProblem().contains(QStringLiteral("nowhere")),
             qPrintable(stand.window.getProblem()));
    QVERIFY(QDir(folder.path()).isEmpty());
    // On a full device no part of a file is left.
    MomentFile file(stand.session);
    QVERIFY(!file.Save(QStringLiteral("/dev/full"), QImage()));
    QVERIFY(!file.getError().isEmpty());
}

AA_TEST(tst_MomentFile, InVirtualTime<QApplication>)
#include "tst_MomentFile.moc"
