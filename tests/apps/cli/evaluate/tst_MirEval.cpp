// SPDX-License-Identifier: MIT
#include <cli/evaluate/BeatEvaluation.h>

#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

#include <support/TestClass.h>

#include <cmath>

/// The measures are those that papers quote: what mir_eval says, we say.
class tst_MirEval : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scores_areEqual_onFixtures();
    void scores_areEqual_onRandomBeats_data();
    void scores_areEqual_onRandomBeats();
};

namespace {

constexpr double kDifference = 1e-9;
constexpr double kFrom = 5.0;  ///< seconds, mir_eval's own beginning
constexpr int kRandomRuns = 4;
constexpr int kCasesPerRun = 250;

std::vector<double> ToNumbers(const QByteArray& pLine)
{
    std::vector<double> numbers;
    for (const QByteArray& word : pLine.split(' '))
        if (!word.isEmpty())
            numbers.push_back(word.toDouble());
    return numbers;
}

std::vector<double> Score(const std::vector<double>& pReference,
                          const std::vector<double>& pEstimate)
{
    BeatReference reference;
    reference.beats = pReference;
    const BeatEvaluation result = evaluateBeats(reference, BeatEstimate{pEstimate, 0.0}, kFrom);
    std::vector<double> scores;
    // What we call a recording without music has no scores here, and zeros there.
    for (const auto& value : {result.fMeasure,
                              result.cemgil,
                              result.pScore,
                              result.correctLongest,
                              result.correctTotal,
                              result.anyLongest,
                              result.anyTotal,
                              result.informationGain})
        scores.push_back(value.value_or(0.0));
    return scores;
}

/// Compares all cases that the script prints, and returns how many there were.
int Compare(const QStringList& pArguments)
{
    QProcess script;
    script.start(QStringLiteral(AA_PYTHON), QStringList{QStringLiteral(AA_CASES)} + pArguments);
    if (!script.waitForFinished(-1) || script.exitCode() != 0) {
        qCritical("%s", script.readAllStandardError().constData());
        return -1;
    }
    const QList<QByteArray> lines = script.readAllStandardOutput().split('\n');
    int count = 0;
    for (int i = 0; i + 3 < lines.size(); i += 4, ++count) {
        const std::vector<double> expected = ToNumbers(lines[i + 3]);
        const std::vector<double> scores = Score(ToNumbers(lines[i + 1]), ToNumbers(lines[i + 2]));
        for (std::size_t k = 0; k < scores.size(); ++k) {
            if (expected.size() == scores.size() &&
                std::abs(scores[k] - expected[k]) <= kDifference)
                continue;
            qCritical("%s, case %d, score %zu: %.12f, and not %s\nreference %s\nestimate %s",
                      lines[i].constData(),
                      count,
                      k,
                      scores[k],
                      lines[i + 3].constData(),
                      lines[i + 1].constData(),
                      lines[i + 2].constData());
            return -1;
        }
    }
    return count;
}

}  // namespace

void tst_MirEval::scores_areEqual_onFixtures()
{
    const int count = Compare({QStringLiteral("fixtures")});
    QVERIFY2(count > 30, qPrintable(QString::number(count)));
}

// A thousand cases in portions, so that none takes long on a busy machine.
void tst_MirEval::scores_areEqual_onRandomBeats_data()
{
    const bool isGiven = qEnvironmentVariableIsSet("AA_TEST_SEED");
    const quint32 seed = isGiven ? quint32(qEnvironmentVariableIntValue("AA_TEST_SEED"))
                                 : QRandomGenerator::system()->bounded(1u << 30);
    std::printf("AA_TEST_SEED=%u\n", seed);
    QTest::addColumn<quint32>("seed");
    for (quint32 run = 0; run < kRandomRuns; ++run)
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed + run))) << seed + run;
}

void tst_MirEval::scores_areEqual_onRandomBeats()
{
    QFETCH(quint32, seed);
    QCOMPARE(Compare({QString::number(seed), QString::number(kCasesPerRun)}), kCasesPerRun);
}

AA_TEST(tst_MirEval, QCoreApplication)
#include "tst_MirEval.moc"
