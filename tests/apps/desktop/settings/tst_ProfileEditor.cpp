// SPDX-License-Identifier: MIT
#include <desktop/settings/DecimalField.h>
#include <desktop/settings/HintLabel.h>
#include <desktop/settings/ProfileEditor.h>

#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>
#include <apps/desktop/PanelTest.h>
#include <support/TestClass.h>
#include <support/Text.h>

using desktop::ProfileValues;

namespace {

const ProfileValues kOwn{QStringLiteral("Zouk"), 80.0, 110.0, 20, 90, 1.5};
const QStringList kTaken{QStringLiteral("Electro"), QStringLiteral("Slow")};

/// An editor with what a person does to it.
struct Editor
{
    explicit Editor(ProfileEditor::eKind pKind, const ProfileValues& pValues = kOwn)
        : editor(pKind, pValues, kTaken)
    {
        if (!PanelTest::Show(editor))
            qFatal("the editor is not shown");
    }

    void Type(const char* pName, const char* pText)
    {
        auto& field = PanelTest::Get<QWidget>(editor, pName);
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, Text(pText));
    }
    HintLabel& Hint(const char* pName)
    {
        return *static_cast<HintLabel*>(&PanelTest::Get<QLabel>(editor, pName));
    }
    /// The fields whose values are refused.
    QString Refused()
    {
        QString names;
        for (const char* pName : {"name", "minimalBPM", "low", "sensibility"})
            if (Hint((QByteArray(pName) + "Hint").constData()).isRefusal())
                names += Text(pName) + QLatin1Char(' ');
        return names.trimmed();
    }
    bool IsOpen() const { return editor.isVisible(); }

    ProfileEditor editor;
};

}  // namespace

class tst_ProfileEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { PanelTest::Clear(); }

    void fields_showTheValues();
    void typedValues_areGiven();
    void untouchedValues_areExactlyAsTheyWere();
    void edges_mayBeMissing();
    void refusal_isExplainedBesideItsField_data();
    void refusal_isExplainedBesideItsField();
    void refusal_keepsEverythingAndLeadsToTheField();
    void refusals_areAllShownAtOnce();
    void mendedValue_isNoLongerRefused();
    void emptyNameOfANewProfile_isNoMistakeYet();
    void cancel_andEscape_giveNothing();
    void enter_accepts();
    void builtIn_saysThatChangesEnd();
    void own_andNew_saySo();
    void builtIn_isUsedUntilExit();
    void builtIn_isSavedAsNew_underAnotherName();
    void greatSensibility_isNotCut();
    void everything_hasAName();
    void mnemonics_differ_data();
    void mnemonics_differ();
};

void tst_ProfileEditor::fields_showTheValues()
{
    Editor editor(ProfileEditor::eOwn);
    QCOMPARE(PanelTest::Get<QLineEdit>(editor.editor, "name").text(), Text("Zouk"));
    QCOMPARE(PanelTest::Get<QSpinBox>(editor.editor, "minimalBPM").text(), Text("80 BPM"));
    QCOMPARE(PanelTest::Get<QSpinBox>(editor.editor, "maximalBPM").text(), Text("110 BPM"));
    QCOMPARE(PanelTest::Get<QSpinBox>(editor.editor, "low").text(), Text("20 Hz"));
    QCOMPARE(PanelTest::Get<QSpinBox>(editor.editor, "high").text(), Text("90 Hz"));
    QCOMPARE(PanelTest::Get<DecimalField>(editor.editor, "sensibility").value(), 1.5);
    QCOMPARE(editor.Refused(), QString());
    QVERIFY(editor.editor.getValues() == kOwn);
    QCOMPARE(editor.editor.windowTitle(), Text("Profile “Zouk”"));
}

void tst_ProfileEditor::typedValues_areGiven()
{
    Editor editor(ProfileEditor::eOwn);
    editor.Type("name", "Salsa");
    editor.Type("minimalBPM", "150");
    editor.Type("maximalBPM", "220");
    editor.Type("low", "40");
    editor.Type("high", "120");
    editor.Type("sensibility", "2.75");
    QSignalSpy accepted(&editor.editor, &QDialog::accepted);
    PanelTest::Click(editor.editor, "accept");
    QCOMPARE(accepted.count(), 1);
    QVERIFY(!editor.IsOpen());
    QVERIFY(editor.editor.getValues() ==
            (ProfileValues{Text("Salsa"), 150.0, 220.0, 40, 120, 2.75}));
}

void tst_ProfileEditor::untouchedValues_areExactlyAsTheyWere()
{
    // More digits than the fields show.
    const ProfileValues values{Text(" Zouk "), 80.4, 110.6, 20, 90, 1.23456};
    Editor editor(ProfileEditor::eOwn, values);
    editor.Type("low", "21");
    ProfileValues expected = values;
    expected.low = 21;
    QVERIFY(editor.editor.getValues() == expected);
}

void tst_ProfileEditor::edges_mayBeMissing()
{
    ProfileValues values = kOwn;
    values.low = -1;
    values.high = -1;
    Editor editor(ProfileEditor::eOwn, values);
    auto& low = PanelTest::Get<QSpinBox>(editor.editor, "low");
    QCOMPARE(low.text(), Text("no edge"));
    QVERIFY(editor.editor.getValues() == values);
    low.setFocus();
    QTest::keyClick(&low, Qt::Key_Up);
    QCOMPARE(low.text(), Text("0 Hz"));
    QTest::keyClick(&low, Qt::Key_Down);
    QCOMPARE(editor.editor.getValues().low, -1);
    QCOMPARE(editor.Refused(), QString());
}

void tst_ProfileEditor::refusal_isExplainedBesideItsField_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QByteArray>("hint");
    QTest::addColumn<QString>("words");
    const auto add =
        [](const char* pField, const char* pTyped, const char* pHint, const char* pWords) {
            QTest::newRow(pWords) << QByteArray(pField) << QByteArray(pTyped) << QByteArray(pHint)
                                  << Text(pWords);
        };
    add("name", "", "nameHint", "Give the profile a name.");
    add("name",
        "electro",
        "nameHint",
        "There is a profile “electro” already; choose another name.");
    add("minimalBPM", "0", "minimalBPMHint", "The lowest tempo must be at least 1 BPM.");
    add("maximalBPM", "1000", "minimalBPMHint", "The highest tempo must be at most 999 BPM.");
    add("minimalBPM", "111", "minimalBPMHint", "The lowest tempo must not be above the highest.");
    add("low", "91", "lowHint", "The lower edge must not be above the upper edge.");
}

void tst_ProfileEditor::refusal_isExplainedBesideItsField()
{
    QFETCH(const QByteArray, field);
    QFETCH(const QByteArray, typed);
    QFETCH(const QByteArray, hint);
    QFETCH(const QString, words);
    Editor editor(ProfileEditor::eOwn);
    editor.Type(field.constData(), typed.constData());
    QVERIFY(editor.Hint(hint.constData()).isRefusal());
    QCOMPARE(editor.Hint(hint.constData()).text(), words);
    QCOMPARE(PanelTest::Get<QWidget>(editor.editor, field.constData()).accessibleDescription(),
             words);
    QSignalSpy accepted(&editor.editor, &QDialog::accepted);
    PanelTest::Click(editor.editor, "accept");
    QCOMPARE(accepted.count(), 0);
    QVERIFY(editor.IsOpen());
}

void tst_ProfileEditor::refusal_keepsEverythingAndLeadsToTheField()
{
    Editor editor(ProfileEditor::eOwn);
    editor.Type("name", "Salsa");
    editor.Type("low", "500");
    editor.Type("sensibility", "3");
    PanelTest::Click(editor.editor, "accept");
    QVERIFY(editor.IsOpen());
    QCOMPARE(editor.editor.focusWidget(), &PanelTest::Get<QWidget>(editor.editor, "low"));
    QVERIFY(editor.editor.getValues() == (ProfileValues{Text("Salsa"), 80.0, 110.0, 500, 90, 3.0}));
}

void tst_ProfileEditor::refusals_areAllShownAtOnce()
{
    Editor editor(ProfileEditor::eOwn);
    editor.Type("name", "slow");
    editor.Type("minimalBPM", "300");
    editor.Type("low", "500");
    QCOMPARE(editor.Refused(), Text("name minimalBPM low"));
    PanelTest::Click(editor.editor, "accept");
    QCOMPARE(editor.editor.focusWidget(), &PanelTest::Get<QWidget>(editor.editor, "name"));
}

void tst_ProfileEditor::mendedValue_isNoLongerRefused()
{
    Editor editor(ProfileEditor::eOwn);
    editor.Type("minimalBPM", "300");
    QCOMPARE(editor.Refused(), Text("minimalBPM"));
    editor.Type("maximalBPM", "400");
    QCOMPARE(editor.Refused(), QString());
    QCOMPARE(editor.Hint("minimalBPMHint").text(),
             Text("Lowest and highest tempo to look for, 1 to 999 BPM"));
    PanelTest::Click(editor.editor, "accept");
    QVERIFY(!editor.IsOpen());
}

void tst_ProfileEditor::emptyNameOfANewProfile_isNoMistakeYet()
{
    Editor editor(ProfileEditor::eNew, ProfileValues());
    QCOMPARE(editor.Refused(), QString());
    QCOMPARE(editor.editor.windowTitle(), Text("New profile"));
    PanelTest::Click(editor.editor, "accept");
    QVERIFY(editor.IsOpen());
    QCOMPARE(editor.Refused(), Text("name"));
    editor.Type("name", "x");
    QCOMPARE(editor.Refused(), QString());
    editor.Type("name", "");
    QCOMPARE(editor.Refused(), Text("name"));
}

void tst_ProfileEditor::cancel_andEscape_giveNothing()
{
    Editor cancelled(ProfileEditor::eOwn);
    QSignalSpy rejected(&cancelled.editor, &QDialog::rejected);
    PanelTest::Click(cancelled.editor, "cancel");
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!cancelled.IsOpen());
    Editor escaped(ProfileEditor::eOwn);
    QTest::keyClick(&escaped.editor, Qt::Key_Escape);
    QVERIFY(!escaped.IsOpen());
    QCOMPARE(escaped.editor.result(), int(QDialog::Rejected));
}

void tst_ProfileEditor::enter_accepts()
{
    Editor editor(ProfileEditor::eOwn);
    editor.Type("name", "Salsa");
    QTest::keyClick(&PanelTest::Get<QWidget>(editor.editor, "name"), Qt::Key_Return);
    QVERIFY(!editor.IsOpen());
    QCOMPARE(editor.editor.result(), int(QDialog::Accepted));
    QVERIFY(!editor.editor.isSavedAsNew());
}

void tst_ProfileEditor::builtIn_saysThatChangesEnd()
{
    Editor editor(ProfileEditor::eBuiltIn);
    QVERIFY(editor.editor.m_pNotice->isVisible());
    QVERIFY(editor.editor.m_pNotice->text().contains(Text("until the program ends")));
    QCOMPARE(editor.editor.m_pAccept->text(), Text("&Use until exit"));
    QVERIFY(editor.editor.m_pSaveAsNew->isVisible());
}

void tst_ProfileEditor::own_andNew_saySo()
{
    for (const auto kind : {ProfileEditor::eOwn, ProfileEditor::eNew}) {
        Editor editor(kind);
        QVERIFY(!editor.editor.m_pNotice->isVisible());
        QVERIFY(!editor.editor.m_pSaveAsNew->isVisible());
        QCOMPARE(editor.editor.m_pAccept->text(), Text("&OK"));
    }
}

void tst_ProfileEditor::builtIn_isUsedUntilExit()
{
    Editor editor(ProfileEditor::eBuiltIn);
    editor.Type("maximalBPM", "120");
    PanelTest::Click(editor.editor, "accept");
    QVERIFY(!editor.IsOpen());
    QVERIFY(!editor.editor.isSavedAsNew());
}

void tst_ProfileEditor::builtIn_isSavedAsNew_underAnotherName()
{
    Editor editor(ProfileEditor::eBuiltIn);
    PanelTest::Click(editor.editor, "saveAsNew");
    QVERIFY(editor.IsOpen());
    QCOMPARE(editor.Refused(), Text("name"));
    QCOMPARE(editor.Hint("nameHint").text(),
             Text("There is a profile “Zouk” already; choose another name."));
    // Its own name is good enough to be used until exit.
    PanelTest::Click(editor.editor, "accept");
    QVERIFY(!editor.IsOpen());
    QVERIFY(!editor.editor.isSavedAsNew());

    Editor other(ProfileEditor::eBuiltIn);
    PanelTest::Click(other.editor, "saveAsNew");
    other.Type("name", "Zouk 2");
    QCOMPARE(other.Refused(), QString());
    PanelTest::Click(other.editor, "saveAsNew");
    QVERIFY(!other.IsOpen());
    QCOMPARE(other.editor.result(), int(QDialog::Accepted));
    QVERIFY(other.editor.isSavedAsNew());
}

void tst_ProfileEditor::greatSensibility_isNotCut()
{
    ProfileValues values = kOwn;
    values.sensibility = 5000.0;
    const Editor editor(ProfileEditor::eOwn, values);
    QVERIFY(editor.editor.getValues() == values);
}

void tst_ProfileEditor::everything_hasAName()
{
    const Editor editor(ProfileEditor::eBuiltIn);
    QCOMPARE(PanelTest::Unnamed(editor.editor), QStringList());
}

void tst_ProfileEditor::mnemonics_differ_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("letters");
    QTest::newRow("own") << int(ProfileEditor::eOwn) << Text("BCNOSTW");
    QTest::newRow("built-in") << int(ProfileEditor::eBuiltIn) << Text("BCNSTUW");
}

void tst_ProfileEditor::mnemonics_differ()
{
    QFETCH(const int, kind);
    QFETCH(const QString, letters);
    const Editor editor(static_cast<ProfileEditor::eKind>(kind));
    QString found = PanelTest::Mnemonics(editor.editor);
    std::sort(found.begin(), found.end());
    QCOMPARE(found, letters);
}

AA_TEST(tst_ProfileEditor, QApplication)
#include "tst_ProfileEditor.moc"
