// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/bridge-interface.h"
#include "bridge/value-registry.h"
#include "bridge/value.h"

namespace bg {

// Brings the bridge up for this process. A second call keeps the first interface and
// returns true.
bool InitBridge(int argc, char** argv);
// Drops the interface; GetBridge() is null afterwards. Safe to call more than once.
void UninitBridge();
// The interface, or null when the bridge is not up.
BridgeInterface* GetBridge();

} // namespace bg
