// SPDX-License-Identifier: MIT
#include "WebBrowser.h"

#include <QRegularExpression>
#include <QtTest>

#include <apps/stage/Stage.h>
#include <csignal>
#include <support/TestClass.h>

/// The command "listen" with a page, as a program on the fake back end.
class tst_ListenProgram_web : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listen_tellsTheLinkOfItsPage_howeverQuiet();
    void listen_changesItsInput_fromThePage();

private:
    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM)}};
};

void tst_ListenProgram_web::init()
{
    m_stage.setDevices({Stage::Device("Deck", "music"),
                        Stage::Device("Quiet", "quiet"),
                        Stage::Device("Stereo", "music", 2)});
}

void tst_ListenProgram_web::listen_tellsTheLinkOfItsPage_howeverQuiet()
{
    QProcess process;
    m_stage.Start(process,
                  QStringLiteral("audio-analyzer"),
                  {QStringLiteral("listen"), QStringLiteral("--quiet"), QStringLiteral("--web=0")});
    QVERIFY(Stage::WaitFor(process, QProcess::StandardError, "/\n"));
    ::kill(pid_t(process.processId()), SIGTERM);
    const StagedRun run = Stage::Finish(process);
    QCOMPARE(run.exitCode, 0);
    const QRegularExpression link(
        QStringLiteral("the page: http://127\\.0\\.0\\.1:[1-9][0-9]*/\n"));
    QVERIFY2(link.match(QString::fromUtf8(run.errors)).hasMatch(), run.errors.constData());
}

void tst_ListenProgram_web::listen_changesItsInput_fromThePage()
{
    QProcess process;
    m_stage.Start(process,
                  QStringLiteral("audio-analyzer"),
                  {QStringLiteral("listen"), QStringLiteral("--web=0")});
    QVERIFY(Stage::WaitFor(process, QProcess::StandardError, "listening to \"Deck\""));
    const QRegularExpression link(QStringLiteral("the page: (\\S+)"));
    WebBrowser browser(link.match(QString::fromUtf8(process.peek(1 << 20))).captured(1));
    QTRY_COMPARE_WITH_TIMEOUT(
        browser.getChosen("input"), QStringLiteral("Deck"), Stage::kTimeoutMs);
    QCOMPARE(browser.getInputs().first(), QStringLiteral("default"));
    browser.Send("input Nowhere");
    browser.Send("input Quiet");
    QTRY_COMPARE_WITH_TIMEOUT(
        browser.getChosen("input"), QStringLiteral("Quiet"), Stage::kTimeoutMs);
    QVERIFY(Stage::WaitFor(process, QProcess::StandardError, "listening to \"Quiet\""));
    // One that cannot be analysed does not end the evening.
    browser.Send("input Stereo");
    QTRY_COMPARE_WITH_TIMEOUT(
        browser.getChosen("input"), QStringLiteral("Stereo"), Stage::kTimeoutMs);
    QVERIFY(Stage::WaitFor(process, QProcess::StandardError, "delivers 2 channels only"));
    browser.Send("input default");
    QTRY_COMPARE_WITH_TIMEOUT(
        browser.getChosen("input"), QStringLiteral("default"), Stage::kTimeoutMs);
    QTRY_COMPARE_WITH_TIMEOUT(
        process.peek(1 << 20).count("listening to \"Deck\""), 2, Stage::kTimeoutMs);
    process.terminate();
    const StagedRun run = Stage::Finish(process);
    QCOMPARE(run.exitCode, 0);
    QVERIFY(!run.errors.contains("Nowhere"));
}

AA_TEST(tst_ListenProgram_web, QCoreApplication)
#include "tst_ListenProgram_web.moc"
