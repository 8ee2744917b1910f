// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace bg {

using TypeId = std::uint16_t;

// A typed value exchanged with the host. The bridge knows a few scalar types of its
// own; other modules teach it more through regist_value_type(). Every registered type
// keeps its data in the payload below, so a value can be copied or sliced freely
// between Value and the classes that add typed accessors on top of it.
class Value
{
public:
    enum : TypeId
    {
        kNoType = 0,
        kBool = 1,
        kInt = 2,
        kInt64 = 3,
        kDouble = 4,
        kString = 5,
    };

    Value() = default;
    Value(bool v);
    Value(int v);
    Value(std::int64_t v);
    Value(double v);
    Value(const char* v);
    Value(const std::string& v);
    Value(const Value&) = default;
    Value& operator=(const Value&) = default;
    virtual ~Value();

    // "[name]body" through the registry; "<null>" for a value without a type.
    virtual std::string write() const;
    // Parses the text form written by write(). "<variant>rest" stores rest as a string.
    virtual bool read(const char* text);

    void clear();
    // Takes the text as a plain string value, without parsing it.
    void fast_set(const char* text);

    TypeId type() const { return type_; }
    bool isNull() const { return type_ == kNoType; }

    bool toBool(bool fallback = false) const;
    int toInt(int fallback = 0) const;
    std::int64_t toInt64(std::int64_t fallback = 0) const;
    double toDouble(double fallback = 0.0) const;
    // Text values give their text, numbers their decimal form, other types their
    // written form, a value without a type the empty string.
    std::string toStdString() const;

    // Payload access for registered types. Each setter also sets the type.
    void setText(TypeId type, const std::string& text);
    const std::string& text() const { return text_; }
    void setReals(TypeId type, double a, double b, double c, double d);
    double real(int index) const;
    void setInts(TypeId type, std::int32_t a, std::int32_t b, std::int32_t c, std::int32_t d);
    std::int32_t integer(int index) const;
    void setWord(TypeId type, std::uint32_t word);
    std::uint32_t word() const { return kind_ == Kind::Word ? word_ : 0; }

private:
    enum class Kind : std::uint8_t
    {
        None,
        Bool,
        Int,
        Real,
        Text,
        Reals,
        Ints,
        Word
    };

    void reset();

    TypeId type_ = kNoType;
    Kind kind_ = Kind::None;
    bool flag_ = false;
    std::int64_t int_ = 0;
    std::uint32_t word_ = 0;
    double reals_[4] = {0.0, 0.0, 0.0, 0.0};
    std::int32_t ints_[4] = {0, 0, 0, 0};
    std::string text_;
};

} // namespace bg
