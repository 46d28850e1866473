// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "WebBrowser.h"
#include <cli/live/ListenWeb.h>
#include <shared/capture/InputDevices.h>

#include <QFile>
#include <QtTest>

#include <apps/shared/capture/SessionLog.h>
#include <fake/Machine.h>
#include <memory>
#include <support/TestClass.h>

namespace {

constexpr int kWebChoiceMs = 60000;  // only a hang takes that long

/// What another program stores: a profile of the user's.
void storeProfile(const char* pName, double pMaximalBPM = 140.0)
{
    ConfigurationStore store;
    QVERIFY(store.Load());
    store.getConfiguration().Add(QLatin1String(pName), 100.0, pMaximalBPM, 1.5, 40, 200);
    QVERIFY(store.Save());
}

/// A page at a port of the loopback, and somebody who looks at it.
struct WebBench
{
    explicit WebBench(bool pIsFile = false)
    {
        ListenWeb::Host host = {
            [this](const QString& pWords) { said += pWords; }, [this] { return input; }, nullptr};
        if (!pIsFile)
            host.changeInput = [this](const QString& pName) { input = pName; };
        web = std::make_unique<ListenWeb>(beats, hands, outputs, configuration, host);
        web->getPage().getServer().Open(QString(), 0);
        browser = std::make_unique<WebBrowser>(web->getPage().getServer().getLink());
    }

    Configuration configuration;
    LiveBeats beats;
    Hands hands{beats, {}};
    Outputs outputs{beats.getThread(), [](const BeatClockState&) { return 0.5; }};
    QString input = QStringLiteral("Deck");
    QStringList said;
    std::unique_ptr<ListenWeb> web;
    std::unique_ptr<WebBrowser> browser;
};

}  // namespace

/// What can be chosen on the page is what there is, and what is chosen happens.
class tst_ListenWeb : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void inputs_areThoseOfTheMachine_andFollow();
    void inputs_areNone_whileAFilePlays();
    void input_isHandedOn();
    void profiles_areThoseOfTheFile_andFollow();
    void profile_takesOver_andTheAutomaticTrackerAgain();
    void profile_isAsItIsStoredByNow();
};

void tst_ListenWeb::initTestCase()
{
    FakeAudioState::Install();
}

void tst_ListenWeb::init()
{
    Machine().Clear();
    Machine().Plug(SessionLog::Device("Deck"));
    Machine().Plug(SessionLog::Device("Deck.monitor"));
    SessionLog::Poll();
}

void tst_ListenWeb::cleanup()
{
    QFile::remove(ConfigurationStore::getPath());
}

void tst_ListenWeb::inputs_areThoseOfTheMachine_andFollow()
{
    WebBench bench;
    const QStringList two = {
        QStringLiteral("default"), QStringLiteral("Deck"), QStringLiteral("Deck.monitor*")};
    QTRY_COMPARE_WITH_TIMEOUT(bench.browser->getInputs(), two, kWebChoiceMs);
    QCOMPARE(bench.browser->getChosen("input"), QStringLiteral("Deck"));
    const QByteArray handle = Machine().Plug(SessionLog::Device("Line"));
    SessionLog::Poll();
    QTRY_COMPARE_WITH_TIMEOUT(
        bench.browser->getInputs(), two + QStringList{QStringLiteral("Line")}, kWebChoiceMs);
    Machine().Unplug(handle);
    SessionLog::Poll();
    QTRY_COMPARE_WITH_TIMEOUT(bench.browser->getInputs(), two, kWebChoiceMs);
}

void tst_ListenWeb::inputs_areNone_whileAFilePlays()
{
    WebBench bench(true);
    QTRY_COMPARE_WITH_TIMEOUT(
        bench.browser->getChosen("input"), QStringLiteral("Deck"), kWebChoiceMs);
    QCOMPARE(bench.browser->getInputs(), QStringList());
    // Which are refused, too.
    bench.browser->Send("input Deck");
    bench.browser->Send("profile Slow");
    QTRY_VERIFY_WITH_TIMEOUT(!bench.beats.isAutomatic(), kWebChoiceMs);
}

void tst_ListenWeb::input_isHandedOn()
{
    WebBench bench;
    QTRY_VERIFY_WITH_TIMEOUT(!bench.browser->getInputs().isEmpty(), kWebChoiceMs);
    bench.browser->Send("input Line");
    bench.browser->Send("input default");
    QTRY_COMPARE_WITH_TIMEOUT(
        bench.browser->getChosen("input"), QStringLiteral("default"), kWebChoiceMs);
    QCOMPARE(bench.input, kDefaultInput);
}

void tst_ListenWeb::profiles_areThoseOfTheFile_andFollow()
{
    storeProfile("Mine");
    WebBench bench;
    QTRY_VERIFY_WITH_TIMEOUT(!bench.browser->getProfiles().isEmpty(), kWebChoiceMs);
    QStringList names;
    for (const Profile& profile : bench.configuration.getProfiles())
        names += profile.getName();
    QCOMPARE(bench.browser->getProfiles(), names + QStringList{QStringLiteral("Mine")});
    QCOMPARE(bench.browser->getChosen("profile"), QString());
    storeProfile("Yours");
    QTRY_COMPARE_WITH_TIMEOUT(bench.browser->getProfiles(),
                              names +
                                  QStringList({QStringLiteral("Mine"), QStringLiteral("Yours")}),
                              kWebChoiceMs);
}

void tst_ListenWeb::profile_takesOver_andTheAutomaticTrackerAgain()
{
    WebBench bench;
    QTRY_VERIFY_WITH_TIMEOUT(!bench.browser->getProfiles().isEmpty(), kWebChoiceMs);
    bench.browser->Send("profile Hardcore");
    QTRY_COMPARE_WITH_TIMEOUT(
        bench.browser->getChosen("profile"), QStringLiteral("Hardcore"), kWebChoiceMs);
    QVERIFY(!bench.beats.isAutomatic());
    QCOMPARE(bench.configuration.getSelectedProfile().getName(), QStringLiteral("Hardcore"));
    QCOMPARE(bench.said.last(), QStringLiteral("profile Hardcore"));
    bench.browser->Send("profile ");
    QTRY_COMPARE_WITH_TIMEOUT(bench.browser->getChosen("profile"), QString(), kWebChoiceMs);
    QVERIFY(bench.beats.isAutomatic());
    QCOMPARE(bench.said.last(), QStringLiteral("the automatic tracker"));
}

// The first one of the user's bears the same number in each configuration.
void tst_ListenWeb::profile_isAsItIsStoredByNow()
{
    WebBench bench;
    bench.configuration.setSelectedProfile(
        bench.configuration.Add(QStringLiteral("Old"), 90.0, 100.0, 1.0, 50, 100));
    storeProfile("New", 150.0);
    QTRY_VERIFY_WITH_TIMEOUT(bench.browser->getProfiles().contains(QStringLiteral("New")),
                             kWebChoiceMs);
    bench.browser->Send("profile New");
    QTRY_COMPARE_WITH_TIMEOUT(
        bench.browser->getChosen("profile"), QStringLiteral("New"), kWebChoiceMs);
    QCOMPARE(bench.configuration.getSelectedProfile().getMaximalBPM(), 150.0);
}

AA_TEST(tst_ListenWeb, QCoreApplication)

#include "tst_ListenWeb.moc"
