// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/InputDevicesPanel.h>

#include <QListView>
#include <QScrollArea>

#include <apps/desktop/settings/InputDevicesTest.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

namespace {

/// The panel on a machine with two inputs.
struct LevelStand
{
    LevelStand()
    {
        Machine().Plug(Text("Deck"));
        Machine().Plug(Text("Line"));
        PanelTest::Poll();
        panel = std::make_unique<InputDevicesPanel>(configuration);
    }
    /// Of a row; -1 = unknown.
    int level(int pRow)
    {
        const QVariant value = list().model()->index(pRow, 0).data(InputDevicesModel::eLevelRole);
        return value.isValid() ? -value.toInt() : -1;
    }
    QListView& list() { return PanelTest::Get<QListView>(*panel, "devices"); }

    AnsweringBackEnd backEnd;
    Configuration configuration;
    std::unique_ptr<InputDevicesPanel> panel;
};

}  // namespace

/// The levels beside the inputs.
class tst_InputLevels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }

    void levels_areShown_inDecibels();
    void level_risesAtOnce_andFallsSlowly();
    void default_hasTheLevelOfItsSource();
    void inputs_areHeard_onlyWhileTheyAreSeen();
    void nothing_isHeard_whenTheListIsScrolledAway();
    void withoutABackEnd_thereAreNone();
    void level_leavesTheStatusAlone();
    void bar_isAsLongAsTheLevel();
};

void tst_InputLevels::levels_areShown_inDecibels()
{
    LevelStand stand;
    stand.backEnd.peaks = {{Text("Deck"), 0.5}, {Text("Line"), 0.0}};
    stand.panel->show();
    QTRY_COMPARE(stand.level(1), 6);
    QCOMPARE(stand.level(2), 60);
    QVERIFY(stand.list()
                .model()
                ->index(1, 0)
                .data(Qt::AccessibleTextRole)
                .toString()
                .endsWith(Text(", level -6 dB")));
    stand.backEnd.peaks.erase(Text("Deck"));
    QTRY_COMPARE(stand.level(1), -1);
}

void tst_InputLevels::level_risesAtOnce_andFallsSlowly()
{
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    InputDevicesModel model;
    const auto level = [&](double pPeak) {
        model.setLevels({{Text("Deck"), pPeak}});
        return model.index(0).data(InputDevicesModel::eLevelRole).toInt();
    };
    QCOMPARE(level(0.1), -20);
    QCOMPARE(level(1.0), 0);
    QCOMPARE(level(0.0), -InputDevicesModel::kFall);
    QCOMPARE(level(0.0), -2 * InputDevicesModel::kFall);
    QCOMPARE(level(0.5), -6);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    QCOMPARE(level(0.5), -6);
    QCOMPARE(changes.count(), 0);
}

void tst_InputLevels::default_hasTheLevelOfItsSource()
{
    LevelStand stand;
    stand.backEnd.peaks = {{Text("Deck"), 1.0}};
    stand.panel->show();
    QTRY_COMPARE(stand.level(0), 0);
    Machine().SetDefault(1);
    PanelTest::Poll();
    Machine().Plug(Text("Third"));
    PanelTest::Poll();
    stand.backEnd.peaks = {{Text("Deck"), 1.0}, {Text("Line"), 0.1}};
    QTRY_COMPARE(stand.level(0), 20);
}

void tst_InputLevels::inputs_areHeard_onlyWhileTheyAreSeen()
{
    LevelStand stand;
    stand.backEnd.peaks = {{Text("Deck"), 0.5}};
    QCOMPARE(stand.backEnd.listeners, 0);
    stand.panel->show();
    QTRY_COMPARE(stand.backEnd.listeners, 1);
    stand.panel->hide();
    QCOMPARE(stand.backEnd.listeners, 0);
    QCOMPARE(stand.level(1), -1);
    stand.panel->show();
    QTRY_COMPARE(stand.backEnd.listeners, 1);
    stand.panel->setWindowState(Qt::WindowMinimized);
    QTRY_COMPARE(stand.backEnd.listeners, 0);
    stand.panel->setWindowState(Qt::WindowNoState);
    QTRY_COMPARE(stand.backEnd.listeners, 1);
    stand.panel.reset();
    QCOMPARE(stand.backEnd.listeners, 0);
}

void tst_InputLevels::nothing_isHeard_whenTheListIsScrolledAway()
{
    LevelStand stand;
    QScrollArea area;
    auto* pContent = new QWidget;
    pContent->setFixedSize(300, 3000);
    stand.panel->setParent(pContent);
    stand.panel->setGeometry(0, 0, 300, 200);
    area.setWidget(pContent);
    area.resize(320, 240);
    area.show();
    QTRY_COMPARE(stand.backEnd.listeners, 1);
    area.ensureVisible(0, 2900);
    QTRY_COMPARE(stand.backEnd.listeners, 0);
    area.ensureVisible(0, 0);
    QTRY_COMPARE(stand.backEnd.listeners, 1);
    stand.panel.reset();
}

void tst_InputLevels::withoutABackEnd_thereAreNone()
{
    Machine().Plug(Text("Deck"));
    PanelTest::Poll();
    Configuration configuration;
    InputDevicesPanel panel(configuration);
    panel.show();
    QTest::qWait(5 * InputDevicesPanel::kLevelMs);
    const auto& list = PanelTest::Get<QListView>(panel, "devices");
    QVERIFY(!list.model()->index(0, 0).data(InputDevicesModel::eLevelRole).isValid());
}

void tst_InputLevels::level_leavesTheStatusAlone()
{
    LevelStand stand;
    stand.backEnd.peaks = {{Text("Deck"), 0.5}};
    auto& status = PanelTest::Get<QLabel>(*stand.panel, "status");
    status.setText(Text("as it was"));
    stand.panel->show();
    QTRY_COMPARE(stand.level(1), 6);
    QCOMPARE(status.text(), Text("as it was"));
}

void tst_InputLevels::bar_isAsLongAsTheLevel()
{
    LevelStand stand;
    stand.panel->resize(500, 300);
    stand.panel->show();
    const auto inked = [&](double pPeak) {
        stand.backEnd.peaks = {{Text("Line"), pPeak}};
        QTest::qWait(20 * InputDevicesPanel::kLevelMs);
        const QRect row = stand.list().visualRect(stand.list().model()->index(2, 0));
        const QImage image = stand.list().viewport()->grab(row).toImage();
        const QRgb ground = image.pixel(image.width() / 2, image.height() / 2);
        int count = 0;
        for (int x = image.width() / 2; x < image.width(); ++x)
            count += image.pixel(x, image.height() / 2) != ground ? 1 : 0;
        return count;
    };
    const int full = inked(1.0);
    const int half = inked(0.0316);  // -30 dB, the middle of the range
    const int none = inked(0.0);
    QVERIFY(none >= 2);  // its frame
    QVERIFY(full > 40);
    QVERIFY(std::abs((half - none) - (full - none) / 2) <= 3);
}

AA_TEST(tst_InputLevels, InVirtualTime<QApplication>)
#include "tst_InputLevels.moc"
