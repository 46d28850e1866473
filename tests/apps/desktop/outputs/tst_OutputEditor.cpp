// SPDX-License-Identifier: MIT
#include <desktop/outputs/OutputEditor.h>
#include <desktop/settings/HintLabel.h>
#include <shared/outputs/kinds/OutputKinds.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include <apps/desktop/PanelTest.h>
#include <support/TestClass.h>
#include <support/Text.h>

namespace {

/// An editor whose outputs are kept, or refused with a reason.
struct EditorStand
{
    explicit EditorStand(const StoredOutput& pOutput = {})
        : editor(pOutput, [this](const StoredOutput& pKept) {
              kept = pKept;
              ++count;
              return refusal;
          })
    {
    }

    void choose(const char* pKind)
    {
        auto& box = PanelTest::Get<QComboBox>(editor, "kind");
        box.setCurrentIndex(box.findText(Text(pKind)));
    }
    QLineEdit& field(const char* pName) { return PanelTest::Get<QLineEdit>(editor, pName); }
    QComboBox& presets() { return PanelTest::Get<QComboBox>(editor, "preset"); }

    StoredOutput kept;
    QString refusal;
    int count = 0;
    OutputEditor editor;
};

}  // namespace

class tst_OutputEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }

    void kinds_andPresets_areThoseOfTheTable();
    void keys_makeAnOutput();
    void address_mayHoldThePreset();
    void output_staysAsItWas_whereItIsNotTouched();
    void refusal_isExplained_andMended();
    void everything_hasAName();
};

void tst_OutputEditor::kinds_andPresets_areThoseOfTheTable()
{
    EditorStand stand;
    const auto& kinds = PanelTest::Get<QComboBox>(stand.editor, "kind");
    QCOMPARE(kinds.count(), int(shared::getOutputKinds().size()));
    for (const shared::OutputKind& kind : shared::getOutputKinds()) {
        stand.choose(kind.name);
        QCOMPARE(kinds.currentText(), Text(kind.name));
        QStringList offered;
        for (int i = 0; i < stand.presets().count(); ++i)
            offered.append(stand.presets().itemText(i));
        QCOMPARE(offered, kind.listPresets ? kind.listPresets() : QStringList());
        QCOMPARE(stand.presets().isEnabled(), kind.describePresets != nullptr);
        QVERIFY(Text(kind.place).startsWith(stand.field("address").placeholderText()));
        QCOMPARE(kinds.accessibleDescription(), kind.describe());
    }
}

void tst_OutputEditor::keys_makeAnOutput()
{
    EditorStand stand;
    QVERIFY(PanelTest::Show(stand.editor));
    QTest::keyClicks(QApplication::focusWidget(), Text("Strip"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), Text("osc"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), Text("desk"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), Text("wled"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(stand.count, 1);
    StoredOutput expected;
    expected.name = Text("Strip");
    expected.kind = Text("osc");
    expected.address = Text("desk");
    expected.preset = Text("wled");
    QVERIFY(stand.kept == expected);
    QCOMPARE(stand.editor.result(), int(QDialog::Accepted));
}

void tst_OutputEditor::address_mayHoldThePreset()
{
    EditorStand stand;
    stand.choose("osc");
    stand.field("address").setText(Text(" 10.0.0.5:7000/resolume "));
    QCOMPARE(stand.editor.getOutput().address, Text("10.0.0.5:7000"));
    QCOMPARE(stand.editor.getOutput().preset, Text("resolume"));
    // A port's name may hold a slash.
    stand.choose("midi-clock");
    stand.field("address").setText(Text("USB/1"));
    QCOMPARE(stand.editor.getOutput().address, Text("USB/1"));
    QCOMPARE(stand.editor.getOutput().preset, QString());
    // What is not offered is not kept.
    stand.presets().setEditText(Text("always"));
    stand.choose("wled");
    QCOMPARE(stand.editor.getOutput().preset, QString());
}

void tst_OutputEditor::output_staysAsItWas_whereItIsNotTouched()
{
    StoredOutput output;
    output.name = Text("Desk");
    output.kind = Text("osc");
    output.address = Text("tcp:desk:8000");
    output.preset = Text("beat /a/b f 1 / bpm");
    output.offset = -7.5;
    output.isEnabled = false;
    EditorStand stand(output);
    QVERIFY(stand.editor.getOutput() == output);
    stand.field("name").setText(Text("Other"));
    output.name = Text("Other");
    QVERIFY(stand.editor.getOutput() == output);
}

void tst_OutputEditor::refusal_isExplained_andMended()
{
    EditorStand stand;
    QVERIFY(PanelTest::Show(stand.editor));
    stand.refusal = Text("there is an output already");
    QTest::keyClicks(&stand.field("name"), Text("a"));
    QTest::keyClick(&stand.field("name"), Qt::Key_Return);
    QVERIFY(stand.editor.isVisible());
    QCOMPARE(PanelTest::Get<QLabel>(stand.editor, "refusal").text(), stand.refusal);
    stand.refusal.clear();
    QTest::keyClick(&stand.field("name"), Qt::Key_Return);
    QVERIFY(!stand.editor.isVisible());
    QCOMPARE(stand.count, 2);
    EditorStand other;
    QVERIFY(PanelTest::Show(other.editor));
    QTest::keyClick(&other.field("name"), Qt::Key_Escape);
    QVERIFY(!other.editor.isVisible());
    QCOMPARE(other.count, 0);
}

void tst_OutputEditor::everything_hasAName()
{
    const EditorStand stand;
    QCOMPARE(PanelTest::Unnamed(stand.editor), QStringList());
}

AA_TEST(tst_OutputEditor, QApplication)
#include "tst_OutputEditor.moc"
