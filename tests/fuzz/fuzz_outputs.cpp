// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include "support/IniFile.h"
#include <shared/outputs/OutputSettings.h>

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>

// Fuzz target of stored outputs: any file gives outputs that are well formed, each of which can be
// stored and read again.

namespace {

void require(bool pIsGood, const char* pWhat)
{
    if (!pIsGood)
        qFatal("%s", pWhat);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argumentCount = 1;
    static char name[] = "fuzz_outputs";
    static char* arguments[] = {name, nullptr};
    static const QCoreApplication application(argumentCount, arguments);

    const QString path = UISettings::_getDefaultPath();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    require(WriteIniFile(path, bytes), "the file cannot be written");
    const OutputSettings settings = OutputSettings::Load();
    require(settings.getOutputs().size() <= std::size_t(OutputSettings::kMostOutputs), "too many");
    OutputSettings copy;
    for (const StoredOutput& output : settings.getOutputs())
        require(copy.Add(output).isEmpty(), "one that was taken is refused");
    QFile::remove(path);
    return 0;
}
