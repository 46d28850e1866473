// SPDX-License-Identifier: MIT
#include <QRadioButton>

#include <algorithm>
#include <apps/desktop/settings/ProfilesPanelFixture.h>
#include <support/TestClass.h>

/// The list and what its buttons do at once.
class tst_ProfilesPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }

    void list_showsTheSelectedProfile();
    void arrows_select();
    void click_selects();
    void summary_tellsBandAndKind_data();
    void summary_tellsBandAndKind();
    void duplicate_copiesEverything();
    void duplicate_findsAFreeName();
    void duplicate_takesAnyName();
    void remove_takesAProfile_andBringsItBack();
    void remove_isRefused_forABuiltInProfile();
    void remove_keepsTheLastOneToBringBack();
    void refresh_showsWhatChangedElsewhere();
    void everything_hasAName();
    void mnemonics_differ();
    void automatic_isChosen_andLeftForAProfile();
};

void tst_ProfilesPanel::list_showsTheSelectedProfile()
{
    ProfilesBench panel;
    QCOMPARE(panel.List().currentIndex().row(), 0);
    QCOMPARE(panel.Names(),
             QStringList({Text("Electro"), Text("Hardcore"), Text("Slow"), Text("Zouk")}));
    QCOMPARE(panel.log, QStringList());
    QVERIFY(!panel.configuration.isModified());
}

void tst_ProfilesPanel::arrows_select()
{
    ProfilesBench panel;
    panel.List().setFocus();
    QTest::keyClick(&panel.List(), Qt::Key_Down);
    QCOMPARE(panel.Selected(), Text("Hardcore"));
    QVERIFY(panel.configuration.isModified());
    QCOMPARE(panel.TakeLog(), kBoth);
    QTest::keyClick(&panel.List(), Qt::Key_End);
    QCOMPARE(panel.Selected(), Text("Zouk"));
    QCOMPARE(panel.TakeLog(), kBoth);
    QTest::keyClick(&panel.List(), Qt::Key_End);
    QCOMPARE(panel.log, QStringList());
}

void tst_ProfilesPanel::click_selects()
{
    ProfilesBench panel;
    const QRect place = panel.List().visualRect(panel.panel.m_pModel->index(2));
    QTest::mouseClick(panel.List().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QCOMPARE(panel.Selected(), Text("Slow"));
    QCOMPARE(panel.log, kBoth);
}

void tst_ProfilesPanel::summary_tellsBandAndKind_data()
{
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<QString>("band");
    QTest::newRow("both edges") << 20 << 90 << Text("20 to 90 Hz");
    QTest::newRow("no lower edge") << -1 << 90 << Text("Up to 90 Hz");
    QTest::newRow("no upper edge") << 20 << -1 << Text("From 20 Hz");
    QTest::newRow("no edge") << -1 << -1 << Text("All frequencies");
}

void tst_ProfilesPanel::summary_tellsBandAndKind()
{
    QFETCH(const int, low);
    QFETCH(const int, high);
    QFETCH(const QString, band);
    ProfilesBench panel;
    panel.panel.m_pModel->getProfile(3).setFilterFrequencies(low, high);
    panel.Select(3);
    QCOMPARE(panel.Summary(),
             band + Text(", sensibility 1.5. Your own profile; it is saved with the settings."));
    panel.Select(0);
    QCOMPARE(panel.Summary(),
             Text("0 to 75 Hz, sensibility 2. Built in: changes last until the program ends. To "
                  "keep them, duplicate it."));
}

void tst_ProfilesPanel::duplicate_copiesEverything()
{
    ProfilesBench panel;
    panel.Select(1);
    Profile original = panel.configuration.getSelectedProfile();
    QVERIFY(original.setMaximalThreshold(20000));
    QVERIFY(original.setMinimalThreshold(2000));
    panel.TakeLog();
    panel.Click("duplicate");
    const Profile copy = panel.configuration.getSelectedProfile();
    QCOMPARE(copy.getName(), Text("Hardcore (copy)"));
    QVERIFY(copy.isSerializable());
    QVERIFY(copy.getID() != original.getID());
    QCOMPARE(copy.getMinimalBPM(), 130.0);
    QCOMPARE(copy.getMaximalBPM(), 250.0);
    QCOMPARE(copy.getFilterLowFrequency(), 0);
    QCOMPARE(copy.getFilterHighFrequency(), 75);
    QCOMPARE(copy.getSensibility(), 2.0);
    QCOMPARE(copy.getMaximalThreshold(), short(20000));
    QCOMPARE(copy.getMinimalThreshold(), short(2000));
    QCOMPARE(panel.log, kBoth);
}

void tst_ProfilesPanel::duplicate_findsAFreeName()
{
    ProfilesBench panel;
    for (int i = 0; i < 3; ++i) {
        panel.Select(0);
        panel.Click("duplicate");
    }
    QCOMPARE(panel.Names().mid(3),
             QStringList({Text("Electro (copy 2)"),
                          Text("Electro (copy 3)"),
                          Text("Electro (copy)"),
                          Text("Zouk")}));
}

void tst_ProfilesPanel::duplicate_takesAnyName()
{
    ProfilesBench panel;
    panel.panel.m_pModel->getProfile(3).setName(Text("100 %1 %2 & <b>"));
    panel.Select(3);
    panel.Click("duplicate");
    QCOMPARE(panel.Selected(), Text("100 %1 %2 & <b> (copy)"));
    panel.Select(panel.Names().indexOf(Text("100 %1 %2 & <b>")));
    panel.Click("duplicate");
    QCOMPARE(panel.Selected(), Text("100 %1 %2 & <b> (copy 2)"));
}

void tst_ProfilesPanel::remove_takesAProfile_andBringsItBack()
{
    ProfilesBench panel;
    panel.Select(3);
    Profile zouk = panel.configuration.getSelectedProfile();
    QVERIFY(zouk.setMinimalThreshold(1500));
    panel.TakeLog();
    QVERIFY(!panel.Button("undo").isVisible());
    panel.Click("remove");
    QCOMPARE(panel.Names(), QStringList({Text("Electro"), Text("Hardcore"), Text("Slow")}));
    QCOMPARE(panel.Selected(), Text("Electro"));
    QCOMPARE(panel.List().currentIndex().row(), 0);
    QVERIFY(panel.configuration.isModified());
    QCOMPARE(panel.TakeLog(), kBoth);
    QVERIFY(panel.Button("undo").isVisible());
    QCOMPARE(PanelTest::Get<QLabel>(panel.panel, "removed").text(), Text("“Zouk” is removed."));

    panel.Click("undo");
    QCOMPARE(panel.Names().last(), Text("Zouk"));
    const Profile back = panel.configuration.getSelectedProfile();
    QCOMPARE(back.getName(), Text("Zouk"));
    QCOMPARE(back.getMinimalBPM(), 80.0);
    QCOMPARE(back.getMaximalBPM(), 110.0);
    QCOMPARE(back.getFilterLowFrequency(), 20);
    QCOMPARE(back.getFilterHighFrequency(), 90);
    QCOMPARE(back.getSensibility(), 1.5);
    QCOMPARE(back.getMinimalThreshold(), short(1500));
    QVERIFY(back.isSerializable());
    QVERIFY(!panel.Button("undo").isVisible());
    QCOMPARE(panel.log, kBoth);
}

void tst_ProfilesPanel::remove_isRefused_forABuiltInProfile()
{
    ProfilesBench panel;
    QVERIFY(!panel.Button("remove").isEnabled());
    QCOMPARE(panel.Button("remove").toolTip(), Text("A built-in profile cannot be removed."));
    panel.List().setFocus();
    QTest::keyClick(&panel.List(), Qt::Key_Delete);
    QCOMPARE(panel.Names().size(), 4);
    panel.Select(3);
    QVERIFY(panel.Button("remove").isEnabled());
    QCOMPARE(panel.Button("remove").toolTip(), Text("Remove this profile (Del)."));
}

void tst_ProfilesPanel::remove_keepsTheLastOneToBringBack()
{
    ProfilesBench panel;
    panel.configuration.Add(Text("Ambient"), 60.0, 90.0, 2.0, 0, 75);
    panel.panel.Refresh();
    panel.Select(3);
    panel.Click("remove");
    panel.Select(3);
    panel.Click("remove");
    panel.Click("undo");
    QCOMPARE(panel.Names().mid(3), QStringList(Text("Zouk")));
}

void tst_ProfilesPanel::refresh_showsWhatChangedElsewhere()
{
    ProfilesBench panel;
    panel.configuration.setSelectedProfile(
        panel.configuration.Add(Text("Ambient"), 60.0, 90.0, 2.0, 0, 75));
    panel.panel.Refresh();
    QCOMPARE(panel.List().currentIndex().row(), 3);
    QCOMPARE(panel.log, QStringList());
}

void tst_ProfilesPanel::everything_hasAName()
{
    const ProfilesBench panel;
    QCOMPARE(PanelTest::Unnamed(panel.panel), QStringList());
    QCOMPARE(panel.panel.windowTitle(), Text("Profiles"));
}

void tst_ProfilesPanel::mnemonics_differ()
{
    const ProfilesBench panel;
    QString letters = PanelTest::Mnemonics(panel.panel);
    std::sort(letters.begin(), letters.end());
    QCOMPARE(letters, Text("DEIMU"));
}

void tst_ProfilesPanel::automatic_isChosen_andLeftForAProfile()
{
    ProfilesBench bench;
    QStringList told;
    connect(&bench.panel, &ProfilesPanel::OnAutomaticChosen, this, [&](bool pIsAutomatic) {
        told.append(pIsAutomatic ? Text("automatic") : Text("profile"));
    });
    auto& automatic = PanelTest::Get<QRadioButton>(bench.panel, "automatic");
    QVERIFY(!automatic.isChecked());
    QVERIFY(bench.List().selectionModel()->hasSelection());
    automatic.click();
    automatic.click();
    QVERIFY(automatic.isChecked());
    QVERIFY(!bench.List().selectionModel()->hasSelection());
    bench.panel.Refresh();
    QVERIFY(automatic.isChecked() && !bench.List().selectionModel()->hasSelection());
    // The one that was in force before, too.
    const QModelIndex index = bench.panel.m_pModel->index(bench.panel.m_pModel->getSelectedRow());
    QTest::mouseClick(
        bench.List().viewport(), Qt::LeftButton, {}, bench.List().visualRect(index).center());
    QVERIFY(!automatic.isChecked());
    QVERIFY(bench.List().selectionModel()->hasSelection());
    bench.panel.setAutomatic(true);
    bench.Select(1);
    QVERIFY(!automatic.isChecked());
    QCOMPARE(told.join(QLatin1Char(' ')), Text("automatic profile profile"));
}

AA_TEST(tst_ProfilesPanel, QApplication)
#include "tst_ProfilesPanel.moc"
