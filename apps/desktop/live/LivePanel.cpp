// SPDX-License-Identifier: MIT
#include "moc_LivePanel.cpp"
#include <desktop/live/LivePanel.h>
