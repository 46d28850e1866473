// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/InputDevices.h>

#include <QString>

#include <vector>

/// The device to listen to when nobody has chosen one: the default if it can be analysed, else the
/// first that can, one that is no monitor before one that is, else the default. Empty without any.
QString chooseDevice(const std::vector<InputDevice>& pDevices);
