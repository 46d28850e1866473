// SPDX-License-Identifier: MIT
#include <shared/hands/detail/MidiReader.h>
#include <shared/hands/detail/OscReader.h>

#include <cstddef>
#include <cstdint>

// Fuzz target of what hands send: any bytes are controls with values from 0 to 1, or nothing.

namespace {

void require(bool pIsGood, const char* pWhat)
{
    if (!pIsGood)
        qFatal("%s", pWhat);
}

void check(const shared::HandMessage& pMessage, const char* pBegin)
{
    require(pMessage.value >= 0.0 && pMessage.value <= 1.0, "a value is out of range");
    require(pMessage.control.startsWith(QLatin1String(pBegin)), "a control has no kind");
    require(pMessage.control.size() <= 210, "a control's name is too long");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    for (const shared::HandMessage& message : shared::detail::ReadOsc(bytes))
        check(message, "osc:/");
    const auto midi = shared::detail::ReadMidi(data, size);
    if (midi)
        check(*midi, "midi:");
    return 0;
}
