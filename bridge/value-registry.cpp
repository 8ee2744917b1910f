// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/value-registry.h"

#include "bridge/value-text.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>

namespace bg {
namespace {

std::string writeBool(const Value& v)
{
    return v.toBool() ? "[bool]true" : "[bool]false";
}

Value readBool(const char*, const char* body)
{
    if (std::strcmp(body, "true") == 0 || std::strcmp(body, "1") == 0)
        return Value(true);
    if (std::strcmp(body, "false") == 0 || std::strcmp(body, "0") == 0)
        return Value(false);
    return Value();
}

std::string writeInt(const Value& v)
{
    return "[int]" + std::to_string(v.toInt());
}

Value readInt(const char*, const char* body)
{
    std::int64_t n = 0;
    if (!parse_int64(body, &n) || n < INT_MIN || n > INT_MAX)
        return Value();
    return Value(static_cast<int>(n));
}

std::string writeInt64(const Value& v)
{
    return "[int64]" + std::to_string(v.toInt64());
}

Value readInt64(const char*, const char* body)
{
    std::int64_t n = 0;
    if (!parse_int64(body, &n))
        return Value();
    return Value(n);
}

std::string writeDouble(const Value& v)
{
    return "[double]" + format_double(v.toDouble());
}

Value readDouble(const char*, const char* body)
{
    double d = 0.0;
    if (!parse_double(body, &d))
        return Value();
    return Value(d);
}

std::string writeString(const Value& v)
{
    return length_prefixed("str", v.text());
}

Value readString(const char* typeText, const char* body)
{
    std::string text;
    if (!take_length_prefixed(typeText, "str:", body, &text))
        return Value();
    return Value(text);
}

class Registry
{
public:
    Registry()
    {
        add({Value::kBool, "bool", writeBool, readBool});
        add({Value::kInt, "int", writeInt, readInt});
        add({Value::kInt64, "int64", writeInt64, readInt64});
        add({Value::kDouble, "double", writeDouble, readDouble});
        add({Value::kString, "str", writeString, readString});
    }

    bool add(const ValueType& type)
    {
        std::lock_guard<std::mutex> lock(mutex_);
        auto byId = byId_.find(type.id);
        auto byName = byName_.find(type.name);
        if (byId != byId_.end() && byId->second.name != type.name)
            return false;
        if (byName != byName_.end() && byName->second != type.id)
            return false;
        byId_[type.id] = type;
        byName_[type.name] = type.id;
        return true;
    }

    bool find(TypeId id, ValueType* out)
    {
        std::lock_guard<std::mutex> lock(mutex_);
        auto it = byId_.find(id);
        if (it == byId_.end())
            return false;
        *out = it->second;
        return true;
    }

    bool find(const std::string& name, ValueType* out)
    {
        std::lock_guard<std::mutex> lock(mutex_);
        auto it = byName_.find(name);
        if (it == byName_.end())
            return false;
        *out = byId_[it->second];
        return true;
    }

private:
    std::mutex mutex_;
    std::map<TypeId, ValueType> byId_;
    std::map<std::string, TypeId> byName_;
};

// Built on first use: other libraries register their types during static
// initialisation, in an order nobody controls.
Registry& registry()
{
    static Registry instance;
    return instance;
}

} // namespace

bool regist_value_type(TypeId id, const char* name, ValueWriter writer, ValueReader reader)
{
    if (id == Value::kNoType || name == nullptr || *name == '\0' || writer == nullptr ||
        reader == nullptr)
        return false;
    if (std::strpbrk(name, ":]") != nullptr)
        return false;
    return registry().add({id, name, writer, reader});
}

bool find_value_type(TypeId id, ValueType* out)
{
    return registry().find(id, out);
}

bool find_value_type_by_name(const std::string& name, ValueType* out)
{
    return registry().find(name.substr(0, name.find(':')), out);
}

} // namespace bg
