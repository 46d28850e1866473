// SPDX-License-Identifier: MIT
#include <vamp/BeatTracker.h>
#include <vamp/vamp.h>

#include <vamp-sdk/PluginAdapter.h>

/// What a host asks for the plugins of this library: there is one.
const VampPluginDescriptor* vampGetPluginDescriptor(unsigned int pHostVersion, unsigned int pNumber)
{
    static Vamp::PluginAdapter<BeatTracker> adapter;
    return pNumber == 0 && pHostVersion >= 1 ? adapter.getDescriptor() : nullptr;
}
