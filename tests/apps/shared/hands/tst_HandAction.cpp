// SPDX-License-Identifier: MIT
#include <shared/hands/HandAction.h>

#include <QtTest>

#include <support/TestClass.h>

using shared::HandAction;

class tst_HandAction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_isUnderstood_data();
    void text_isUnderstood();
    void text_thatMeansNothing_isRefused_data();
    void text_thatMeansNothing_isRefused();
    void forms_areAll();
};

void tst_HandAction::text_isUnderstood_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("written");
    const auto row =
        [](const char* pText, HandAction::eKind pKind, double pAmount, const char* pWritten) {
            QTest::newRow(pText) << QString::fromLatin1(pText) << int(pKind) << pAmount
                                 << QString::fromLatin1(pWritten);
        };
    row("tap", HandAction::eTap, 0.0, "tap");
    row(" ONE ", HandAction::eOne, 0.0, "one");
    row("half", HandAction::eHalf, 0.0, "half");
    row("double", HandAction::eDouble, 0.0, "double");
    row("hold", HandAction::eHold, 0.0, "hold");
    row("reset", HandAction::eReset, 0.0, "reset");
    row("nudge  -5.5", HandAction::eNudge, -5.5, "nudge -5.5");
    row("nudge +500", HandAction::eNudge, 500.0, "nudge 500");
    row("bend 2", HandAction::eBend, 2.0, "bend 2");
    row("bend -50", HandAction::eBend, -50.0, "bend -50");
    row("offset 10", HandAction::eOffset, 10.0, "offset 10");
    row("profile  Drum and  Bass", HandAction::eProfile, 0.0, "profile Drum and Bass");
}

void tst_HandAction::text_isUnderstood()
{
    QFETCH(const QString, text);
    QFETCH(const int, kind);
    QFETCH(const double, amount);
    QFETCH(const QString, written);
    const auto action = HandAction::Parse(text);
    QVERIFY(action);
    QCOMPARE(int(action->kind), kind);
    QCOMPARE(action->amount, amount);
    QCOMPARE(action->getText(), written);
    QCOMPARE(HandAction::Parse(written)->getText(), written);
}

void tst_HandAction::text_thatMeansNothing_isRefused_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"",
                             "tip",
                             "tap 1",
                             "nudge",
                             "nudge x",
                             "nudge 0",
                             "nudge 501",
                             "nudge nan",
                             "nudge inf",
                             "bend 51",
                             "offset -501",
                             "profile",
                             "one two"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_HandAction::text_thatMeansNothing_isRefused()
{
    QFETCH(const QString, text);
    QVERIFY(!HandAction::Parse(text));
}

void tst_HandAction::forms_areAll()
{
    QCOMPARE(HandAction::getForms().join(QLatin1Char('|')),
             QStringLiteral("tap|one|half|double|hold|reset|nudge MS|bend PERCENT|offset MS|"
                            "profile NAME"));
}

AA_TEST(tst_HandAction, NoApplication)

#include "tst_HandAction.moc"
