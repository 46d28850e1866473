// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/ProfilesModel.h>

#include <QAbstractItemModelTester>

#include <apps/desktop/PanelTest.h>
#include <support/TestClass.h>
#include <support/Text.h>

namespace {

/// A model under the eyes of Qt's tester.
struct WatchedProfiles
{
    Configuration configuration;
    ProfilesModel model{configuration};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};

    QStringList Texts() const
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row).data().toString());
        return texts;
    }
    QVariant Data(int pRow, int pRole) const { return model.index(pRow).data(pRole); }
};

}  // namespace

class tst_ProfilesModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }

    void list_hasTheBuiltInProfilesAndTheUsers();
    void reload_takesAddedAndRemovedProfiles();
    void roles_tellNameKindAndSelection();
    void selectedRow_isThatOfTheConfiguration();
    void builtInProfile_isMarked_whenItIsChanged();
    void ownProfile_isNeverMarkedChanged();
    void names_areThoseOfTheOthers();
    void updateTexts_tellsEveryRow();
    void data_isEmpty_whereThereIsNone();
};

void tst_ProfilesModel::list_hasTheBuiltInProfilesAndTheUsers()
{
    WatchedProfiles watched;
    watched.configuration.Add(Text("Zouk"), 80.0, 110.5, 2.0, 0, 75);
    watched.configuration.Add(Text("Ambient"), 60.0, 90.0, 2.0, 0, 75);
    QCOMPARE(watched.model.rowCount(), 3);
    watched.model.Reload();
    QCOMPARE(watched.Texts(),
             QStringList({Text("Electro (90 to 175 BPM)"),
                          Text("Hardcore (130 to 250 BPM)"),
                          Text("Slow (70 to 135 BPM)"),
                          Text("Ambient (60 to 90 BPM)"),
                          Text("Zouk (80 to 110.5 BPM)")}));
}

void tst_ProfilesModel::reload_takesAddedAndRemovedProfiles()
{
    WatchedProfiles watched;
    QSignalSpy reset(&watched.model, &QAbstractItemModel::modelReset);
    const Profile added = watched.configuration.Add(Text("Zouk"), 80.0, 110.0, 2.0, 0, 75);
    watched.model.Reload();
    QCOMPARE(watched.model.rowCount(), 4);
    QCOMPARE(watched.model.getProfile(3).getID(), added.getID());
    watched.configuration.Remove(UserProfile(Text("Zouk"), 2.0, 0, 75, added.getID(), 80.0, 110.0));
    watched.model.Reload();
    QCOMPARE(watched.model.rowCount(), 3);
    QCOMPARE(reset.count(), 2);
}

void tst_ProfilesModel::roles_tellNameKindAndSelection()
{
    WatchedProfiles watched;
    watched.configuration.setSelectedProfile(
        watched.configuration.Add(Text("Zouk"), 80.0, 110.0, 2.0, 0, 75));
    watched.model.Reload();
    QCOMPARE(watched.Data(3, ProfilesModel::eNameRole).toString(), Text("Zouk"));
    QVERIFY(!watched.Data(3, ProfilesModel::eBuiltInRole).toBool());
    QVERIFY(watched.Data(3, ProfilesModel::eSelectedRole).toBool());
    QVERIFY(watched.Data(0, ProfilesModel::eBuiltInRole).toBool());
    QVERIFY(!watched.Data(0, ProfilesModel::eSelectedRole).toBool());
    const QHash<int, QByteArray> names = watched.model.roleNames();
    QCOMPARE(names.value(ProfilesModel::eNameRole), QByteArray("name"));
    QCOMPARE(names.value(ProfilesModel::eBuiltInRole), QByteArray("isBuiltIn"));
    QCOMPARE(names.value(ProfilesModel::eSelectedRole), QByteArray("isSelected"));
    QCOMPARE(names.value(ProfilesModel::eChangedRole), QByteArray("isChanged"));
}

void tst_ProfilesModel::selectedRow_isThatOfTheConfiguration()
{
    WatchedProfiles watched;
    QCOMPARE(watched.model.getSelectedRow(), 0);
    watched.configuration.setSelectedProfile(watched.model.getProfile(2));
    QCOMPARE(watched.model.getSelectedRow(), 2);
    watched.configuration.setSelectedProfile(UserProfile(Text("x"), 2.0, 0, 75, 500, 80.0, 110.0));
    QCOMPARE(watched.model.getSelectedRow(), -1);
}

void tst_ProfilesModel::builtInProfile_isMarked_whenItIsChanged()
{
    WatchedProfiles watched;
    Profile electro = watched.model.getProfile(0);
    QVERIFY(!watched.Data(0, ProfilesModel::eChangedRole).toBool());
    QVERIFY(electro.setMaximalBPM(160.0));
    QVERIFY(watched.Data(0, ProfilesModel::eChangedRole).toBool());
    QCOMPARE(watched.Texts().first(), Text("Electro (90 to 160 BPM), changed until exit"));
    QVERIFY(!watched.Data(1, ProfilesModel::eChangedRole).toBool());
    watched.model.Reload();
    QVERIFY(watched.Data(0, ProfilesModel::eChangedRole).toBool());
    QVERIFY(electro.setMaximalBPM(175.0));
    QVERIFY(!watched.Data(0, ProfilesModel::eChangedRole).toBool());
}

void tst_ProfilesModel::ownProfile_isNeverMarkedChanged()
{
    WatchedProfiles watched;
    Profile own = watched.configuration.Add(Text("Zouk"), 80.0, 110.0, 2.0, 0, 75);
    watched.model.Reload();
    QVERIFY(own.setSensibility(3.0));
    QVERIFY(!watched.Data(3, ProfilesModel::eChangedRole).toBool());
}

void tst_ProfilesModel::names_areThoseOfTheOthers()
{
    const WatchedProfiles watched;
    QCOMPARE(watched.model.getNames(),
             QStringList({Text("Electro"), Text("Hardcore"), Text("Slow")}));
    QCOMPARE(watched.model.getNames(1), QStringList({Text("Electro"), Text("Slow")}));
}

void tst_ProfilesModel::updateTexts_tellsEveryRow()
{
    WatchedProfiles watched;
    QSignalSpy changed(&watched.model, &QAbstractItemModel::dataChanged);
    watched.model.UpdateTexts();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex().row(), 0);
    QCOMPARE(changed.at(0).at(1).toModelIndex().row(), 2);
}

void tst_ProfilesModel::data_isEmpty_whereThereIsNone()
{
    const WatchedProfiles watched;
    QVERIFY(!watched.model.data(QModelIndex(), Qt::DisplayRole).isValid());
    QVERIFY(!watched.model.index(3).isValid());
    QVERIFY(!watched.Data(0, Qt::DecorationRole).isValid());
    QCOMPARE(watched.model.rowCount(watched.model.index(0)), 0);
}

AA_TEST(tst_ProfilesModel, QApplication)
#include "tst_ProfilesModel.moc"
