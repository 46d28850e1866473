// SPDX-License-Identifier: MIT
#include <desktop/settings/HintLabel.h>

#include <algorithm>
#include <apps/desktop/PanelTest.h>
#include <cmath>
#include <support/TestClass.h>

namespace {

/// Relative luminance of a color, by the usual formula for screens.
double Luminance(const QColor& pColor)
{
    const auto linear = [](double pValue) {
        return pValue <= 0.04045 ? pValue / 12.92 : std::pow((pValue + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(pColor.redF()) + 0.7152 * linear(pColor.greenF()) +
           0.0722 * linear(pColor.blueF());
}

/// From 1, invisible, to 21, black on white.
double Contrast(const QColor& pLeft, const QColor& pRight)
{
    const double left = Luminance(pLeft) + 0.05;
    const double right = Luminance(pRight) + 0.05;
    return std::max(left, right) / std::min(left, right);
}

QPalette Colors(const QColor& pGround, const QColor& pText)
{
    QPalette palette;
    palette.setColor(QPalette::Window, pGround);
    palette.setColor(QPalette::WindowText, pText);
    return palette;
}

}  // namespace

class tst_HintLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }

    void text_isAHintOrARefusal();
    void text_isNoMarkup();
    void words_areReadable_data();
    void words_areReadable();
    void color_followsThePalette();
};

void tst_HintLabel::text_isAHintOrARefusal()
{
    HintLabel label;
    QVERIFY(!label.isRefusal());
    label.setRefusal(QStringLiteral("no"));
    QVERIFY(label.isRefusal());
    QCOMPARE(label.text(), QStringLiteral("no"));
    label.setHint(QStringLiteral("0 to 9"));
    QVERIFY(!label.isRefusal());
    QCOMPARE(label.text(), QStringLiteral("0 to 9"));
}

void tst_HintLabel::text_isNoMarkup()
{
    HintLabel label;
    label.setHint(QStringLiteral("<b>x</b>"));
    QCOMPARE(label.textFormat(), Qt::PlainText);
}

void tst_HintLabel::words_areReadable_data()
{
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QColor>("text");
    QTest::newRow("light") << QColor(239, 239, 239) << QColor(0, 0, 0);
    QTest::newRow("white") << QColor(255, 255, 255) << QColor(0, 0, 0);
    QTest::newRow("dark") << QColor(45, 45, 45) << QColor(220, 220, 220);
    QTest::newRow("black") << QColor(0, 0, 0) << QColor(255, 255, 255);
}

void tst_HintLabel::words_areReadable()
{
    QFETCH(const QColor, ground);
    QFETCH(const QColor, text);
    QWidget parent;
    parent.setPalette(Colors(ground, text));
    HintLabel label(&parent);
    const auto contrast = [&] {
        return Contrast(ground, label.palette().color(QPalette::WindowText));
    };
    // What accessibility guidelines ask of text.
    QVERIFY(contrast() >= 4.5);
    const QColor quiet = label.palette().color(QPalette::WindowText);
    label.setRefusal(QStringLiteral("no"));
    QVERIFY(contrast() >= 4.5);
    QVERIFY(label.palette().color(QPalette::WindowText) != quiet);
}

void tst_HintLabel::color_followsThePalette()
{
    QWidget parent;
    parent.setPalette(Colors(Qt::white, Qt::black));
    HintLabel label(&parent);
    label.setRefusal(QStringLiteral("no"));
    const QColor onLight = label.palette().color(QPalette::WindowText);
    parent.setPalette(Colors(Qt::black, Qt::white));
    QVERIFY(label.palette().color(QPalette::WindowText) != onLight);
    QVERIFY(Contrast(Qt::black, label.palette().color(QPalette::WindowText)) >= 4.5);
    parent.setPalette(Colors(Qt::white, Qt::black));
    QCOMPARE(label.palette().color(QPalette::WindowText), onLight);
}

AA_TEST(tst_HintLabel, QApplication)
#include "tst_HintLabel.moc"
