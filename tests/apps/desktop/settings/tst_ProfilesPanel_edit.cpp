// SPDX-License-Identifier: MIT
#include <desktop/settings/HintLabel.h>

#include <QLineEdit>

#include <apps/desktop/settings/ProfilesPanelFixture.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

/// What goes through the editor.
class tst_ProfilesPanel_edit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }

    void add_makesAProfile();
    void add_isCancelled();
    void edit_changesAProfileOfOnesOwn();
    void edit_changesABuiltInProfile_untilExit();
    void edit_keepsABuiltInProfile_asANewOne();
    void edit_opensOnce();
    void editor_blocksNothing();
    void keys_editAndRemove();
    void doubleClick_edits();
    void readOnlyProfile_isNotEdited();
};

void tst_ProfilesPanel_edit::add_makesAProfile()
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

void tst_ProfilesPanel_edit::add_isCancelled()
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

void tst_ProfilesPanel_edit::edit_changesAProfileOfOnesOwn()
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

void tst_ProfilesPanel_edit::edit_changesABuiltInProfile_untilExit()
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

void tst_ProfilesPanel_edit::edit_keepsABuiltInProfile_asANewOne()
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

void tst_ProfilesPanel_edit::edit_opensOnce()
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

void tst_ProfilesPanel_edit::editor_blocksNothing()
{
    Panel panel;
    // Returns while the editor is open: the event loop is nobody else's.
    panel.Click("edit");
    QVERIFY(panel.Editor().isVisible());
    QCOMPARE(panel.Editor().windowModality(), Qt::WindowModal);
}

void tst_ProfilesPanel_edit::keys_editAndRemove()
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

void tst_ProfilesPanel_edit::doubleClick_edits()
{
    Panel panel;
    const QRect place = panel.List().visualRect(panel.panel.m_pModel->index(3));
    QTest::mouseClick(panel.List().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QTest::mouseDClick(panel.List().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QVERIFY(panel.panel.m_pEditor);
    QCOMPARE(PanelTest::Get<QLineEdit>(panel.Editor(), "name").text(), Text("Zouk"));
}

void tst_ProfilesPanel_edit::readOnlyProfile_isNotEdited()
{
    Panel panel;
    panel.configuration.setSelectedProfile(Profile());
    panel.panel.Refresh();
    QVERIFY(!panel.Button("edit").isEnabled());
    QVERIFY(!panel.Button("remove").isEnabled());
}

AA_TEST(tst_ProfilesPanel_edit, InVirtualTime<QApplication>)
#include "tst_ProfilesPanel_edit.moc"
