// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/value.h"

#include <string>

namespace bg {

// Writes a value as "[name]body". Readers get the text between the brackets and the
// body after "]", and return a value whose type is 0 when the body does not fit.
using ValueWriter = std::string (*)(const Value& value);
using ValueReader = Value (*)(const char* typeText, const char* body);

struct ValueType
{
    TypeId id = Value::kNoType;
    std::string name;
    ValueWriter writer = nullptr;
    ValueReader reader = nullptr;
};

// Teaches the bridge a type. Id 0, an empty name or missing functions are refused, and
// so is an id or a name that another type already holds; registering the same id and
// name again replaces the functions.
bool regist_value_type(TypeId id, const char* name, ValueWriter writer, ValueReader reader);

bool find_value_type(TypeId id, ValueType* out);
// The name is the bracket text up to an optional ':' ("qstr:3" finds "qstr").
bool find_value_type_by_name(const std::string& name, ValueType* out);

} // namespace bg
