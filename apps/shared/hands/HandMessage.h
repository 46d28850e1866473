// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace shared {

/// What a pedal, a console or a program has sent: which of its controls, and how far it is pressed.
struct HandMessage
{
    QString control;  ///< "midi:note/10/36", "midi:cc/1/64", "midi:program/1/5", "osc:/tap"
    double value;     ///< 0 = released, to 1
};

}  // namespace shared
