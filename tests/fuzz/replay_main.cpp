// SPDX-License-Identifier: MIT
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>

// Runs a fuzz target on every file of the folders given, without a fuzzer: an ordinary test.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

/// Number of files run; -1 when one cannot be read.
int replay(const QDir& pFolder)
{
    const QStringList names = pFolder.entryList(QDir::Files, QDir::Name);
    for (const QString& name : names) {
        QFile file(pFolder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            return -1;
        // A copy of its own, so that reading beyond its end is seen.
        const QByteArray bytes = file.readAll();
        std::printf("%s, %d bytes\n", qPrintable(name), bytes.size());
        std::fflush(stdout);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    return names.size();
}

}  // namespace

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        if (replay(QDir(QString::fromLocal8Bit(argv[i]))) <= 0) {
            std::fprintf(stderr, "nothing to read in %s\n", argv[i]);
            return 1;
        }
    }
    return argc > 1 ? 0 : 1;
}
