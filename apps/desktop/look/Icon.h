// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

/// The program's icon, drawn for every usual size.
QIcon makeIcon();
