// SPDX-License-Identifier: MIT
#include <apps/desktop/window/EveningTest.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using namespace eveningtest;

/// An operator's evening, to the beat of a clock that waits for nobody.
class tst_Evening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init();
    void cleanup() { QFile::remove(UISettings::_getDefaultPath()); }

    void evening_isRuledByKeys_andKept();
};

void tst_Evening::init()
{
    PanelTest::Clear();
    desktoptest::ForgetSettings();
    QFile::remove(UISettings::_getDefaultPath());
}

void tst_Evening::evening_isRuledByKeys_andKept()
{
    double tapped = 0.0;
    spend([] { return std::make_unique<Evening>(); }, tapped);
    QVERIFY(std::abs(tapped - 120.0) < 2.0);
}

AA_TEST(tst_Evening, InVirtualTime<QApplication>)
#include "tst_Evening.moc"
