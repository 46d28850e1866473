// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSet>
#include <QtTest>

#include <apps/stage/Stage.h>
#include <support/TestClass.h>
#include <unistd.h>

namespace {

/// The numbers of a process's sockets.
QSet<QByteArray> socketsOf(qint64 pProcess)
{
    const QDir folder(QStringLiteral("/proc/%1/fd").arg(pProcess));
    QSet<QByteArray> numbers;
    for (const QString& name : folder.entryList(QDir::AllEntries | QDir::System)) {
        // A link to what is no file; Qt would make a path of it.
        char target[64] = {};
        const QByteArray path = QFile::encodeName(folder.filePath(name));
        if (::readlink(path.constData(), target, sizeof(target) - 1) > 0 &&
            qstrncmp(target, "socket:[", 8) == 0)
            numbers.insert(QByteArray(target + 8).chopped(1));
    }
    return numbers;
}

/// Where a process can be reached: "tcp PORT" for each connection that it waits for, "udp ADDRESS"
/// for each socket that takes packets from anybody; both in hexadecimal digits.
QStringList doorsOf(qint64 pProcess)
{
    constexpr int kLocal = 1;
    constexpr int kRemote = 2;
    constexpr int kState = 3;
    constexpr int kNumber = 9;
    const QSet<QByteArray> own = socketsOf(pProcess);
    QStringList doors;
    for (const char* protocol : {"tcp", "tcp6", "udp", "udp6", "udplite", "raw", "raw6"}) {
        QFile file(QStringLiteral("/proc/%1/net/%2").arg(pProcess).arg(QLatin1String(protocol)));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray& line : lines.mid(1)) {
            const QList<QByteArray> words = line.simplified().split(' ');
            if (words.size() <= kNumber || !own.contains(words[kNumber]))
                continue;
            const bool isWaiting = qstrncmp(protocol, "tcp", 3) == 0
                                       ? words[kState] == "0A"
                                       : words[kRemote].endsWith(":0000");
            if (isWaiting)
                doors += QString::fromLatin1(QByteArray(protocol) + ' ' + words[kLocal]);
        }
    }
    return doors;
}

}  // namespace

/// Nothing listens on the network unless it is asked for.
class tst_ListenSockets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void plainListening_opensNoDoor();
    void outputs_openNoDoor();
    void whatIsAskedFor_isReachedFromThisMachineAlone();

private:
    /// The doors of a program that listens, once it has written a text.
    QStringList _DoorsOf(const char* pArguments, const char* pText);

    const Stage m_stage{{QStringLiteral(AUDIO_ANALYZER_PROGRAM)}};
};

void tst_ListenSockets::init()
{
    m_stage.setDevices({Stage::Device("Deck", "music")});
}

QStringList tst_ListenSockets::_DoorsOf(const char* pArguments, const char* pText)
{
    QProcess process;
    const QString arguments = QStringLiteral("listen ") + QLatin1String(pArguments);
    m_stage.Start(process,
                  QStringLiteral("audio-analyzer"),
                  arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    const bool isThere = Stage::WaitFor(process, QProcess::StandardError, pText) &&
                         Stage::WaitFor(process, QProcess::StandardOutput, "beat");
    const QStringList doors = doorsOf(process.processId());
    process.terminate();
    const StagedRun run = Stage::Finish(process);
    return isThere && run.exitCode == 0 ? doors : QStringList{QStringLiteral("it did not begin")};
}

void tst_ListenSockets::plainListening_opensNoDoor()
{
    QCOMPARE(_DoorsOf("", "listening to"), QStringList());
}

// What is sent to may answer, nobody else.
void tst_ListenSockets::outputs_openNoDoor()
{
    QCOMPARE(_DoorsOf("--osc=127.0.0.1:9 --osc=tcp:127.0.0.1:9 --os2l=127.0.0.1:9 "
                      "--wled=127.0.0.1:9 --midi-clock --midi-notes",
                      "WLED at"),
             QStringList());
}

void tst_ListenSockets::whatIsAskedFor_isReachedFromThisMachineAlone()
{
    const QStringList doors = _DoorsOf("--web=0 --hands-osc=0", "the page: ");
    QCOMPARE(doors.size(), 2);
    // 127.0.0.1, its bytes in the machine's order.
    QVERIFY2(doors[0].startsWith(QLatin1String("tcp 0100007F:")), qPrintable(doors[0]));
    QVERIFY2(doors[1].startsWith(QLatin1String("udp 0100007F:")), qPrintable(doors[1]));
}

AA_TEST(tst_ListenSockets, QCoreApplication)

#include "tst_ListenSockets.moc"
