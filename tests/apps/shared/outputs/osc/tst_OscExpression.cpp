// SPDX-License-Identifier: MIT
#include <shared/outputs/osc/OscExpression.h>

#include <QtTest>

#include <support/TestClass.h>

using shared::OscExpression;

class tst_OscExpression : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void expression_hasItsValue_data();
    void expression_hasItsValue();
    void nonsense_isRefused_withTheReason_data();
    void nonsense_isRefused_withTheReason();
    void length_isLimited();
    void depth_isLimited();
    void steps_areLimited();
};

void tst_OscExpression::expression_hasItsValue_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("value");
    const auto add = [](const char* pText, double pValue) {
        QTest::newRow(pText) << QByteArray(pText) << pValue;
    };
    add("1", 1.0);
    add(" .5 ", 0.5);
    add("2e3", 2000.0);
    add("1 + 2 * 3", 7.0);
    add("(1 + 2) * 3", 9.0);
    add("8 - 4 - 2", 2.0);
    add("8 / 4 / 2", 1.0);
    add("-3 + 5", 2.0);
    add("--3", 3.0);
    add("2 * -3", -6.0);
    add("2-1", 1.0);
    add("beat", 42.0);
    add("count", 3.0);
    add("bar", 10.0);
    add("phase", 0.25);
    add("bpm", 140.0);
    add("confidence", 0.75);
    add("playing", 1.0);
    // (140 - 20) / 480 and sqrt(140 / 240) * 100.
    add("(bpm - 20) / 480", 0.25);
    add("sqrt(bpm/240)*100", 76.37626158259733);
    add("floor(2.7)", 2.0);
    add("floor(-2.2)", -3.0);
    add("round(2.5)", 3.0);
    add("min(3, 2)", 2.0);
    add("max(min(1, bpm), 0.5)", 1.0);
    add("max(0, 2 - count) * (1 - 2 * phase)", 0.0);
    add("1 / 0", 0.0);
    add("0 / 0", 0.0);
    add("sqrt(-1)", 0.0);
    add("1e300 * 1e300", 0.0);
}

void tst_OscExpression::expression_hasItsValue()
{
    QFETCH(QByteArray, text);
    QFETCH(double, value);
    QString reason;
    const auto expression = OscExpression::Parse(text, reason);
    QVERIFY2(expression, qPrintable(reason));
    QCOMPARE(expression->Compute({42.0, 3.0, 10.0, 0.25, 140.0, 0.75, 1.0}), value);
}

void tst_OscExpression::nonsense_isRefused_withTheReason_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");
    const auto add = [](const QByteArray& pText, const char* pReason) {
        QTest::newRow(pText.isEmpty() ? "(empty)" : pText.constData())
            << pText << QString::fromLatin1(pReason);
    };
    add("", "it ends too early");
    add("1 +", "it ends too early");
    add("bpm bpm", "unexpected \"b\"");
    add("1 2", "unexpected \"2\"");
    add("(1", "\")\" is missing");
    add("1)", "unexpected \")\"");
    add("sqrt 2", "\"(\" is missing");
    add("sqrt(1, 2)", "\")\" is missing");
    add("min(1)", "\",\" is missing");
    add("tempo", "\"tempo\" is not known");
    add("nan", "\"nan\" is not known");
    add("+1", "unexpected \"+\"");
    add("1 ^ 2", "unexpected \"^\"");
    add("1e999", "unexpected \"1\"");
    add(QByteArray("1\0", 2), "unexpected \"?\"");
}

void tst_OscExpression::nonsense_isRefused_withTheReason()
{
    QFETCH(QByteArray, text);
    QString reason;
    QVERIFY(!OscExpression::Parse(text, reason));
    QTEST(reason, "reason");
}

void tst_OscExpression::length_isLimited()
{
    QString reason;
    const QByteArray blanks(OscExpression::kLongest - 1, ' ');
    QVERIFY(OscExpression::Parse(blanks + '1', reason));
    QVERIFY(!OscExpression::Parse(blanks + "11", reason));
    QCOMPARE(reason, QStringLiteral("it is too long"));
}

void tst_OscExpression::depth_isLimited()
{
    QString reason;
    const auto nested = [](int pDepth) {
        return QByteArray(pDepth, '(') + '1' + QByteArray(pDepth, ')');
    };
    QVERIFY(OscExpression::Parse(nested(OscExpression::kDeepest - 1), reason));
    QVERIFY(!OscExpression::Parse(nested(OscExpression::kDeepest), reason));
    QCOMPARE(reason, QStringLiteral("it is nested too deep"));
    QVERIFY(!OscExpression::Parse(QByteArray(OscExpression::kDeepest, '-') + '1', reason));
}

// 50 numbers and 49 signs between them are 99 steps.
void tst_OscExpression::steps_areLimited()
{
    QString reason;
    const QByteArray fifty = QByteArray("1") + QByteArray("+1").repeated(49);
    const auto expression = OscExpression::Parse(fifty, reason);
    QVERIFY(expression);
    QCOMPARE(expression->Compute({}), 50.0);
    QVERIFY(!OscExpression::Parse(fifty + "+1", reason));
    QCOMPARE(reason, QStringLiteral("it is too long"));
}

AA_TEST(tst_OscExpression, NoApplication)
#include "tst_OscExpression.moc"
