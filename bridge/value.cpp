// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/value.h"

#include "bridge/value-registry.h"
#include "bridge/value-text.h"

#include <cstring>
#include <limits>

namespace bg {

Value::Value(bool v) : type_(kBool), kind_(Kind::Bool), flag_(v) {}

Value::Value(int v) : type_(kInt), kind_(Kind::Int), int_(v) {}

Value::Value(std::int64_t v) : type_(kInt64), kind_(Kind::Int), int_(v) {}

Value::Value(double v) : type_(kDouble), kind_(Kind::Real)
{
    reals_[0] = v;
}

Value::Value(const char* v)
{
    if (v != nullptr)
        setText(kString, v);
}

Value::Value(const std::string& v)
{
    setText(kString, v);
}

Value::~Value() = default;

void Value::reset()
{
    type_ = kNoType;
    kind_ = Kind::None;
    flag_ = false;
    int_ = 0;
    word_ = 0;
    for (double& r : reals_)
        r = 0.0;
    for (std::int32_t& i : ints_)
        i = 0;
    text_.clear();
}

void Value::clear()
{
    reset();
}

void Value::fast_set(const char* text)
{
    reset();
    if (text != nullptr)
        setText(kString, text);
}

std::string Value::write() const
{
    if (type_ == kNoType)
        return "<null>";
    ValueType type;
    if (!find_value_type(type_, &type))
        return "<null>";
    return type.writer(*this);
}

bool Value::read(const char* text)
{
    reset();
    if (text == nullptr)
        return false;
    if (std::strncmp(text, "<variant>", 9) == 0) {
        fast_set(text + 9);
        return true;
    }
    if (text[0] != '[')
        return false;
    const char* close = std::strchr(text, ']');
    if (close == nullptr)
        return false;
    const std::string typeText(text + 1, close);
    ValueType type;
    if (!find_value_type_by_name(typeText, &type))
        return false;
    *this = type.reader(typeText.c_str(), close + 1);
    return type_ != kNoType;
}

bool Value::toBool(bool fallback) const
{
    switch (kind_) {
    case Kind::Bool:
        return flag_;
    case Kind::Int:
        return int_ != 0;
    case Kind::Real:
        return reals_[0] != 0.0;
    case Kind::Text:
        if (text_ == "true" || text_ == "1")
            return true;
        if (text_ == "false" || text_ == "0")
            return false;
        return fallback;
    default:
        return fallback;
    }
}

int Value::toInt(int fallback) const
{
    const std::int64_t n = toInt64(fallback);
    if (n < std::numeric_limits<int>::min() || n > std::numeric_limits<int>::max())
        return fallback;
    return static_cast<int>(n);
}

std::int64_t Value::toInt64(std::int64_t fallback) const
{
    switch (kind_) {
    case Kind::Bool:
        return flag_ ? 1 : 0;
    case Kind::Int:
        return int_;
    case Kind::Real:
        // The range check keeps the conversion defined for huge values and NaN.
        if (reals_[0] >= -9.2e18 && reals_[0] <= 9.2e18)
            return static_cast<std::int64_t>(reals_[0]);
        return fallback;
    case Kind::Text: {
        std::int64_t n = 0;
        return parse_int64(text_.c_str(), &n) ? n : fallback;
    }
    default:
        return fallback;
    }
}

double Value::toDouble(double fallback) const
{
    switch (kind_) {
    case Kind::Bool:
        return flag_ ? 1.0 : 0.0;
    case Kind::Int:
        return static_cast<double>(int_);
    case Kind::Real:
        return reals_[0];
    case Kind::Text: {
        double d = 0.0;
        return parse_double(text_.c_str(), &d) ? d : fallback;
    }
    default:
        return fallback;
    }
}

std::string Value::toStdString() const
{
    switch (kind_) {
    case Kind::None:
        return std::string();
    case Kind::Bool:
        return flag_ ? "true" : "false";
    case Kind::Int:
        return std::to_string(int_);
    case Kind::Real:
        return format_double(reals_[0]);
    case Kind::Text:
        return text_;
    default:
        return write();
    }
}

void Value::setText(TypeId type, const std::string& text)
{
    reset();
    type_ = type;
    kind_ = Kind::Text;
    text_ = text;
}

void Value::setReals(TypeId type, double a, double b, double c, double d)
{
    reset();
    type_ = type;
    kind_ = Kind::Reals;
    reals_[0] = a;
    reals_[1] = b;
    reals_[2] = c;
    reals_[3] = d;
}

double Value::real(int index) const
{
    if (index < 0 || index > 3 || (kind_ != Kind::Reals && kind_ != Kind::Real))
        return 0.0;
    return reals_[index];
}

void Value::setInts(TypeId type, std::int32_t a, std::int32_t b, std::int32_t c, std::int32_t d)
{
    reset();
    type_ = type;
    kind_ = Kind::Ints;
    ints_[0] = a;
    ints_[1] = b;
    ints_[2] = c;
    ints_[3] = d;
}

std::int32_t Value::integer(int index) const
{
    if (index < 0 || index > 3 || kind_ != Kind::Ints)
        return 0;
    return ints_[index];
}

void Value::setWord(TypeId type, std::uint32_t word)
{
    reset();
    type_ = type;
    kind_ = Kind::Word;
    word_ = word;
}

} // namespace bg
