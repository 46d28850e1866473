// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "PanelTest.h"

#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>
#include <desktop/settings/HintLabel.h>
#include <desktop/settings/ProfilesModel.h>
#include <desktop/settings/ProfilesPanel.h>

namespace {

QString Text(const char* pText)
{
    return QString::fromUtf8(pText);
}

/// A panel with a user profile "Zouk" in its configuration, and its signals in one log.
struct Panel
{
    Panel()
    {
        configuration.Add(Text("Zouk"), 80.0, 110.0, 1.5, 20, 90);
        configuration.setIsModified(false);
        panel.Refresh();
        QObject::connect(
            &panel, &ProfilesPanel::OnProfileChanged, [this] { log.append(Text("profile")); });
        QObject::connect(&panel, &SettingsPanel::OnConfigurationChanged, [this] {
            log.append(Text("changed"));
        });
        if (!PanelTest::Show(panel))
            qFatal("the panel is not shown");
    }

    QListView& List() { return PanelTest::Get<QListView>(panel, "profiles"); }
    QString Summary() { return PanelTest::Get<QLabel>(panel, "summary").text(); }
    QPushButton& Button(const char* pName) { return PanelTest::Get<QPushButton>(panel, pName); }
    void Click(const char* pName) { PanelTest::Click(panel, pName); }
    void Select(int pRow) { List().setCurrentIndex(panel.m_pModel->index(pRow)); }
    QStringList Names() const { return panel.m_pModel->getNames(); }
    QString Selected() const { return configuration.getSelectedProfile().getName(); }
    QStringList TakeLog() { return std::exchange(log, {}); }
    ProfileEditor& Editor() { return *panel.m_pEditor; }
    void Type(const char* pField, const char* pText)
    {
        auto& field = PanelTest::Get<QWidget>(Editor(), pField);
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, Text(pText));
    }

    Configuration configuration;
    ProfilesPanel panel{configuration};
    QStringList log;
};

const QStringList kBoth{QStringLiteral("profile"), QStringLiteral("changed")};

}  // namespace

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
    void add_makesAProfile();
    void add_isCancelled();
    void duplicate_copiesEverything();
    void duplicate_findsAFreeName();
    void duplicate_takesAnyName();
    void edit_changesAProfileOfOnesOwn();
    void edit_changesABuiltInProfile_untilExit();
    void edit_keepsABuiltInProfile_asANewOne();
    void edit_opensOnce();
    void editor_blocksNothing();
    void keys_editAndRemove();
    void doubleClick_edits();
    void remove_takesAProfile_andBringsItBack();
    void remove_isRefused_forABuiltInProfile();
    void remove_keepsTheLastOneToBringBack();
    void readOnlyProfile_isNotEdited();
    void refresh_showsWhatChangedElsewhere();
    void everything_hasAName();
    void mnemonics_differ();
};

void tst_ProfilesPanel::list_showsTheSelectedProfile()
{
    Panel panel;
    QCOMPARE(panel.List().currentIndex().row(), 0);
    QCOMPARE(panel.Names(),
             QStringList({Text("Electro"), Text("Hardcore"), Text("Slow"), Text("Zouk")}));
    QCOMPARE(panel.log, QStringList());
    QVERIFY(!panel.configuration.isModified());
}

void tst_ProfilesPanel::arrows_select()
{
    Panel panel;
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
    Panel panel;
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
    Panel panel;
    panel.panel.m_pModel->getProfile(3).setFilterFrequencies(low, high);
    panel.Select(3);
    QCOMPARE(panel.Summary(),
             band + Text(", sensibility 1.5. Your own profile; it is saved with the settings."));
    panel.Select(0);
    QCOMPARE(panel.Summary(),
             Text("0 to 75 Hz, sensibility 2. Built in: changes last until the program ends. To "
                  "keep them, duplicate it."));
}

void tst_ProfilesPanel::add_makesAProfile()
{
    Panel panel;
    panel.Click("add");
    panel.Type("name", "Ambient");
    panel.Type("minimalBPM", "60");
    panel.Type("maximalBPM", "95");
    PanelTest::Click(panel.Editor(), "accept");
    QCOMPARE(panel.Names().at(3), Text("Ambient"));
    QCOMPARE(panel.Selected(), Text("Ambient"));
    const Profile added = panel.configuration.getSelectedProfile();
    QVERIFY(added.isSerializable());
    QCOMPARE(added.getMinimalBPM(), 60.0);
    QCOMPARE(added.getMaximalBPM(), 95.0);
    QCOMPARE(added.getFilterLowFrequency(), 0);
    QCOMPARE(added.getFilterHighFrequency(), 75);
    QCOMPARE(added.getSensibility(), 2.0);
    QCOMPARE(panel.List().currentIndex().row(), 3);
    QVERIFY(panel.configuration.isModified());
    QCOMPARE(panel.log, kBoth);
    QTRY_VERIFY(!panel.panel.m_pEditor);
}

void tst_ProfilesPanel::add_isCancelled()
{
    Panel panel;
    panel.Click("add");
    panel.Type("name", "Ambient");
    PanelTest::Click(panel.Editor(), "cancel");
    QCOMPARE(panel.Names().size(), 4);
    QCOMPARE(panel.log, QStringList());
    QVERIFY(!panel.configuration.isModified());
    QTRY_VERIFY(!panel.panel.m_pEditor);
}

void tst_ProfilesPanel::duplicate_copiesEverything()
{
    Panel panel;
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
    Panel panel;
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
    Panel panel;
    panel.panel.m_pModel->getProfile(3).setName(Text("100 %1 %2 & <b>"));
    panel.Select(3);
    panel.Click("duplicate");
    QCOMPARE(panel.Selected(), Text("100 %1 %2 & <b> (copy)"));
    panel.Select(panel.Names().indexOf(Text("100 %1 %2 & <b>")));
    panel.Click("duplicate");
    QCOMPARE(panel.Selected(), Text("100 %1 %2 & <b> (copy 2)"));
}

void tst_ProfilesPanel::edit_changesAProfileOfOnesOwn()
{
    Panel panel;
    panel.Select(3);
    panel.TakeLog();
    panel.configuration.setIsModified(false);
    panel.Click("edit");
    panel.Type("name", "Ambient");
    panel.Type("high", "200");
    PanelTest::Click(panel.Editor(), "accept");
    QCOMPARE(panel.Names().last(), Text("Ambient"));
    QCOMPARE(panel.configuration.getSelectedProfile().getFilterHighFrequency(), 200);
    // No setter of a profile does it.
    QVERIFY(panel.configuration.isModified());
    QCOMPARE(panel.log, kBoth);
}

void tst_ProfilesPanel::edit_changesABuiltInProfile_untilExit()
{
    Panel panel;
    panel.Click("edit");
    QVERIFY(panel.Editor().m_pNotice->isVisible());
    panel.Type("maximalBPM", "160");
    PanelTest::Click(panel.Editor(), "accept");
    QCOMPARE(panel.configuration.getSelectedProfile().getMaximalBPM(), 160.0);
    QCOMPARE(panel.List().currentIndex().data().toString(),
             Text("Electro (90 to 160 BPM), changed until exit"));
    // There is nothing to save.
    QVERIFY(!panel.configuration.isModified());
    QCOMPARE(panel.log, kBoth);
}

void tst_ProfilesPanel::edit_keepsABuiltInProfile_asANewOne()
{
    Panel panel;
    panel.Click("edit");
    panel.Type("maximalBPM", "160");
    panel.Type("name", "My Electro");
    PanelTest::Click(panel.Editor(), "saveAsNew");
    const Profile kept = panel.configuration.getSelectedProfile();
    QCOMPARE(kept.getName(), Text("My Electro"));
    QVERIFY(kept.isSerializable());
    QCOMPARE(kept.getMaximalBPM(), 160.0);
    QCOMPARE(panel.panel.m_pModel->getProfile(0).getMaximalBPM(), 175.0);
    QCOMPARE(panel.panel.m_pModel->getProfile(0).getName(), Text("Electro"));
    QVERIFY(panel.configuration.isModified());
}

void tst_ProfilesPanel::edit_opensOnce()
{
    Panel panel;
    panel.Click("edit");
    const ProfileEditor* pEditor = panel.panel.m_pEditor;
    panel.Button("add").click();
    QCOMPARE(panel.panel.m_pEditor.data(), pEditor);
    panel.Editor().reject();
    QTRY_VERIFY(!panel.panel.m_pEditor);
    panel.Click("add");
    QVERIFY(panel.panel.m_pEditor);
}

void tst_ProfilesPanel::editor_blocksNothing()
{
    Panel panel;
    // Returns while the editor is open: the event loop is nobody else's.
    panel.Click("edit");
    QVERIFY(panel.Editor().isVisible());
    QCOMPARE(panel.Editor().windowModality(), Qt::WindowModal);
}

void tst_ProfilesPanel::keys_editAndRemove()
{
    Panel panel;
    panel.Select(3);
    panel.List().setFocus();
    QTest::keyClick(&panel.List(), Qt::Key_F2);
    QVERIFY(panel.panel.m_pEditor);
    panel.Editor().reject();
    QTRY_VERIFY(!panel.panel.m_pEditor);
    QVERIFY(PanelTest::Show(panel.panel));
    panel.List().setFocus();
    QTest::keyClick(&panel.List(), Qt::Key_Return);
    QVERIFY(panel.panel.m_pEditor);
    panel.Editor().reject();
    QTRY_VERIFY(!panel.panel.m_pEditor);
    QVERIFY(PanelTest::Show(panel.panel));
    panel.List().setFocus();
    QTest::keyClick(&panel.List(), Qt::Key_Delete);
    QCOMPARE(panel.Names().size(), 3);
}

void tst_ProfilesPanel::doubleClick_edits()
{
    Panel panel;
    const QRect place = panel.List().visualRect(panel.panel.m_pModel->index(3));
    QTest::mouseClick(panel.List().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QTest::mouseDClick(panel.List().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QVERIFY(panel.panel.m_pEditor);
    QCOMPARE(PanelTest::Get<QLineEdit>(panel.Editor(), "name").text(), Text("Zouk"));
}

void tst_ProfilesPanel::remove_takesAProfile_andBringsItBack()
{
    Panel panel;
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
    Panel panel;
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
    Panel panel;
    panel.configuration.Add(Text("Ambient"), 60.0, 90.0, 2.0, 0, 75);
    panel.panel.Refresh();
    panel.Select(3);
    panel.Click("remove");
    panel.Select(3);
    panel.Click("remove");
    panel.Click("undo");
    QCOMPARE(panel.Names().mid(3), QStringList(Text("Zouk")));
}

void tst_ProfilesPanel::readOnlyProfile_isNotEdited()
{
    Panel panel;
    panel.configuration.setSelectedProfile(Profile());
    panel.panel.Refresh();
    QVERIFY(!panel.Button("edit").isEnabled());
    QVERIFY(!panel.Button("remove").isEnabled());
}

void tst_ProfilesPanel::refresh_showsWhatChangedElsewhere()
{
    Panel panel;
    panel.configuration.setSelectedProfile(
        panel.configuration.Add(Text("Ambient"), 60.0, 90.0, 2.0, 0, 75));
    panel.panel.Refresh();
    QCOMPARE(panel.List().currentIndex().row(), 3);
    QCOMPARE(panel.log, QStringList());
}

void tst_ProfilesPanel::everything_hasAName()
{
    const Panel panel;
    QCOMPARE(PanelTest::Unnamed(panel.panel), QStringList());
    QCOMPARE(panel.panel.windowTitle(), Text("Profiles"));
}

void tst_ProfilesPanel::mnemonics_differ()
{
    const Panel panel;
    QString letters = PanelTest::Mnemonics(panel.panel);
    std::sort(letters.begin(), letters.end());
    QCOMPARE(letters, Text("DEIMU"));
}

QTEST_MAIN(tst_ProfilesPanel)
#include "tst_ProfilesPanel.moc"
