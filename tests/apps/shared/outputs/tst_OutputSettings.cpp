// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <shared/outputs/OutputSettings.h>

#include <QDir>
#include <QtTest>

#include <support/IniFile.h>
#include <support/TestClass.h>

namespace {

StoredOutput OutputNamed(const char* pName)
{
    StoredOutput output;
    output.name = QString::fromUtf8(pName);
    output.kind = QStringLiteral("osc");
    return output;
}

QStringList NamesIn(const OutputSettings& pSettings)
{
    QStringList names;
    for (const StoredOutput& output : pSettings.getOutputs())
        names += output.name;
    return names;
}

}  // namespace

class tst_OutputSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void nothing_isThere_withoutAFile();
    void outputs_areStored_besideTheOthers();
    void outputs_areFound_whateverTheLetterCase();
    void outputs_areReplacedAndRemoved();
    void malformedEntries_areSaid_andLeftOut_data();
    void malformedEntries_areSaid_andLeftOut();
    void handwrittenComma_isKept();
    void noMoreThanTheMost_areTaken();
    void file_thatCannotBeWritten_isSaid();
};

void tst_OutputSettings::cleanup()
{
    QFile::remove(UISettings::_getDefaultPath());
}

void tst_OutputSettings::nothing_isThere_withoutAFile()
{
    const OutputSettings settings = OutputSettings::Load();
    QVERIFY(settings.getOutputs().empty());
    QVERIFY(settings.getProblems().isEmpty());
    QVERIFY(!QFile::exists(UISettings::_getDefaultPath()));
}

void tst_OutputSettings::outputs_areStored_besideTheOthers()
{
    QVERIFY(
        WriteIniFile(UISettings::_getDefaultPath(),
                     "[MainWindow]\nBPM=false\n[Outputs]\n1\\Name=old\n3\\Name=older\nsize=3\n"));
    OutputSettings settings;
    StoredOutput lights = OutputNamed("Bühne, links");
    lights.address = QStringLiteral("10.0.0.5:7000");
    lights.preset = QStringLiteral("beat /a ff bpm, \"%1\"; bar /b i 1");
    lights.offset = -12.5;
    lights.isEnabled = false;
    QCOMPARE(settings.Add(lights), QString());
    QCOMPARE(settings.Add(OutputNamed("drums")), QString());
    QVERIFY(settings.Save());
    const OutputSettings stored = OutputSettings::Load();
    QCOMPARE(NamesIn(stored), QStringList({lights.name, QStringLiteral("drums")}));
    const StoredOutput& first = stored.getOutputs()[0];
    QCOMPARE(first.kind, lights.kind);
    QCOMPARE(first.address, lights.address);
    QCOMPARE(first.preset, lights.preset);
    QCOMPARE(first.offset, -12.5);
    QVERIFY(!first.isEnabled);
    QVERIFY(stored.getOutputs()[1].isEnabled);
    QVERIFY(stored.getProblems().isEmpty());
    QVERIFY(!UISettings::Load().isBPMVisible());
}

void tst_OutputSettings::outputs_areFound_whateverTheLetterCase()
{
    OutputSettings settings;
    QCOMPARE(settings.Add(OutputNamed("Lights")), QString());
    QVERIFY(settings.Find(QStringLiteral("lIGHTS")));
    QVERIFY(!settings.Find(QStringLiteral("light")));
    QCOMPARE(settings.Add(OutputNamed("lights")),
             QStringLiteral("there is an output \"Lights\" already"));
}

void tst_OutputSettings::outputs_areReplacedAndRemoved()
{
    OutputSettings settings;
    settings.Add(OutputNamed("a"));
    settings.Add(OutputNamed("b"));
    QCOMPARE(settings.Replace(QStringLiteral("a"), OutputNamed("A")), QString());
    QCOMPARE(settings.Replace(QStringLiteral("a"), OutputNamed("b")),
             QStringLiteral("there is an output \"b\" already"));
    QCOMPARE(settings.Replace(QStringLiteral("c"), OutputNamed("d")),
             QStringLiteral("there is no output \"c\""));
    QVERIFY(settings.Remove(QStringLiteral("B")));
    QVERIFY(!settings.Remove(QStringLiteral("b")));
    QCOMPARE(NamesIn(settings), QStringList({QStringLiteral("A")}));
}

void tst_OutputSettings::malformedEntries_areSaid_andLeftOut_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<QString>("reason");
    const auto add = [](const char* pName, const QByteArray& pEntry, const char* pReason) {
        QTest::newRow(pName) << pEntry << QString::fromLatin1(pReason);
    };
    add("empty", "", "its name must have 1 to 40 letters");
    add("no name", "2\\Kind=osc", "its name must have 1 to 40 letters");
    add("long name",
        "2\\Kind=osc\n2\\Name=" + QByteArray(41, 'x'),
        "its name must have 1 to 40 letters");
    add("control", "2\\Kind=osc\n2\\Name=a\\x1b", "its name must have 1 to 40 letters");
    add("no kind", "2\\Name=b", "it has no kind");
    add("same name", "2\\Name=GOOD\n2\\Kind=osc", "there is an output \"good\" already");
    add("far", "2\\Name=b\n2\\Kind=osc\n2\\OffsetMs=501", "its offset must be -500 to 500 ms");
    add("nan", "2\\Name=b\n2\\Kind=osc\n2\\OffsetMs=nan", "its offset must be -500 to 500 ms");
    add("no number", "2\\Name=b\n2\\Kind=osc\n2\\OffsetMs=x", "its offset must be -500 to 500 ms");
    add("long",
        "2\\Name=b\n2\\Kind=osc\n2\\Preset=" + QByteArray(2001, 'x'),
        "its kind, address or preset is too long, or no text");
}

void tst_OutputSettings::malformedEntries_areSaid_andLeftOut()
{
    QFETCH(QByteArray, entry);
    QFETCH(QString, reason);
    const QString path = UISettings::_getDefaultPath();
    QVERIFY(WriteIniFile(path,
                         "[Outputs]\nsize=3\n1\\Name=good\n1\\Kind=osc\n" + entry +
                             "\n3\\Name=last\n3\\Kind=osc\n"));
    const OutputSettings settings = OutputSettings::Load();
    QCOMPARE(NamesIn(settings), QStringList({QStringLiteral("good"), QStringLiteral("last")}));
    QCOMPARE(settings.getProblems(),
             QStringList({path + QStringLiteral(": output 2 is left out: ") + reason}));
}

void tst_OutputSettings::handwrittenComma_isKept()
{
    QVERIFY(WriteIniFile(UISettings::_getDefaultPath(),
                         "[Outputs]\nsize=1\n1\\Name=a\n1\\Kind=osc\n1\\Preset=beat /a ff 1, 2\n"));
    const OutputSettings settings = OutputSettings::Load();
    QCOMPARE(settings.getOutputs().at(0).preset, QStringLiteral("beat /a ff 1, 2"));
}

void tst_OutputSettings::noMoreThanTheMost_areTaken()
{
    QByteArray text = "[Outputs]\nsize=2000000000\n";
    for (int i = 1; i <= 70; ++i)
        text += QStringLiteral("%1\\Name=n%1\n%1\\Kind=osc\n").arg(i).toLatin1();
    QVERIFY(WriteIniFile(UISettings::_getDefaultPath(), text));
    OutputSettings settings = OutputSettings::Load();
    QCOMPARE(int(settings.getOutputs().size()), 64);
    QCOMPARE(settings.getProblems().size(), 1);
    QVERIFY(settings.getProblems()[0].endsWith(QStringLiteral("only the first 64 outputs count")));
    QCOMPARE(settings.Add(OutputNamed("x")), QStringLiteral("there are 64 outputs already"));
}

// Also root cannot put a file in a folder's place.
void tst_OutputSettings::file_thatCannotBeWritten_isSaid()
{
    const QString path = UISettings::_getDefaultPath();
    QVERIFY(QDir().mkpath(path + QStringLiteral("/x")));
    QVERIFY(!OutputSettings().Save());
    QVERIFY(QDir(path).removeRecursively());
}

AA_TEST(tst_OutputSettings, QCoreApplication)
#include "tst_OutputSettings.moc"
