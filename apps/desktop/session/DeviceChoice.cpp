// SPDX-License-Identifier: MIT
#include <desktop/session/DeviceChoice.h>

#include <algorithm>

namespace {

/// The less, the better.
int RankOf(const InputDevice& pDevice)
{
    if (pDevice.isUsable())
        return pDevice.isDefault ? 0 : pDevice.isMonitor() ? 2 : 1;
    return pDevice.isDefault ? 3 : 4;
}

}  // namespace

QString chooseDevice(const std::vector<InputDevice>& pDevices)
{
    const auto best = std::min_element(
        pDevices.begin(), pDevices.end(), [](const auto& pLeft, const auto& pRight) {
            return RankOf(pLeft) < RankOf(pRight);
        });
    return best == pDevices.end() ? QString() : best->name;
}
