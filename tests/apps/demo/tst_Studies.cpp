// SPDX-License-Identifier: MIT
#include <demo/Studies.h>

#include <QSet>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <support/TestClass.h>

/// Pieces to learn from: many kinds, every one with the beats that it is played on.
class tst_Studies : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_studies = makeStudies(60); }
    void row_isTheSame_howeverManyAreTaken();
    void studies_haveNamesAndTemposOfTheirOwn();
    void beats_keepTheTempo();
    void notes_areInOrder_andInEveryPiece();
    void some_swing();

private:
    std::vector<Scene> m_studies;
};

void tst_Studies::row_isTheSame_howeverManyAreTaken()
{
    const std::vector<Scene> few = makeStudies(3);
    QCOMPARE(few.size(), std::size_t(3));
    for (std::size_t i = 0; i < few.size(); ++i) {
        QCOMPARE(few[i].name, m_studies[i].name);
        QVERIFY(few[i].beats == m_studies[i].beats);
        QCOMPARE(few[i].notes.size(), m_studies[i].notes.size());
        for (std::size_t k = 0; k < few[i].notes.size(); ++k)
            QCOMPARE(few[i].notes[k].time, m_studies[i].notes[k].time);
    }
}

void tst_Studies::studies_haveNamesAndTemposOfTheirOwn()
{
    QSet<QString> names;
    QSet<double> tempos;
    for (const Scene& study : m_studies) {
        names.insert(study.name);
        tempos.insert(study.bpm);
        QVERIFY(study.bpm >= 60.0 && study.bpm <= 190.0);
    }
    QCOMPARE(names.size(), 60);
    QCOMPARE(tempos.size(), 60);
    const auto isSlow = [](const Scene& pStudy) { return pStudy.bpm < 100.0; };
    const auto slow = std::count_if(m_studies.begin(), m_studies.end(), isSlow);
    QVERIFY(slow >= 10 && slow <= 50);
}

void tst_Studies::beats_keepTheTempo()
{
    for (const Scene& study : m_studies)
        for (std::size_t i = 1; i < study.beats.size(); ++i) {
            const double bpm = 60.0 / (study.beats[i] - study.beats[i - 1]);
            QVERIFY(std::fabs(bpm / study.bpm - 1.0) < study.deviation + 1e-6);
        }
}

void tst_Studies::notes_areInOrder_andInEveryPiece()
{
    for (const Scene& study : m_studies) {
        QVERIFY(study.notes.size() > study.beats.size() / 4);
        QVERIFY(std::is_sorted(study.notes.begin(),
                               study.notes.end(),
                               [](const SceneNote& pLeft, const SceneNote& pRight) {
                                   return pLeft.time < pRight.time;
                               }));
    }
}

// In the second half of the beat: past its middle by more than players are loose.
void tst_Studies::some_swing()
{
    int swinging = 0;
    for (const Scene& study : m_studies) {
        int late = 0;
        for (const SceneNote& note : study.notes) {
            const auto next = std::upper_bound(study.beats.begin(), study.beats.end(), note.time);
            if (next == study.beats.begin() || next == study.beats.end())
                continue;
            const double beat = *std::prev(next);
            const double phase = (note.time - beat) / (*next - beat);
            late += phase > 0.57 && phase < 0.69 ? 1 : 0;
        }
        swinging += late > 10 ? 1 : 0;
    }
    QVERIFY2(swinging >= 10 && swinging <= 40, qPrintable(QString::number(swinging)));
}

AA_TEST(tst_Studies, NoApplication)
#include "tst_Studies.moc"
