// SPDX-License-Identifier: MIT
#include <shared/outputs/os2l/Os2lAnswers.h>
#include <shared/outputs/os2l/detail/BeatText.h>

#include <QtTest>

#include <support/TestClass.h>

using shared::Os2lAnswers;

namespace {

/// name/page/on or off, one after another.
QString textOf(const std::vector<shared::Os2lAnswer>& pAnswers)
{
    QStringList texts;
    for (const auto& answer : pAnswers)
        texts += answer.name + QLatin1Char('/') + answer.page +
                 (answer.isOn ? QStringLiteral("/on") : QStringLiteral("/off"));
    return texts.join(QLatin1Char(' '));
}

const QByteArray kOn = R"({"evt":"feedback","name":"strobe","page":"p1","state":"on"})";

QByteArray beatOf(qint64 pBeat, double pBPM, bool pIsNew, double pConfidence)
{
    shared::OutputMoment moment = {};
    moment.tick.beat = pBeat;
    moment.state.bpm = pBPM;
    moment.isTempoNew = pIsNew;
    moment.confidence = pConfidence;
    return shared::detail::BeatText(moment);
}

}  // namespace

class tst_Os2lAnswers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beat_isOneObject_data();
    void beat_isOneObject();
    void answers_areFound_data();
    void answers_areFound();
    void answers_areFound_howeverTheyAreCut();
    void whatHasNoEnd_isDropped();
};

void tst_Os2lAnswers::beat_isOneObject_data()
{
    QTest::addColumn<QByteArray>("made");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("plain")
        << beatOf(42, 120.5, false, 0.8)
        << QByteArray(R"({"evt":"beat","change":false,"pos":42,"bpm":120.50,"strength":0.80})");
    QTest::newRow("new tempo")
        << beatOf(43, 59.996, true, 1.0)
        << QByteArray(R"({"evt":"beat","change":true,"pos":43,"bpm":60.00,"strength":1.00})");
    QTest::newRow("large, and out of range")
        << beatOf(Q_INT64_C(9007199254740993), 999.0, false, 1.5)
        << QByteArray(
               R"({"evt":"beat","change":false,"pos":9007199254740993,"bpm":999.00,"strength":1.00})");
    QTest::newRow("below")
        << beatOf(-1, 30.0, false, -0.5)
        << QByteArray(R"({"evt":"beat","change":false,"pos":-1,"bpm":30.00,"strength":0.00})");
}

void tst_Os2lAnswers::beat_isOneObject()
{
    QFETCH(const QByteArray, made);
    QFETCH(const QByteArray, expected);
    QCOMPARE(made, expected);
}

void tst_Os2lAnswers::answers_areFound_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("answers");
    const QString on = QStringLiteral("strobe/p1/on");
    const QByteArray off = R"({"evt":"feedback","name":"b","state":"off"})";
    QTest::newRow("one") << kOn << on;
    QTest::newRow("two with nothing between") << kOn + off << on + QStringLiteral(" b//off");
    QTest::newRow("with lines between") << kOn + "\r\n" + off + "\n"
                                        << on + QStringLiteral(" b//off");
    QTest::newRow("behind other bytes") << "\xff\0}}]\"" + kOn << on;
    QTest::newRow("braces in a text")
        << QByteArray(R"({"evt":"feedback","name":"a}{\"}","page":"\\","state":"on"})")
        << QStringLiteral("a}{\"}/\\/on");
    QTest::newRow("objects in it")
        << QByteArray(R"({"evt":"feedback","x":{"y":{}},"name":"n","state":"on"})")
        << QStringLiteral("n//on");
    QTest::newRow("another event")
        << QByteArray(R"({"evt":"beat","name":"n","state":"on"})") << QString();
    QTest::newRow("no name") << QByteArray(R"({"evt":"feedback","name":7,"state":"on"})")
                             << QString();
    QTest::newRow("no state") << QByteArray(R"({"evt":"feedback","name":"n","state":"dim"})")
                              << QString();
    QTest::newRow("no JSON") << QByteArray("{evt:feedback}") + kOn << on;
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("half") << kOn.left(20) << QString();
}

void tst_Os2lAnswers::answers_areFound()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, answers);
    Os2lAnswers parser;
    QCOMPARE(textOf(parser.Take(bytes)), answers);
}

void tst_Os2lAnswers::answers_areFound_howeverTheyAreCut()
{
    const QByteArray bytes = kOn + "\n" + kOn;
    for (int cut = 0; cut <= bytes.size(); ++cut) {
        Os2lAnswers parser;
        const auto first = textOf(parser.Take(bytes.left(cut)));
        const auto second = textOf(parser.Take(bytes.mid(cut)));
        QCOMPARE((first + QLatin1Char(' ') + second).trimmed().simplified(),
                 QStringLiteral("strobe/p1/on strobe/p1/on"));
        QCOMPARE(parser.getKeptCount(), 0);
    }
}

void tst_Os2lAnswers::whatHasNoEnd_isDropped()
{
    Os2lAnswers parser;
    parser.Take("{\"evt\":\"");
    for (int i = 0; i < 1000; ++i) {
        QVERIFY(parser.Take(QByteArray(1000, 'x')).empty());
        QVERIFY(parser.getKeptCount() < Os2lAnswers::kLongest);
    }
    // Whoever comes to his senses is understood.
    QCOMPARE(textOf(parser.Take("\"}" + kOn)), QStringLiteral("strobe/p1/on"));
    QVERIFY(parser.Take(QByteArray(100000, '{')).empty());
    QVERIFY(parser.getKeptCount() < Os2lAnswers::kLongest);
}

AA_TEST(tst_Os2lAnswers, NoApplication)

#include "tst_Os2lAnswers.moc"
