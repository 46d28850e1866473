// SPDX-License-Identifier: MIT
#include "support/FileBuilder.h"

#include <QDir>
#include <QString>

#include <cstdio>

// Writes the committed seeds of the fuzz targets: make_seeds tests/fuzz/seeds

namespace {

bool write(const QString& pFolder, const char* pName, const FileBuilder& pFile)
{
    QDir().mkpath(pFolder);
    return pFile.writeTo(pFolder + QLatin1Char('/') + QLatin1String(pName));
}

FileBuilder bytes(const QByteArray& pBytes)
{
    return FileBuilder().append(pBytes);
}

FileBuilder withDevice(int pMinor)
{
    FileBuilder file = FileBuilder::sample(1, pMinor);
    return file.setI16("device", 3).insert("selected ID", "Mic").reseal();
}

FileBuilder withoutProfiles()
{
    FileBuilder file;
    return file.head(1, 2).settings(0).durations().language("").seal();
}

FileBuilder record(const QByteArray& pName)
{
    return FileBuilder().profile(100, pName, "");
}

bool writeConfigs(const QString& pFolder)
{
    return write(pFolder, "version-1.0", FileBuilder::sample(1, 0)) &&
           write(pFolder, "version-1.1", FileBuilder::sample(1, 1)) &&
           write(pFolder, "version-1.2", FileBuilder::sample(1, 2)) &&
           write(pFolder, "version-1.7", FileBuilder::sample(1, 7)) &&
           write(pFolder, "device-1.0", withDevice(0)) &&
           write(pFolder, "device-1.2", withDevice(2)) &&
           write(pFolder, "no-profiles", withoutProfiles()) &&
           write(pFolder, "truncated", FileBuilder::sample(1, 2).truncateAt(60)) &&
           write(pFolder, "short", FileBuilder::sample(1, 2).truncateAt(11));
}

bool writeProfiles(const QString& pFolder)
{
    return write(pFolder, "named", record("Acid")) && write(pFolder, "unnamed", record("")) &&
           write(pFolder, "utf-8", record("\xc3\x89t\xc3\xa9")) &&
           write(pFolder, "bad-utf-8", record("\xff\xc3")) &&
           write(pFolder, "mark-only", record("\xef\xbb\xbf")) &&
           write(pFolder, "other-version", record("Acid").setI16("record version", 2)) &&
           write(pFolder, "long-name", record("Acid").setI16("name", 0xFFFF)) &&
           write(pFolder, "truncated", record("Acid").truncateAt(30));
}

/// What light programs answer, and what they should not.
bool writeAnswers(const QString& pFolder)
{
    const QByteArray on = R"({"evt":"feedback","name":"strobe","page":"1","state":"on"})";
    return write(pFolder, "one", bytes(on)) && write(pFolder, "two", bytes(on + "\n" + on)) &&
           write(pFolder, "half", bytes(on.left(30))) &&
           write(pFolder, "text", bytes(R"({"evt":"feedback","name":"a}{\"","state":"off"})")) &&
           write(pFolder, "nested", bytes(QByteArray(200, '{') + on + QByteArray(200, '}'))) &&
           write(pFolder, "long", bytes("{\"evt\":\"" + QByteArray(17000, 'x') + "\"}" + on)) &&
           write(pFolder, "bytes", bytes(QByteArray("\xff\0}\"{", 5) + on));
}

/// Packets of consoles, and messages of pedals.
bool writeHands(const QString& pFolder)
{
    const QByteArray tap("/tap\0\0\0\0,f\0\0\x3f\x80\0\0", 16);
    const QByteArray bundle = QByteArray("#bundle\0\0\0\0\0\0\0\0\1\0\0\0\x10", 20) + tap;
    return write(pFolder, "tap", bytes(tap)) && write(pFolder, "bundle", bytes(bundle)) &&
           write(pFolder, "bundle-cut", bytes(bundle.left(30))) &&
           write(pFolder, "bundle-size", bytes(QByteArray(bundle).replace(16, 1, "\xff"))) &&
           write(pFolder, "no-types", bytes(QByteArray("/a\0\0", 4))) &&
           write(pFolder, "no-end", bytes("/abc")) &&
           write(pFolder, "note", bytes("\x99\x24\x7f")) &&
           write(pFolder, "program", bytes("\xcf\x7f"));
}

/// What browsers send: requests, and presses of buttons.
bool writeWeb(const QString& pFolder)
{
    const QByteArray first = "GET /?token=abc HTTP/1.1\r\nHost: localhost:80\r\n";
    const QByteArray upgrade = "Origin: http://localhost:80\r\nUpgrade: websocket\r\n\r\n";
    return write(pFolder, "page", bytes(first + "\r\n")) &&
           write(pFolder, "websocket", bytes(first + upgrade)) &&
           write(pFolder, "two-hosts", bytes(first + "Host: evil\r\n\r\n")) &&
           write(pFolder, "cut", bytes(first.left(40))) &&
           write(pFolder, "long", bytes(first + "A: " + QByteArray(5000, 'a'))) &&
           write(pFolder, "tap", bytes("tap")) && write(pFolder, "nudge", bytes("nudge -10")) &&
           write(pFolder, "nudge-far", bytes("nudge 1e300")) &&
           write(pFolder, "profile", bytes("profile House")) &&
           write(pFolder, "automatic", bytes("profile ")) &&
           write(pFolder, "input", bytes("input alsa_output.pci.analog-stereo.monitor")) &&
           write(pFolder, "input-utf-8", bytes("input \"K\xc3\xbc\\\n che\"")) &&
           write(pFolder, "input-bytes", bytes("input \xff\xed\xa0\x80")) &&
           write(pFolder, "bytes", bytes("nudge \xff\xfe"));
}

/// What audio-analyzer writes, and what it never would.
bool writeLink(const QString& pFolder)
{
    const auto beat = [](const char* pTime, const char* pBar, const char* pTempo) {
        return QByteArray(R"({"beat":7,"beatInBar":)") + pBar + R"(,"bpm":)" + pTempo +
               R"(,"confidence":0.9,"monotonic":)" + pTime + R"(,"type":"announce"})" + '\n';
    };
    const QByteArray steady = beat("100", "1", "120") + beat("100.5", "2", "120.1") +
                              beat("101", "3", "119.9") + beat("101.5", "4", "null");
    return write(pFolder, "steady", bytes(steady)) &&
           write(pFolder, "other", bytes("{\"time\":1,\"type\":\"play\"}\n" + steady)) &&
           write(pFolder,
                 "leap",
                 bytes(steady + beat("102", "1", "999") + beat("102.06", "2", "999"))) &&
           write(pFolder, "bar", bytes(beat("1", "64", "1") + beat("61", "65", "1"))) &&
           write(
               pFolder, "huge", bytes(beat("1e999", "1e300", "1e308") + beat("1", "1", "1e300"))) &&
           write(pFolder, "cut", bytes(steady.left(40))) &&
           write(pFolder, "text", bytes("0:01.50  beat 1\n\n[1]\n")) &&
           write(pFolder, "bytes", bytes(QByteArray("{\"type\":\"\xff\0\"}\n", 15) + steady));
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const bool isDone = writeConfigs(folder + QStringLiteral("/config")) &&
                        writeProfiles(folder + QStringLiteral("/profile")) &&
                        writeAnswers(folder + QStringLiteral("/os2l")) &&
                        writeHands(folder + QStringLiteral("/hands")) &&
                        writeWeb(folder + QStringLiteral("/web")) &&
                        writeLink(folder + QStringLiteral("/link"));
    return isDone ? 0 : 1;
}
