// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsFolder.h>
#include <AudioAnalyzer/config/UISettings.h>
#include <AudioAnalyzer/config/detail/SettingsPlace.h>

#include <QtTest>

#include <support/TestClass.h>

namespace {

const QString kName = QStringLiteral("AudioAnalyzer.cfg");

QString besideExecutable(const QString& pName = kName)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + pName;
}

}  // namespace

class tst_SettingsFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { SettingsFolder::setUserFolder({}); }

    void place_followsFromTheFacts_data();
    void place_followsFromTheFacts();
    void files_areBesideTheExecutable_untilAFolderIsNamed();
    void files_areBesideTheExecutable_whereThatWorks();
    void userFolder_isTakenBack();
};

void tst_SettingsFolder::place_followsFromTheFacts_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<bool>("isFolderWritable");
    QTest::addColumn<bool>("isBeside");
    QTest::newRow("a folder of one's own") << false << true << true;
    QTest::newRow("a folder of one's own, saved before") << true << true << true;
    QTest::newRow("installed for all") << false << false << false;
    QTest::newRow("installed for all, with settings for all") << true << false << true;
}

void tst_SettingsFolder::place_followsFromTheFacts()
{
    QFETCH(bool, isThere);
    QFETCH(bool, isFolderWritable);
    detail::SettingsPlace place;
    place.isThere = isThere;
    place.isFolderWritable = isFolderWritable;
    QTEST(detail::isBesideExecutable(place), "isBeside");
}

void tst_SettingsFolder::files_areBesideTheExecutable_untilAFolderIsNamed()
{
    QCOMPARE(SettingsFolder::getUserFolder(), QString());
    QCOMPARE(SettingsFolder::getPath(kName), besideExecutable());
    QCOMPARE(Configuration::_getConfigFilePath(), besideExecutable());
    QCOMPARE(UISettings::_getDefaultPath(), besideExecutable(QStringLiteral("AudioAnalyzer.ini")));
}

void tst_SettingsFolder::files_areBesideTheExecutable_whereThatWorks()
{
    // Each test has an output folder of its own, which can be written.
    SettingsFolder::setUserFolder(QStringLiteral("/somewhere"));
    QCOMPARE(SettingsFolder::getPath(kName), besideExecutable());
    QCOMPARE(Configuration::_getConfigFilePath(), besideExecutable());
}

void tst_SettingsFolder::userFolder_isTakenBack()
{
    SettingsFolder::setUserFolder(QStringLiteral("/somewhere"));
    QCOMPARE(SettingsFolder::getUserFolder(), QStringLiteral("/somewhere"));
    SettingsFolder::setUserFolder({});
    QCOMPARE(SettingsFolder::getUserFolder(), QString());
}

AA_TEST(tst_SettingsFolder, QCoreApplication)
#include "tst_SettingsFolder.moc"
