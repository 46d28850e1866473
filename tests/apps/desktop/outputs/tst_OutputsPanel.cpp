// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/UISettings.h>

#include <desktop/outputs/OutputEditor.h>
#include <desktop/outputs/OutputsModel.h>
#include <desktop/outputs/OutputsPanel.h>
#include <desktop/settings/DecimalField.h>

#include <QFile>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSlider>
#include <QUdpSocket>

#include <apps/desktop/PanelTest.h>
#include <support/TestClass.h>
#include <support/Text.h>

namespace {

constexpr int kPanelTimeoutMs = 60000;

StoredOutput OutputOf(const char* pName, const char* pAddress = "127.0.0.1:9")
{
    StoredOutput output;
    output.name = Text(pName);
    output.kind = Text("osc");
    output.address = Text(pAddress);
    return output;
}

/// The panel over what is stored.
struct PanelStand
{
    PanelStand() { outputs.setOn(true); }
    explicit PanelStand(const std::vector<StoredOutput>& pOutputs)
    {
        for (const StoredOutput& output : pOutputs)
            settings.Add(output);
        if (!settings.Save())
            qFatal("cannot store the outputs");
        outputs.setOn(true);
    }

    template <typename Widget>
    Widget& get(const char* pName)
    {
        return PanelTest::Get<Widget>(panel, pName);
    }
    QListView& list() { return get<QListView>("outputs"); }
    QString row(int pRow) { return list().model()->index(pRow, 0).data().toString(); }
    QString text(const char* pLabel) { return get<QLabel>(pLabel).text(); }
    void press(int pKey) { QTest::keyClick(&list(), Qt::Key(pKey)); }
    const StoredOutput* stored(const char* pName)
    {
        settings = OutputSettings::Load();
        return settings.Find(Text(pName));
    }

    OutputSettings settings;  ///< as they were stored last
    Configuration configuration;
    LiveBeats beats;
    MonitorOutputs outputs{beats};
    OutputsPanel panel{configuration, outputs};
};

}  // namespace

/// The panel of outputs, by keyboard. With real sockets, in real time.
class tst_OutputsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init() { QFile::remove(UISettings::_getDefaultPath()); }
    void cleanup() { QFile::remove(UISettings::_getDefaultPath()); }

    void emptyPanel_offersToAdd_andNothingElse();
    void keys_addAnOutput();
    void keys_changeIt_andRemoveIt();
    void enter_checksIt();
    void click_checksIt();
    void states_areSaidInWords();
    void offset_isMovedByKeys_andStored();
    void offset_isThatOfTheCurrentOne();
    void test_isSaid_whileItRuns_andAfterwards();
    void current_staysWhenOthersComeAndGo();
    void everything_hasAName();
};

void tst_OutputsPanel::emptyPanel_offersToAdd_andNothingElse()
{
    PanelStand stand;
    QVERIFY(PanelTest::Show(stand.panel));
    QVERIFY(stand.get<QLabel>("noOutputs").isVisible());
    QVERIFY(stand.get<QPushButton>("addOutput").isVisible());
    for (const char* name : {"editOutput", "removeOutput", "testOutput"})
        QVERIFY(!stand.get<QPushButton>(name).isVisible());
    QVERIFY(!stand.list().isVisible());
    QVERIFY(!stand.get<QSlider>("outputOffset").isVisible());
    QVERIFY(!stand.get<QLabel>("outputNotice").isVisible());
}

void tst_OutputsPanel::keys_addAnOutput()
{
    PanelStand stand;
    QVERIFY(PanelTest::Show(stand.panel));
    stand.get<QPushButton>("addOutput").setFocus();
    QTest::keyClick(&stand.get<QPushButton>("addOutput"), Qt::Key_Space);
    auto* pEditor = stand.panel.findChild<OutputEditor*>();
    QVERIFY(pEditor && QTest::qWaitForWindowActive(pEditor, kPanelTimeoutMs));
    QTest::keyClicks(&PanelTest::Get<QLineEdit>(*pEditor, "name"), Text("Lights"));
    auto& address = PanelTest::Get<QLineEdit>(*pEditor, "address");
    QTest::keyClicks(&address, Text("127.0.0.1:0"));
    QTest::keyClick(&address, Qt::Key_Return);
    QVERIFY(PanelTest::Get<QLabel>(*pEditor, "refusal").text().contains(Text("HOST:PORT")));
    address.selectAll();
    QTest::keyClicks(&address, Text("127.0.0.1:9/wled"));
    QTest::keyClick(&address, Qt::Key_Return);
    QVERIFY(!pEditor->isVisible());
    QVERIFY(stand.stored("Lights"));
    QCOMPARE(stand.stored("Lights")->preset, Text("wled"));
    QCOMPARE(stand.list().currentIndex().row(), 0);
    QVERIFY(stand.list().isVisible());
}

void tst_OutputsPanel::keys_changeIt_andRemoveIt()
{
    PanelStand stand({OutputOf("a"), OutputOf("b"), OutputOf("c")});
    QVERIFY(PanelTest::Show(stand.panel));
    stand.list().setFocus();
    stand.press(Qt::Key_Down);
    QCOMPARE(stand.list().currentIndex().row(), 1);
    stand.press(Qt::Key_F2);
    auto* pEditor = stand.panel.findChild<OutputEditor*>();
    QVERIFY(pEditor && QTest::qWaitForWindowActive(pEditor, kPanelTimeoutMs));
    auto& name = PanelTest::Get<QLineEdit>(*pEditor, "name");
    QTRY_VERIFY_WITH_TIMEOUT(name.hasFocus(), kPanelTimeoutMs);
    QCOMPARE(name.text(), Text("b"));
    QTest::keyClicks(&name, Text("B2"));
    QTest::keyClick(&name, Qt::Key_Return);
    QCOMPARE(PanelTest::Get<QLabel>(*pEditor, "refusal").text(), QString());
    QVERIFY(!stand.stored("b"));
    QVERIFY(stand.stored("B2"));
    QCOMPARE(stand.list().currentIndex().row(), 1);
    QVERIFY(stand.row(1).startsWith(Text("B2: ")));
    QVERIFY(PanelTest::Show(stand.panel));
    stand.list().setFocus();
    QTRY_VERIFY_WITH_TIMEOUT(stand.list().hasFocus(), kPanelTimeoutMs);
    stand.press(Qt::Key_Delete);
    QCOMPARE(stand.text("outputNotice"), QString());
    QCOMPARE(stand.list().model()->rowCount(), 2);
    QVERIFY(!stand.stored("B2"));
    // What is in its place now.
    QCOMPARE(stand.list().currentIndex().row(), 1);
    QVERIFY(stand.row(1).startsWith(Text("c: ")));
}

void tst_OutputsPanel::enter_checksIt()
{
    PanelStand stand({OutputOf("a")});
    QVERIFY(PanelTest::Show(stand.panel));
    stand.list().setFocus();
    stand.press(Qt::Key_Return);
    QVERIFY(!stand.stored("a")->isEnabled);
    QCOMPARE(stand.row(0), Text("a: off"));
    QCOMPARE(stand.text("outputState"), Text("Not enabled: nothing is sent to it."));
    stand.press(Qt::Key_Space);
    QVERIFY(stand.stored("a")->isEnabled);
}

void tst_OutputsPanel::click_checksIt()
{
    PanelStand stand({OutputOf("a")});
    QVERIFY(PanelTest::Show(stand.panel));
    QStyleOptionViewItem item;
    item.initFrom(&stand.list());
    item.rect = stand.list().visualRect(stand.list().model()->index(0, 0));
    item.features = QStyleOptionViewItem::HasCheckIndicator;
    const QRect box = stand.list().style()->subElementRect(
        QStyle::SE_ItemViewItemCheckIndicator, &item, &stand.list());
    QTest::mouseClick(stand.list().viewport(), Qt::LeftButton, Qt::NoModifier, box.center());
    QVERIFY(!stand.stored("a")->isEnabled);
}

void tst_OutputsPanel::states_areSaidInWords()
{
    QUdpSocket receiver;
    QVERIFY(receiver.bind(QHostAddress(QHostAddress::LocalHost)));
    const QByteArray place = "127.0.0.1:" + QByteArray::number(receiver.localPort());
    StoredOutput useless = OutputOf("smoke");
    useless.kind = Text("smoke");
    PanelStand stand(
        {OutputOf("there", place.constData()), OutputOf("away", "tcp:127.0.0.1:1"), useless});
    QVERIFY(PanelTest::Show(stand.panel));
    QTRY_COMPARE_WITH_TIMEOUT(stand.row(0), Text("there: reached"), kPanelTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(stand.text("outputState").startsWith(Text("sending OSC to ")),
                             kPanelTimeoutMs);
    const QString heard = stand.list().model()->index(0, 0).data(Qt::AccessibleTextRole).toString();
    QVERIFY(heard.startsWith(Text("there: reached, sending OSC to ")));
    stand.list().setFocus();
    stand.press(Qt::Key_Down);
    QCOMPARE(stand.row(1), Text("away: away"));
    QTRY_VERIFY_WITH_TIMEOUT(stand.text("outputState").contains(Text("nothing listens there")),
                             kPanelTimeoutMs);
    stand.press(Qt::Key_Down);
    QCOMPARE(stand.row(2), Text("smoke: cannot be used"));
    QVERIFY(stand.text("outputState").startsWith(Text("there is no kind of output")));
    stand.outputs.setOn(false);
    stand.press(Qt::Key_Up);
    QCOMPARE(stand.row(1), Text("away: off"));
    QCOMPARE(stand.text("outputState"), Text("All outputs are off: the key O switches them on."));
}

void tst_OutputsPanel::offset_isMovedByKeys_andStored()
{
    PanelStand stand({OutputOf("a")});
    QVERIFY(PanelTest::Show(stand.panel));
    auto& slider = stand.get<QSlider>("outputOffset");
    auto& field = stand.get<DecimalField>("outputOffsetField");
    slider.setFocus();
    QTest::keyClick(&slider, Qt::Key_Right);
    QTest::keyClick(&slider, Qt::Key_PageUp);
    QCOMPARE(field.value(), 11.0);
    QCOMPARE(stand.outputs.getEntries().front().output.offset, 11.0);
    QTest::keyClick(&slider, Qt::Key_Home);
    QCOMPARE(field.value(), -500.0);
    QTest::keyClick(&slider, Qt::Key_End);
    QCOMPARE(field.value(), 500.0);
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, Text("-12"));
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(slider.value(), -12);
    QTRY_COMPARE_WITH_TIMEOUT(stand.stored("a")->offset, -12.0, kPanelTimeoutMs);
}

void tst_OutputsPanel::offset_isThatOfTheCurrentOne()
{
    StoredOutput late = OutputOf("b");
    late.offset = 7.5;
    PanelStand stand({OutputOf("a"), late});
    QVERIFY(PanelTest::Show(stand.panel));
    QCOMPARE(stand.get<QSlider>("outputOffset").value(), 0);
    stand.list().setFocus();
    stand.press(Qt::Key_Down);
    // It is shown as it is, and not changed by being shown.
    QCOMPARE(stand.get<DecimalField>("outputOffsetField").value(), 7.5);
    QCOMPARE(stand.outputs.getEntries().back().output.offset, 7.5);
    QCOMPARE(stand.outputs.getEntries().front().output.offset, 0.0);
}

void tst_OutputsPanel::test_isSaid_whileItRuns_andAfterwards()
{
    QUdpSocket receiver;
    QVERIFY(receiver.bind(QHostAddress(QHostAddress::LocalHost)));
    const QByteArray place = "127.0.0.1:" + QByteArray::number(receiver.localPort());
    PanelStand stand({OutputOf("a", place.constData()), OutputOf("b")});
    QVERIFY(PanelTest::Show(stand.panel));
    auto& button = stand.get<QPushButton>("testOutput");
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
    QVERIFY(!button.isEnabled());
    QVERIFY(stand.text("outputNotice").startsWith(Text("Two bars at 120 BPM: the receiver gets")));
    QVERIFY(stand.get<QLabel>("outputNotice").isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(button.isEnabled(), kPanelTimeoutMs);
    QVERIFY(stand.text("outputNotice").startsWith(Text("The test is over, 8 beats were sent: ")));
    QVERIFY(receiver.hasPendingDatagrams());
    // It is told of that one alone.
    stand.list().setFocus();
    stand.press(Qt::Key_Down);
    QVERIFY(!stand.get<QLabel>("outputNotice").isVisible());
}

void tst_OutputsPanel::current_staysWhenOthersComeAndGo()
{
    PanelStand stand({OutputOf("a"), OutputOf("b")});
    QVERIFY(PanelTest::Show(stand.panel));
    stand.list().setFocus();
    stand.press(Qt::Key_Down);
    QCOMPARE(stand.outputs.Remove(Text("a")), QString());
    QCOMPARE(stand.list().currentIndex().row(), 0);
    QCOMPARE(stand.outputs.Add(OutputOf("c")), QString());
    QVERIFY(stand.list().currentIndex().data().toString().startsWith(Text("b: ")));
    QCOMPARE(stand.outputs.Remove(Text("b")), QString());
    QCOMPARE(stand.outputs.Remove(Text("c")), QString());
    QVERIFY(!stand.list().isVisible());
    QVERIFY(stand.get<QLabel>("noOutputs").isVisible());
}

void tst_OutputsPanel::everything_hasAName()
{
    PanelStand stand({OutputOf("a")});
    QCOMPARE(PanelTest::Unnamed(stand.panel), QStringList());
}

AA_TEST(tst_OutputsPanel, QApplication)
#include "tst_OutputsPanel.moc"
