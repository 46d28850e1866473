// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace shared::detail {

/// The page as browsers get it, in one piece. [event loop]
QByteArray readWebDocument();

}  // namespace shared::detail
