// SPDX-License-Identifier: MIT
#include <desktop/live/StripCanvas.h>
#include <desktop/live/StripPanel.h>
#include <desktop/session/LiveValues.h>
#include <desktop/session/StripLog.h>
#include <shared/clock/LiveBeats.h>

#include <QSignalSpy>
#include <QWheelEvent>

#include <apps/desktop/PanelTest.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

namespace {

constexpr int kWide = 400;               // pixels
constexpr int kHigh = 200;               // pixels
constexpr std::int64_t kBegin = 100000;  // number of a column

const LookColors& Colors()
{
    return getColors(eLightLook);
}

/// Music of 120 BPM at full scale for a hundred columns; all belief lies in the first of two tempi.
StripData Music()
{
    StripData data;
    data.setTempi({190.0, 60.0});
    data.Complete(kBegin, 0.0F, false);
    for (std::int64_t number = kBegin; number < kBegin + 100; ++number) {
        data.Fill(number)->level = 32767;
        data.Fill(number)->beliefs = {255, 0};
        data.Complete(number + 1, 120.0F, true);
    }
    return data;
}

/// One pixel a column, followed up to now.
QImage Picture(const StripData& pData)
{
    StripImage image;
    image.Reset({kWide, kHigh}, StripData::kColumn);
    image.setColors(Colors(), Qt::white);
    image.Follow(pData);
    return image.Take();
}

QColor At(const QImage& pImage, std::int64_t pAgo, double pPlace)
{
    return pImage.pixelColor(kWide - int(pAgo), int(pPlace * kHigh));
}

}  // namespace

/// The strip as it is drawn, held still and asked.
class tst_StripPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }

    void level_tempoAndBelief_areDrawn();
    void beats_areToldApart_withoutColours();
    void stops_areShaded_andNothingIsWhite();
    void onlyWhatIsNew_isDrawn();
    void scrolled_isTheSameAsDrawnAtOnce();
    void zoom_hasFourSteps();
    void pause_holdsStill_andGoesOn();
    void sayings_areTold_toMouseAndReader();
};

void tst_StripPanel::level_tempoAndBelief_areDrawn()
{
    const QImage picture = Picture(Music());
    const double loud = StripImage::kTempo - 0.1;
    QCOMPARE(At(picture, 50, loud), Colors().spectrum);
    // The faster tempo has the upper half of its lane, and 120 BPM lies where the logarithm says.
    QCOMPARE(At(picture, 50, StripImage::kTempo + 0.05), Colors().spectrum);
    QCOMPARE(At(picture, 50, 0.95), QColor(Qt::white));
    const double place = StripImage::getPlace(Music(), 120.0);
    QVERIFY(std::fabs(place - (0.25 + 0.5 * 0.3987)) < 0.001);
    QCOMPARE(At(picture, 50, StripImage::kTempo + place * (1.0 - StripImage::kTempo)),
             Colors().peak);
}

void tst_StripPanel::beats_areToldApart_withoutColours()
{
    StripData data = Music();
    const std::int64_t start = kBegin * StripData::kColumn;
    data.AddBeat({start + 20 * StripData::kColumn, eHeardBeat, true});
    data.AddBeat({start + 30 * StripData::kColumn, eForeseenBeat, false});
    data.AddBeat({start + 40 * StripData::kColumn, eHandBeat, false});
    const QImage picture = Picture(data);
    const double upper = StripImage::kBeats + 0.03;
    const double lower = StripImage::kLevel - 0.04;
    QCOMPARE(At(picture, 80, upper), Colors().beat);
    QCOMPARE(At(picture, 80, lower), Colors().beat);
    // The one is broader.
    QCOMPARE(At(picture, 79, upper), Colors().beat);
    QCOMPARE(At(picture, 78, upper), QColor(Qt::white));
    QCOMPARE(At(picture, 70, upper), QColor(Qt::white));
    QCOMPARE(At(picture, 70, lower), Colors().virtualBeat);
    QCOMPARE(At(picture, 69, lower), QColor(Qt::white));
    QCOMPARE(At(picture, 60, upper), Colors().pulse);
    QCOMPARE(At(picture, 60, lower), QColor(Qt::white));
}

void tst_StripPanel::stops_areShaded_andNothingIsWhite()
{
    StripData data = Music();
    data.Complete(kBegin + 120, 0.0F, false);
    const QImage picture = Picture(data);
    QCOMPARE(At(picture, 10, StripImage::kTempo + 0.05), Colors().trough);
    QCOMPARE(At(picture, 10, StripImage::kTempo - 0.1), Colors().trough);
    QCOMPARE(At(picture, 200, StripImage::kTempo + 0.05), QColor(Qt::white));
}

void tst_StripPanel::onlyWhatIsNew_isDrawn()
{
    StripData data = Music();
    StripImage image;
    image.Reset({kWide, kHigh}, StripData::kColumn);
    QCOMPARE(image.Follow(data), kWide);
    QCOMPARE(image.Follow(data), 0);
    data.Complete(kBegin + 107, 0.0F, false);
    QCOMPARE(image.Follow(data), 7);
}

void tst_StripPanel::scrolled_isTheSameAsDrawnAtOnce()
{
    StripData data = Music();
    StripImage image;
    image.Reset({kWide, kHigh}, StripData::kColumn);
    image.setColors(Colors(), Qt::white);
    image.Follow(data);
    for (int i = 0; i < 333; ++i) {
        data.AddBeat({data.getEnd() * StripData::kColumn, eHeardBeat, i % 4 == 0});
        data.Fill(data.getEnd())->level = i * 90;
        data.Complete(data.getEnd() + 1, 100.0F + float(i) / 10.0F, i % 50 < 40);
        image.Follow(data);
    }
    QCOMPARE(image.Take(), Picture(data));
}

void tst_StripPanel::zoom_hasFourSteps()
{
    LiveBeats beats;
    StripLog log(beats);
    StripPanel panel(log);
    QCOMPARE(panel.getSeconds(), 120);
    panel.Zoom(-1);
    QCOMPARE(panel.getSeconds(), 120);
    panel.Zoom(1);
    QCOMPARE(panel.getSeconds(), 60);
    panel.Zoom(9);
    QCOMPARE(panel.getSeconds(), 15);
    panel.resize(600, 240);
    panel.show();
    auto* pCanvas = panel.findChild<StripCanvas*>();
    const QPointF place(50.0, 50.0);
    QWheelEvent wheel(
        place, place, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(pCanvas, &wheel);
    QCOMPARE(panel.getSeconds(), 30);
}

void tst_StripPanel::pause_holdsStill_andGoesOn()
{
    LiveBeats beats;
    StripLog log(beats);
    StripPanel panel(log);
    QSignalSpy paused(&panel, &StripPanel::OnPaused);
    panel.Refresh({}, 0);
    panel.setPaused(true);
    const std::int64_t end = panel.getData().getEnd();
    QTest::qWait(1000);
    panel.Refresh({}, 0);
    QCOMPARE(panel.getData().getEnd(), end);
    QVERIFY(log.getData().getEnd() >= end + 19);
    panel.setPaused(false);
    QCOMPARE(panel.getData().getEnd(), log.getData().getEnd());
    QCOMPARE(paused.count(), 2);
}

void tst_StripPanel::sayings_areTold_toMouseAndReader()
{
    LiveBeats beats;
    StripLog log(beats);
    StripPanel panel(log);
    panel.resize(600, 240);
    panel.show();
    QTest::qWait(1000);
    log.Advance();
    log.Say(QStringLiteral("Too quiet"));
    QTest::qWait(2000);
    panel.Refresh({}, 0);
    const StripCanvas& canvas = panel.getCanvas();
    QVERIFY(canvas.accessibleDescription().endsWith(QStringLiteral("  Too quiet")));
    const QRect picture = canvas.getPicture();
    // Two seconds of 120 before the end.
    const QPoint there(picture.right() - picture.width() * 2 / 120, picture.center().y());
    QVERIFY2(canvas.Describe(there).contains(QStringLiteral("Too quiet")),
             qPrintable(canvas.Describe(there)));
    QVERIFY(!canvas.Describe(there - QPoint(50, 0)).contains(QStringLiteral("Too quiet")));
    QVERIFY(canvas.Describe({0, 0}).isEmpty());
}

AA_TEST(tst_StripPanel, InVirtualTime<QApplication>)
#include "tst_StripPanel.moc"
