// SPDX-License-Identifier: MIT
#include <demo/SceneFiles.h>
#include <shared/files/AudioFileReader.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <support/TestClass.h>

/// Scenes on disk: the recording, its beats and what is known of it; and joined recordings.
class tst_SceneFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void scene_isThreeFiles();
    void noise_hasNoBeats();
    void joined_areOneBehindTheOther();
    void joined_mustHaveOneRate();
    void joined_mustExist();
    void program_tellsWhatIsWrong();

private:
    QString _Path(const char* pName) const { return m_folder->filePath(QLatin1String(pName)); }
    QByteArray _Bytes(const char* pName) const;
    QJsonObject _Json(const char* pName) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

Scene Song(const char* pName, int pRate, double pDuration)
{
    Scene scene;
    scene.name = QLatin1String(pName);
    scene.genre = QStringLiteral("test");
    scene.sampleRate = pRate;
    scene.duration = pDuration;
    scene.bpm = 120.0;
    scene.deviation = 0.1;
    scene.beats = {0.5, 1.0};
    scene.gaps = {{1.25, 1.5}};
    scene.changes = {1.5};
    scene.notes = {{0.5, eSceneKick, 1.0, 0}, {1.0, eSceneBass, 1.0, 40}};
    return scene;
}

quint64 CountFrames(const QString& pPath)
{
    AudioFileReader reader;
    return reader.Open(pPath) ? reader.getFrameCount() : 0;
}

}  // namespace

void tst_SceneFiles::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_SceneFiles::cleanup()
{
    m_folder.reset();
}

QByteArray tst_SceneFiles::_Bytes(const char* pName) const
{
    QFile file(_Path(pName));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

QJsonObject tst_SceneFiles::_Json(const char* pName) const
{
    return QJsonDocument::fromJson(_Bytes(pName)).object();
}

void tst_SceneFiles::scene_isThreeFiles()
{
    QCOMPARE(writeScene(m_folder->path(), Song("song", 22050, 2.0)), QString());
    QCOMPARE(CountFrames(_Path("song.flac")), quint64(44100));
    QCOMPARE(_Bytes("song.beats"), QByteArray("0.500000\n1.000000\n"));
    const QJsonObject json = _Json("song.json");
    QCOMPARE(json[QStringLiteral("genre")].toString(), QStringLiteral("test"));
    QCOMPARE(json[QStringLiteral("bpm")].toDouble(), 120.0);
    QCOMPARE(json[QStringLiteral("duration")].toDouble(), 2.0);
    QCOMPARE(json[QStringLiteral("tempo_range")].toArray(), (QJsonArray{108.0, 132.0}));
    QCOMPARE(json[QStringLiteral("ignore")].toArray(), (QJsonArray{QJsonArray{1.25, 1.5}}));
    QCOMPARE(json[QStringLiteral("changes")].toArray(), QJsonArray{1.5});
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 3);
}

void tst_SceneFiles::noise_hasNoBeats()
{
    QCOMPARE(writeSceneNoises(m_folder->path(), 1.5), QString());
    QCOMPARE(QDir(m_folder->path()).entryList({QStringLiteral("*.flac")}).size(), 6);
    QCOMPARE(CountFrames(_Path("hiss.flac")), quint64(66150));
    QCOMPARE(_Bytes("hiss.beats"), QByteArray());
    QCOMPARE(_Json("hiss.json")[QStringLiteral("duration")].toDouble(), 1.5);
    QCOMPARE(_Json("hiss.json")[QStringLiteral("genre")].toString(), QStringLiteral("no music"));
    QVERIFY(!_Json("hiss.json").contains(QStringLiteral("bpm")));
}

void tst_SceneFiles::joined_areOneBehindTheOther()
{
    QCOMPARE(writeScene(m_folder->path(), Song("a", 8000, 2.0)), QString());
    QCOMPARE(writeScene(m_folder->path(), Song("b", 8000, 3.5)), QString());
    std::vector<double> starts;
    const QStringList inputs = {_Path("a.flac"), _Path("b.flac"), _Path("a.flac")};
    QCOMPARE(joinRecordings(_Path("joined.flac"), inputs, starts), QString());
    QCOMPARE(starts, (std::vector<double>{0.0, 2.0, 5.5, 7.5}));
    AudioFileReader joined;
    AudioFileReader second;
    QVERIFY(joined.Open(_Path("joined.flac")) && second.Open(_Path("b.flac")));
    QCOMPARE(joined.getFrameCount(), quint64(60000));
    std::vector<qint16> all(60000);
    std::vector<qint16> part(28000);
    QCOMPARE(joined.Read(all.data(), all.size()), all.size());
    QCOMPARE(second.Read(part.data(), part.size()), part.size());
    QVERIFY(std::equal(part.begin(), part.end(), all.begin() + 16000));
}

void tst_SceneFiles::joined_mustHaveOneRate()
{
    QCOMPARE(writeScene(m_folder->path(), Song("a", 8000, 2.0)), QString());
    QCOMPARE(writeScene(m_folder->path(), Song("b", 11025, 2.0)), QString());
    std::vector<double> starts;
    const QString error =
        joinRecordings(_Path("joined.flac"), {_Path("a.flac"), _Path("b.flac")}, starts);
    QVERIFY2(error.contains(QStringLiteral("b.flac: its rate")), qPrintable(error));
}

void tst_SceneFiles::joined_mustExist()
{
    std::vector<double> starts;
    QVERIFY(joinRecordings(_Path("joined.flac"), {_Path("none.flac")}, starts)
                .contains(QStringLiteral("none.flac")));
    QVERIFY(!joinRecordings(_Path("joined.flac"), {}, starts).isEmpty());
    QVERIFY(!QFile::exists(_Path("joined.flac")));
}

void tst_SceneFiles::program_tellsWhatIsWrong()
{
    const QString program = QStringLiteral(SCENES_PROGRAM);
    QCOMPARE(QProcess::execute(program, {QStringLiteral("--version")}), 0);
    QCOMPARE(QProcess::execute(program, {}), 2);
    QCOMPARE(
        QProcess::execute(program, {QStringLiteral("join"), _Path("out.flac"), _Path("none.flac")}),
        1);
    QCOMPARE(QProcess::execute(program, {QStringLiteral("make"), QStringLiteral("/proc/scenes")}),
             1);
}

AA_TEST(tst_SceneFiles, QCoreApplication)
#include "tst_SceneFiles.moc"
