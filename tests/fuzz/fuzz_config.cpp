// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "support/ConfigSandbox.h"
#include "support/FileBuilder.h"

#include <cstddef>
#include <cstdint>
#include <memory>

// Fuzz target of Configuration::_Load(): any bytes give a configuration or none, and what was taken
// is written in a form that is read and written again the same.

namespace {

void require(bool pIsGood, const char* pWhat)
{
    if (!pIsGood)
        qFatal("%s", pWhat);
}

/// Texts begin to change at the limits of the format: a byte order mark in front is dropped by
/// every reading, and replacements of bad bytes may grow beyond the longest text.
bool isStable(const Configuration& pConfiguration, int pFileSize)
{
    const QChar mark(QChar::ByteOrderMark);
    bool hasMark = pConfiguration.getLanguage().contains(mark);
    for (const Profile& profile : pConfiguration.m_profiles)
        hasMark |= profile.getName().contains(mark);
    return !hasMark && pFileSize < 20000;
}

QByteArray sealed(const QByteArray& pContent)
{
    return FileBuilder().raw(pContent).seal().bytes();
}

void tryBytes(const ConfigSandbox& pSandbox, const QByteArray& pBytes)
{
    UserProfile::_nextID = 100;
    const auto first = pSandbox.load(pBytes);
    if (!first || !isStable(*first, pBytes.size()))
        return;
    UserProfile::CompactIDs(first->m_profiles);
    const QByteArray written = first->_Write();
    const auto second = pSandbox.load(sealed(written));
    require(second != nullptr, "what was written is not read");
    require(second->_Write() == written, "what was read is not written again");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argumentCount = 1;
    static char name[] = "fuzz_config";
    static char* arguments[] = {name, nullptr};
    static const QCoreApplication application(argumentCount, arguments);
    static const ConfigSandbox sandbox;
    static const bool isPlugged = (ConfigSandbox::plug(QStringLiteral("Mic")), true);
    Q_UNUSED(isPlugged)

    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    tryBytes(sandbox, bytes);
    // The checksum would keep nearly every input out.
    if (bytes.size() >= 2)
        tryBytes(sandbox, sealed(bytes.chopped(2)));
    return 0;
}
