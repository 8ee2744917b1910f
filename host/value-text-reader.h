// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/value.h"

namespace bg {

using BodyCheck = void (*)(const char* typeText, const char* body);

// The reading steps every Qt value class shares: clear the value, take "<variant>" texts
// through fast_set, reject texts that cannot carry a type, and hand the bracketed type text
// and the body to checkBody. The value itself is then set by the base class, through the
// registry.
bool readTypedText(Value& value, const char* text, BodyCheck checkBody);

} // namespace bg
