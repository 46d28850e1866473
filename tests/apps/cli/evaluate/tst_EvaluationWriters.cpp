// SPDX-License-Identifier: MIT
#include <cli/evaluate/EvaluationWriters.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QtTest>

#include <cmath>
#include <limits>
#include <support/Numbers.h>
#include <support/TestClass.h>

/// What is made of measures: means, medians, a table, JSON and CSV.
class tst_EvaluationWriters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void measures_haveNamesOfTheirOwn();
    void summary_isTheMeanWithItsError();
    void summary_isTheMedian_ofWhatMayNeverHappen();
    void summary_leavesOutWhatDoesNotApply();
    void groups_areGenresByName_andAllLast();
    void text_hasAColumnForEachGenre();
    void text_leavesOutWhatNobodyHas();
    void json_hasRecordingsAndGroups();
    void csv_hasALineForEachRecording();
};

namespace {

EvaluatedRecording
Recording(const char* pName, const char* pGenre, double pFMeasure, double pFirstLock)
{
    EvaluatedRecording recording;
    recording.name = QLatin1String(pName);
    recording.genre = QLatin1String(pGenre);
    recording.evaluation.fMeasure = pFMeasure;
    recording.evaluation.firstLock = pFirstLock;
    return recording;
}

std::vector<EvaluatedRecording> Recordings()
{
    return {Recording("one", "techno", 0.9, 2.0),
            Recording("two, or so", "jazz", 0.5, kInfinity),
            Recording("three", "techno", 0.7, 4.0)};
}

const EvaluationMeasure& Find(const char* pKey)
{
    for (const EvaluationMeasure& measure : getEvaluationMeasures())
        if (measure.key == QLatin1String(pKey))
            return measure;
    qFatal("no measure %s", pKey);
}

MeasureSummary Summarize(const char* pKey, const std::vector<EvaluatedRecording>& pRecordings)
{
    std::vector<const EvaluatedRecording*> pointers;
    for (const EvaluatedRecording& recording : pRecordings)
        pointers.push_back(&recording);
    return summarize(pointers, Find(pKey));
}

}  // namespace

void tst_EvaluationWriters::measures_haveNamesOfTheirOwn()
{
    QSet<QString> keys;
    QSet<QString> labels;
    for (const EvaluationMeasure& measure : getEvaluationMeasures()) {
        keys.insert(measure.key);
        labels.insert(measure.label);
    }
    QCOMPARE(keys.size(), int(getEvaluationMeasures().size()));
    QCOMPARE(labels.size(), keys.size());
}

// 0.9, 0.5, 0.7: the standard deviation is 0.2.
void tst_EvaluationWriters::summary_isTheMeanWithItsError()
{
    const MeasureSummary summary = Summarize("fMeasure", Recordings());
    QCOMPARE(summary.count, 3);
    QCOMPARE(summary.value, 0.7);
    QCOMPARE(summary.error, 0.2 / std::sqrt(3.0));
    const MeasureSummary one = Summarize("fMeasure", {Recording("one", "", 0.4, 1.0)});
    QCOMPARE(one.value, 0.4);
    QCOMPARE(one.error, 0.0);
}

void tst_EvaluationWriters::summary_isTheMedian_ofWhatMayNeverHappen()
{
    QCOMPARE(Summarize("firstLock", Recordings()).value, 4.0);
    QCOMPARE(Summarize("firstLock", {Recording("a", "", 0.0, kInfinity), Recordings()[1]}).value,
             kInfinity);
}

void tst_EvaluationWriters::summary_leavesOutWhatDoesNotApply()
{
    std::vector<EvaluatedRecording> recordings = Recordings();
    recordings[1].evaluation.fMeasure.reset();
    QCOMPARE(Summarize("fMeasure", recordings).count, 2);
    QCOMPARE(Summarize("fMeasure", recordings).value, 0.8);
    QCOMPARE(Summarize("relock", recordings).count, 0);
}

void tst_EvaluationWriters::groups_areGenresByName_andAllLast()
{
    const std::vector<EvaluatedRecording> recordings = Recordings();
    const std::vector<EvaluationGroup> groups = makeGroups(recordings);
    QCOMPARE(groups.size(), std::size_t(3));
    QCOMPARE(groups[0].name, QStringLiteral("jazz"));
    QCOMPARE(groups[1].name, QStringLiteral("techno"));
    QCOMPARE(groups[1].recordings.size(), std::size_t(2));
    QVERIFY(groups[2].name.isEmpty());
    QCOMPARE(groups[2].recordings.size(), std::size_t(3));
    QCOMPARE(makeGroups({recordings[0], recordings[2]}).size(), std::size_t(1));
}

void tst_EvaluationWriters::text_hasAColumnForEachGenre()
{
    const QStringList lines =
        QString::fromUtf8(makeEvaluationText(Recordings(), 5.0)).split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines[0].simplified(), QStringLiteral("from 5 s on jazz (1) techno (2) all (3)"));
    QCOMPARE(lines[1].simplified(), QStringLiteral("F-measure, % 50.0 80.0 ±10.0 70.0 ±11.5"));
    QCOMPARE(lines[2].simplified(), QStringLiteral("first lock, median, s never 3.0 4.0"));
    QCOMPARE(lines[0].size(), lines[1].size());
    QCOMPARE(lines[1].size(), lines[2].size());
}

void tst_EvaluationWriters::text_leavesOutWhatNobodyHas()
{
    EvaluatedRecording silence;
    silence.name = QStringLiteral("silence");
    silence.evaluation.falseBeats = 12.0;
    const QString text = QString::fromUtf8(makeEvaluationText({silence}, 0.0));
    QCOMPARE(text.simplified(),
             QStringLiteral("from 0 s on silence beats a minute without music 12.0"));
    const QString both = QString::fromUtf8(makeEvaluationText({silence, Recordings()[0]}, 0.0));
    QVERIFY(both.contains(QStringLiteral("(no genre) (1)")));
    QVERIFY(both.simplified().contains(QStringLiteral("F-measure, % - 90.0 90.0")));
}

void tst_EvaluationWriters::json_hasRecordingsAndGroups()
{
    const QJsonObject root =
        QJsonDocument::fromJson(makeEvaluationJson(Recordings(), 2.5)).object();
    QCOMPARE(root[QStringLiteral("from")].toDouble(), 2.5);
    const QJsonArray recordings = root[QStringLiteral("recordings")].toArray();
    QCOMPARE(recordings.size(), 3);
    const QJsonObject second = recordings[1].toObject();
    QCOMPARE(second[QStringLiteral("name")].toString(), QStringLiteral("two, or so"));
    QCOMPARE(second[QStringLiteral("fMeasure")].toDouble(), 0.5);
    QVERIFY(second[QStringLiteral("firstLock")].isNull());
    QVERIFY(second[QStringLiteral("relock")].isUndefined());
    const QJsonArray groups = root[QStringLiteral("groups")].toArray();
    QCOMPARE(groups.size(), 3);
    const QJsonObject techno = groups[1].toObject();
    QCOMPARE(techno[QStringLiteral("genre")].toString(), QStringLiteral("techno"));
    QCOMPARE(techno[QStringLiteral("recordings")].toInt(), 2);
    const QJsonObject fMeasure = techno[QStringLiteral("fMeasure")].toObject();
    QCOMPARE(fMeasure[QStringLiteral("count")].toInt(), 2);
    QCOMPARE(fMeasure[QStringLiteral("mean")].toDouble(), 0.8);
    QCOMPARE(fMeasure[QStringLiteral("standardError")].toDouble(), 0.1);
    const QJsonObject lock = techno[QStringLiteral("firstLock")].toObject();
    QCOMPARE(lock[QStringLiteral("median")].toDouble(), 3.0);
    QVERIFY(lock[QStringLiteral("mean")].isUndefined());
}

void tst_EvaluationWriters::csv_hasALineForEachRecording()
{
    const QStringList lines =
        QString::fromUtf8(makeEvaluationCsv(Recordings())).split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 5);
    const QStringList header = lines[0].split(QLatin1Char(','));
    QCOMPARE(header.mid(0, 3), QStringLiteral("name,genre,fMeasure").split(QLatin1Char(',')));
    QCOMPARE(header.size(), 2 + int(getEvaluationMeasures().size()));
    const QStringList first = lines[1].split(QLatin1Char(','));
    QCOMPARE(first.size(), header.size());
    QCOMPARE(first.mid(0, 4), QStringLiteral("one,techno,0.900000,").split(QLatin1Char(',')));
    QVERIFY(lines[2].startsWith(QStringLiteral("\"two, or so\",jazz,0.500000,")));
    QVERIFY(lines[2].contains(QStringLiteral(",inf,")));
}

AA_TEST(tst_EvaluationWriters, QCoreApplication)
#include "tst_EvaluationWriters.moc"
