// SPDX-License-Identifier: MIT
#pragma once

#include <shared/hands/HandMessage.h>

#include <QByteArray>

#include <vector>

namespace shared::detail {

/// The messages of an OSC packet, those of bundles included, whatever their time: a hand means now.
/// The value is the first argument, when it is a number or a truth, cut to 0 to 1, else 1. What is
/// malformed is left out.
std::vector<HandMessage> ReadOsc(const QByteArray& pPacket);

}  // namespace shared::detail
