// SPDX-License-Identifier: MIT
#include <cli/live/EventWriter.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <support/TestClass.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kLines = 3000;
constexpr int kPages = 4;

/// A pipe of a few pages, whose reader reads only when it is told to.
class LazyReader
{
    QTemporaryDir m_folder;

public:
    LazyReader() : path(m_folder.filePath(QStringLiteral("pipe")))
    {
        const QByteArray name = QFile::encodeName(path);
        ::mkfifo(name.constData(), 0600);
        m_end = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        ::fcntl(m_end, F_SETPIPE_SZ, kPages * 4096);
    }
    ~LazyReader() { Leave(); }

    void Leave()
    {
        if (m_end >= 0)
            ::close(m_end);
        m_end = -1;
    }
    /// What is there.
    QByteArray Read()
    {
        QByteArray bytes(1 << 16, Qt::Uninitialized);
        const ssize_t count = ::read(m_end, bytes.data(), std::size_t(bytes.size()));
        m_text += bytes.left(int(std::max<ssize_t>(count, 0)));
        return m_text;
    }
    QList<QByteArray> getLines() const { return m_text.trimmed().split('\n'); }

    const QString path;

private:
    int m_end = -1;
    QByteArray m_text;
};

QByteArray AnnouncementLine(const Announcement& pAnnouncement)
{
    return "beat " + QByteArray::number(qint64(pAnnouncement.tick.number)) + '\n';
}

QByteArray LossLine(std::uint64_t pCount)
{
    return "lost " + QByteArray::number(quint64(pCount)) + '\n';
}

const EventWriter::Forms kForms = {&AnnouncementLine, &LossLine};

/// A hundred bytes.
QByteArray Line(int pNumber)
{
    return QByteArray::number(pNumber).rightJustified(99, ' ') + '\n';
}

}  // namespace

class tst_EventWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void events_areWrittenInOrder();
    void stalledReader_losesTheOldest_andIsTold();
    void stalledReader_isGivenUp_atTheEnd();
    void readerThatLeaves_isNoticed();
    void nothing_isWrittenForAnEmptyForm();
};

void tst_EventWriter::initTestCase()
{
    std::signal(SIGPIPE, SIG_IGN);
}

void tst_EventWriter::events_areWrittenInOrder()
{
    LazyReader reader;
    EventWriter writer(kForms, reader.path);
    writer.Write("first\n");
    Announcement announcement = {};
    announcement.tick.number = 7;
    writer.Announce(announcement);
    writer.Write("last\n");
    writer.End();
    writer.End();
    QCOMPARE(reader.Read(), QByteArray("first\nbeat 7\nlast\n"));
    QCOMPARE(writer.getLostCount(), std::uint64_t(0));
    QVERIFY(!writer.isBroken());
    QCOMPARE(writer.getOutput().getError(), QString());
}

void tst_EventWriter::stalledReader_losesTheOldest_andIsTold()
{
    LazyReader reader;
    EventWriter writer(kForms, reader.path);
    for (int i = 0; i < kLines; ++i)
        writer.Write(Line(i));
    QTRY_VERIFY_WITH_TIMEOUT(reader.Read().endsWith(Line(kLines - 1)), 60000);
    writer.End();
    int lost = 0;
    int next = 0;
    for (const QByteArray& line : reader.getLines()) {
        if (line.startsWith("lost ")) {
            lost += line.mid(5).toInt();
            next += line.mid(5).toInt();
        } else {
            QCOMPARE(line.trimmed().toInt(), next++);
        }
    }
    QCOMPARE(next, kLines);
    QVERIFY(lost > 0 && lost <= kLines - int(EventWriter::kMostEvents));
    QCOMPARE(writer.getLostCount(), std::uint64_t(lost));
}

void tst_EventWriter::stalledReader_isGivenUp_atTheEnd()
{
    LazyReader reader;
    EventWriter writer(kForms, reader.path);
    for (int i = 0; i < kLines; ++i)
        writer.Write(Line(i));
    writer.End();
    QVERIFY(!writer.isBroken());
    // A page holds 41 of them at most.
    reader.Read();
    const QList<QByteArray> lines = reader.getLines();
    const auto taken = std::count_if(lines.begin(), lines.end(), [](const QByteArray& pLine) {
        return !pLine.startsWith("lost ");
    });
    QVERIFY(taken > 0 && taken <= kPages * 41);
    QCOMPARE(writer.getLostCount(), std::uint64_t(kLines - taken));
}

void tst_EventWriter::readerThatLeaves_isNoticed()
{
    LazyReader reader;
    EventWriter writer(kForms, reader.path);
    writer.Write(Line(0));
    QTRY_VERIFY_WITH_TIMEOUT(!reader.Read().isEmpty(), 60000);
    reader.Leave();
    writer.Write(Line(1));
    QTRY_VERIFY_WITH_TIMEOUT(writer.isBroken(), 60000);
    writer.End();
    QVERIFY(writer.getOutput().isReaderGone());
}

void tst_EventWriter::nothing_isWrittenForAnEmptyForm()
{
    LazyReader reader;
    EventWriter writer({[](const Announcement&) { return QByteArray(); }, &LossLine}, reader.path);
    writer.Announce({});
    writer.Write("end\n");
    writer.End();
    QCOMPARE(reader.Read(), QByteArray("end\n"));
}

AA_TEST(tst_EventWriter, QCoreApplication)
#include "tst_EventWriter.moc"
