// SPDX-License-Identifier: MIT
#include <shared/capture/SoundBackEnd.h>

namespace {

SoundBackEnd* s_pBackEnd = nullptr;

}  // namespace

SoundBackEnd::~SoundBackEnd()
{
    if (s_pBackEnd == this)
        s_pBackEnd = nullptr;
}

SoundBackEnd* SoundBackEnd::get()
{
    return s_pBackEnd;
}

std::unique_ptr<SoundPlayback> SoundBackEnd::Play(int)
{
    return nullptr;
}

void SoundBackEnd::_Publish()
{
    s_pBackEnd = this;
}
