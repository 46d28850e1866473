// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClockState.h>

#include <desktop/stage/KeysPage.h>
#include <desktop/stage/StageView.h>

#include <QSignalSpy>

#include <apps/desktop/live/LivePanelTest.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

namespace {

/// The second beat of a bar, at 5000 ms.
LiveValues OnBeat(int pBeat)
{
    LiveValues values = livetest::Playing();
    values.beatInBar = pBeat;
    values.beatTime = 5000;
    values.confidence = 0.93;
    return values;
}

}  // namespace

/// What the stage view shows of given values.
class tst_StageView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }

    void beat_fillsTheWindow_andFades();
    void one_isBrighterThanTheOthers();
    void soft_onlyGlows();
    void letters_canBeRead_inEveryFlash_data();
    void letters_canBeRead_inEveryFlash();
    void everything_hasItsPlace_data();
    void everything_hasItsPlace();
    void sameValues_arePaintedOnce();
    void doubleClick_leaves();
    void lamps_areTold();
    void manyLamps_leaveTheConfidenceFree();
    void keys_areShownAndGo();
};

void tst_StageView::beat_fillsTheWindow_andFades()
{
    StageView stage;
    const QColor dark = stage.getGround();
    stage.Refresh(OnBeat(2), 5000);
    const QColor bright = stage.getGround();
    QVERIFY(bright.lightness() > dark.lightness() + 20);
    const QImage image = stage.grab().toImage();
    QVERIFY(livetest::Count(image, bright) > image.width() * image.height() / 2);
    stage.Refresh(OnBeat(2), 5000 + StageView::kFadeMs - 1);
    QCOMPARE(stage.getGround(), bright);
    stage.Refresh(OnBeat(2), 5000 + StageView::kFadeMs);
    QCOMPARE(stage.getGround(), dark);
}

void tst_StageView::one_isBrighterThanTheOthers()
{
    StageView one;
    one.Refresh(OnBeat(1), 5000);
    StageView other;
    other.Refresh(OnBeat(3), 5000);
    QVERIFY(one.getGround().lightness() > other.getGround().lightness() + 20);
}

void tst_StageView::soft_onlyGlows()
{
    StageView stage;
    const QColor dark = stage.getGround();
    stage.setFlash(true, true);
    stage.Refresh(OnBeat(1), 5000);
    QVERIFY(stage.getGround() != dark);
    // A tenth of the brightness of white counts as a flash.
    QVERIFY(stage.getGround().lightness() - dark.lightness() < 25);
}

void tst_StageView::letters_canBeRead_inEveryFlash_data()
{
    QTest::addColumn<int>("look");
    for (int look = eDarkLook; look < eLookCount; ++look)
        QTest::addRow("%d", look) << look;
}

/// White on the brightest ground: three to one is enough for letters of this size.
void tst_StageView::letters_canBeRead_inEveryFlash()
{
    QFETCH(int, look);
    StageView stage;
    stage.setColors(getColors(eLook(look)));
    stage.Refresh(OnBeat(1), 5000);
    const QColor ground = stage.getGround();
    const auto linear = [](double pShare) { return std::pow(pShare, 2.2); };
    const double light = 0.2126 * linear(ground.redF()) + 0.7152 * linear(ground.greenF()) +
                         0.0722 * linear(ground.blueF());
    QVERIFY(1.05 / (light + 0.05) >= 3.0);
}

void tst_StageView::everything_hasItsPlace_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("720") << QSize(1280, 720);
    QTest::newRow("1080") << QSize(1920, 1080);
    QTest::newRow("upright") << QSize(720, 1280);
    QTest::newRow("small") << QSize(320, 200);
}

/// Digits a quarter of the height, to be read at three metres; nothing reaches the edge.
void tst_StageView::everything_hasItsPlace()
{
    QFETCH(const QSize, size);
    StageView stage;
    stage.resize(size);
    LiveValues values = OnBeat(2);
    values.shownBPM = 188.8;
    stage.Refresh(values, 9000);
    const QImage image = stage.grab().toImage();
    const QColor ground = stage.getGround();
    int top = size.height();
    int bottom = 0;
    for (int y = size.height() / 5; y < size.height() * 3 / 4; ++y)
        for (int x = 0; x < size.width(); ++x)
            if (image.pixelColor(x, y) == QColor(Qt::white)) {
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
    const int least = std::min(size.height() / 3, size.width() / 5);
    QVERIFY2(bottom - top > least, qPrintable(QString::number(bottom - top)));
    for (int y = 0; y < size.height(); ++y) {
        QCOMPARE(image.pixelColor(0, y), ground);
        QCOMPARE(image.pixelColor(size.width() - 1, y), ground);
    }
}

void tst_StageView::sameValues_arePaintedOnce()
{
    StageView stage;
    QVERIFY(PanelTest::Show(stage));
    stage.Refresh(OnBeat(2), 6000);
    QTest::qWait(50);
    livetest::PaintCounter counter(stage);
    LiveValues values = OnBeat(2);
    for (int i = 0; i < 20; ++i) {
        // Too little to be seen.
        values.bpm += 0.0001;
        values.confidence += 0.0005;
        stage.Refresh(values, 6000 + 16 * i);
        QTest::qWait(2);
    }
    QCOMPARE(counter.count, 0);
    values.beatInBar = 3;
    stage.Refresh(values, 7000);
    QTRY_COMPARE(counter.count, 1);
}

void tst_StageView::doubleClick_leaves()
{
    StageView stage;
    QSignalSpy left(&stage, &StageView::OnLeft);
    QTest::mouseDClick(&stage, Qt::LeftButton);
    QCOMPARE(left.count(), 1);
}

void tst_StageView::lamps_areTold()
{
    StageView stage;
    stage.resize(1280, 720);
    const QImage none = stage.grab().toImage();
    stage.setLamps({{QStringLiteral("Deck"), StageLamp::eWorking}});
    const QImage working = stage.grab().toImage();
    QVERIFY(working != none);
    stage.setLamps({{QStringLiteral("Deck"), StageLamp::eWaiting}});
    const QImage waiting = stage.grab().toImage();
    stage.setLamps({{QStringLiteral("Deck"), StageLamp::eTrouble}});
    // By their shape, not by the colour alone.
    const auto lit = [](const QImage& pImage, const QColor& pColor) {
        return livetest::Count(pImage, pColor);
    };
    const QColor color = getColors(eDarkLook).beat;
    QVERIFY(lit(working, color) > 2 * lit(waiting, color));
    QVERIFY(lit(stage.grab().toImage(), color) == 0);
    QVERIFY(lit(stage.grab().toImage(), getColors(eDarkLook).virtualBeat) > 0);
}

void tst_StageView::manyLamps_leaveTheConfidenceFree()
{
    StageView stage;
    stage.resize(1280, 720);
    const QRect left(0, 0, 640, 100);
    const QImage none = stage.grab(left).toImage();
    stage.setLamps(std::vector<StageLamp>(9, {QStringLiteral("A light"), StageLamp::eWorking}));
    QCOMPARE(stage.grab(left).toImage(), none);
}

void tst_StageView::keys_areShownAndGo()
{
    StageView stage;
    stage.resize(1280, 720);
    KeysPage page(&stage);
    QVERIFY(PanelTest::Show(stage));
    page.Toggle({{QStringLiteral("T"), QStringLiteral("Tap & go")}});
    QVERIFY(page.isVisible());
    QVERIFY(page.text().contains(QLatin1String("Tap &amp; go")));
    QVERIFY(stage.rect().contains(page.geometry()));
    page.Toggle({{QStringLiteral("T"), QString()}});
    QVERIFY(!page.isVisible());
    page.Toggle({{QStringLiteral("T"), QString()}});
    QTest::keyClick(&page, Qt::Key_Escape);
    QVERIFY(!page.isVisible());
    page.Toggle({{QStringLiteral("T"), QString()}});
    QTest::mouseClick(&page, Qt::LeftButton);
    QVERIFY(!page.isVisible());
}

AA_TEST(tst_StageView, InVirtualTime<QApplication>)
#include "tst_StageView.moc"
