// SPDX-License-Identifier: MIT
#include <desktop/settings/detail/PlainText.h>

#include <QtTest>

#include <support/TestClass.h>

class tst_PlainText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainText_hasNoMarks_data();
    void plainText_hasNoMarks();
};

void tst_PlainText::plainText_hasNoMarks_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("text");
    QTest::newRow("mnemonic") << QStringLiteral("&Tempo:") << QStringLiteral("Tempo");
    QTest::newRow("inside") << QStringLiteral("Look a&gain") << QStringLiteral("Look again");
    QTest::newRow("French colon") << QStringLiteral("&Nom :") << QStringLiteral("Nom");
    QTest::newRow("colon inside") << QStringLiteral("a: b") << QStringLiteral("a: b");
    QTest::newRow("empty") << QString() << QString();
}

void tst_PlainText::plainText_hasNoMarks()
{
    QFETCH(const QString, label);
    QFETCH(const QString, text);
    QCOMPARE(desktop::PlainText(label), text);
}

AA_TEST(tst_PlainText, QCoreApplication)
#include "tst_PlainText.moc"
