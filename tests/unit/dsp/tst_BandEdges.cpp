// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/BandEdges.h>

#include <QtTest>

#include <support/TestClass.h>

class tst_BandEdges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lowerEdge_isThePartOfTheHalfRate();
    void upperEdge_isJustBelowTheNext_butNeverBelowItsOwnLower();
};

void tst_BandEdges::lowerEdge_isThePartOfTheHalfRate()
{
    QVERIFY(detail::lowerEdge(0, 22050.0, 512) == 0.0);
    QVERIFY(detail::lowerEdge(3, 8000.0, 8) == 3000.0);
    QVERIFY(detail::lowerEdge(512, 22050.0, 512) == 22050.0);
    QVERIFY(detail::lowerEdge(1, 22050.0, 512) == 43.06640625);
    QVERIFY(detail::lowerEdge(1, 0.5, 1) == 0.5);
}

void tst_BandEdges::upperEdge_isJustBelowTheNext_butNeverBelowItsOwnLower()
{
    QVERIFY(detail::upperEdge(1000.0, 2000.0) == 2000.0 - 0.001);
    QVERIFY(detail::upperEdge(0.0, 0.25) == 0.25 - 0.001);
    QVERIFY(detail::upperEdge(0.5, 0.5005) == 0.5);
    QVERIFY(detail::upperEdge(0.0, 0.001) == 0.0);
}

AA_TEST(tst_BandEdges, NoApplication)

#include "tst_BandEdges.moc"
