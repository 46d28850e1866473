// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

#include <cstddef>
#include <memory>
#include <vamp-hostsdk/PluginLoader.h>

/// The Vamp plugin, loaded as a host does.
namespace vamptest {

using Vamp::Plugin;
using Vamp::RealTime;

constexpr int kRate = 22050;        ///< Hz
constexpr std::size_t kStep = 512;  ///< frames

enum eOutput
{
    eBeats,
    eTempo,
    ePulses,
    eSpectrum
};

inline std::unique_ptr<Plugin> Load(float pRate = kRate)
{
    auto* pLoader = Vamp::HostExt::PluginLoader::getInstance();
    const auto key = pLoader->composePluginKey("audio-analyzer-vamp", "beat-tracker");
    return std::unique_ptr<Plugin>(pLoader->loadPlugin(key, pRate));
}

}  // namespace vamptest
