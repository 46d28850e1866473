// SPDX-License-Identifier: MIT
#include "LivePanel.h"

#include "moc_LivePanel.cpp"
