// SPDX-License-Identifier: MIT
#include <desktop/settings/DecimalField.h>

#include <QLineEdit>

#include <apps/desktop/PanelTest.h>
#include <support/TestClass.h>

class tst_DecimalField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }

    void number_isRead_withCommaAndPoint_data();
    void number_isRead_withCommaAndPoint();
    void number_counts_whenItIsComplete();
};

void tst_DecimalField::number_isRead_withCommaAndPoint_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("value");
    QTest::newRow("English point") << QStringLiteral("en") << QStringLiteral("1.5") << 1.5;
    QTest::newRow("English comma") << QStringLiteral("en") << QStringLiteral("1,5") << 1.5;
    QTest::newRow("German comma") << QStringLiteral("de") << QStringLiteral("12,25") << 12.25;
    QTest::newRow("German point") << QStringLiteral("de") << QStringLiteral("12.25") << 12.25;
    QTest::newRow("French point") << QStringLiteral("fr") << QStringLiteral("0.05") << 0.05;
    QTest::newRow("Spanish point") << QStringLiteral("es") << QStringLiteral("599.5") << 599.5;
    QTest::newRow("whole") << QStringLiteral("de") << QStringLiteral("7") << 7.0;
}

void tst_DecimalField::number_isRead_withCommaAndPoint()
{
    QFETCH(const QString, language);
    QFETCH(const QString, typed);
    QFETCH(const double, value);
    DecimalField field;
    field.setLocale(QLocale(language));
    field.setRange(0.05, 600.0);
    field.setSuffix(QStringLiteral(" s"));
    QVERIFY(PanelTest::Show(field));
    field.selectAll();
    QTest::keyClicks(&field, typed);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(field.value(), value);
}

void tst_DecimalField::number_counts_whenItIsComplete()
{
    DecimalField field;
    field.setRange(0.05, 600.0);
    QVERIFY(PanelTest::Show(field));
    QSignalSpy changed(&field, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("120"));
    QCOMPARE(changed.count(), 0);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toDouble(), 120.0);
    QTest::keyClick(&field, Qt::Key_Up);
    QCOMPARE(changed.at(1).at(0).toDouble(), 121.0);
}

AA_TEST(tst_DecimalField, QApplication)
#include "tst_DecimalField.moc"
