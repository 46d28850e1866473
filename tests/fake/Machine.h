// SPDX-License-Identifier: MIT
#pragma once

#include <fake/FakeAudioState.h>

/// The sound of the machine on which the test runs.
inline FakeAudioState& Machine()
{
    return FakeAudioState::Get();
}
