// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <shared/hands/HandMap.h>

#include <QtTest>

#include <support/IniFile.h>
#include <support/TestClass.h>

using shared::HandAction;
using shared::HandMap;

namespace {

const QString kNote = QStringLiteral("midi:note/10/36");
const QString kPedal = QStringLiteral("midi:cc/1/64");
const QString kButton = QStringLiteral("osc:/tap, one");

HandAction actionOf(const char* pText)
{
    return *HandAction::Parse(QString::fromLatin1(pText));
}

/// One letter for each value: d = does it, e = ends it, - = nothing.
QString felt(HandMap& pMap, const QString& pControl, const QList<double>& pValues)
{
    QString text;
    for (const double value : pValues) {
        const auto command = pMap.Feel({pControl, value});
        text += QLatin1Char(!command ? '-' : command->isPressed ? 'd' : 'e');
    }
    return text;
}

}  // namespace

class tst_HandMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void controls_areStored_besideTheOthers();
    void malformedEntries_areSaid_andLeftOut();
    void controls_areLearnedAndForgotten();
    void presses_areFelt_data();
    void presses_areFelt();
};

void tst_HandMap::cleanup()
{
    QFile::remove(UISettings::_getDefaultPath());
}

void tst_HandMap::controls_areStored_besideTheOthers()
{
    QVERIFY(HandMap::Load().getActions().empty());
    QVERIFY(WriteIniFile(UISettings::_getDefaultPath(), "[MainWindow]\nBPM=false\n"));
    HandMap map;
    QVERIFY(map.Learn(kNote, actionOf("tap")));
    QVERIFY(map.Learn(kPedal, actionOf("nudge -5.5")));
    QVERIFY(map.Learn(kButton, actionOf("profile Rock, loud")));
    QVERIFY(map.Save());
    const HandMap stored = HandMap::Load();
    QVERIFY(stored.getProblems().isEmpty());
    QCOMPARE(stored.getActions().size(), std::size_t(3));
    for (const auto& [control, action] : map.getActions())
        QCOMPARE(stored.getActions().at(control).getText(), action.getText());
    QFile file(UISettings::_getDefaultPath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("BPM=false"));
}

void tst_HandMap::malformedEntries_areSaid_andLeftOut()
{
    QVERIFY(WriteIniFile(UISettings::_getDefaultPath(),
                         "[Hands]\n1\\Control=osc:/a\n1\\Action=dance\n2\\Control=knob\n"
                         "2\\Action=tap\n3\\Control=osc:/b\n3\\Action=one\nsize=3\n"));
    const HandMap map = HandMap::Load();
    QCOMPARE(map.getActions().size(), std::size_t(1));
    QCOMPARE(map.getProblems().size(), 2);
    QVERIFY(map.getProblems()[0].endsWith(
        QLatin1String("control 1 is left out: \"osc:/a\" to \"dance\" is not understood")));
    QVERIFY(map.getProblems()[1].contains(QLatin1String("\"knob\" to \"tap\"")));
}

void tst_HandMap::controls_areLearnedAndForgotten()
{
    HandMap map;
    QVERIFY(map.Learn(kNote, actionOf("tap")));
    QVERIFY(map.Learn(kNote, actionOf("one")));
    QCOMPARE(map.getActions().at(kNote).getText(), QStringLiteral("one"));
    QVERIFY(!map.Learn(QStringLiteral("knob"), actionOf("tap")));
    QVERIFY(map.Forget(kNote));
    QVERIFY(!map.Forget(kNote));
    QVERIFY(!map.Feel({kNote, 1.0}));
    for (int i = 0; i < HandMap::kMost; ++i)
        QVERIFY(map.Learn(QStringLiteral("osc:/%1").arg(i), actionOf("tap")));
    QVERIFY(!map.Learn(kNote, actionOf("tap")));
    QVERIFY(map.Learn(QStringLiteral("osc:/0"), actionOf("one")));
}

void tst_HandMap::presses_areFelt_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<QString>("felt");
    const QString tap = QStringLiteral("tap");
    const QString bend = QStringLiteral("bend 2");
    QTest::newRow("note") << kNote << tap << QList<double>{0.01, 0.0, 1.0, 0.0}
                          << QStringLiteral("d-d-");
    QTest::newRow("note that is never released")
        << kNote << tap << QList<double>{0.3, 0.6} << QStringLiteral("dd");
    QTest::newRow("pedal") << kPedal << tap << QList<double>{1.0, 0.0, 1.0, 0.0}
                           << QStringLiteral("d-d-");
    QTest::newRow("pedal that is never released")
        << kPedal << tap << QList<double>{1.0, 1.0} << QStringLiteral("dd");
    QTest::newRow("knob") << kPedal << tap << QList<double>{0.1, 0.4, 0.5, 0.6, 0.9, 0.4, 0.7}
                          << QStringLiteral("--d---d");
    QTest::newRow("bend by note") << kNote << bend << QList<double>{0.2, 0.0, 0.0}
                                  << QStringLiteral("de-");
    QTest::newRow("bend by pedal")
        << kPedal << bend << QList<double>{1.0, 0.7, 0.2, 0.1} << QStringLiteral("d-e-");
}

void tst_HandMap::presses_areFelt()
{
    QFETCH(const QString, control);
    QFETCH(const QString, action);
    QFETCH(const QList<double>, values);
    QFETCH(const QString, felt);
    HandMap map;
    QVERIFY(map.Learn(control, *HandAction::Parse(action)));
    QCOMPARE(::felt(map, control, values), felt);
    QCOMPARE(::felt(map, QStringLiteral("osc:/other"), values),
             QString(values.size(), QLatin1Char('-')));
}

AA_TEST(tst_HandMap, QCoreApplication)

#include "tst_HandMap.moc"
