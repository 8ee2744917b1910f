// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/value-text.h"
#include "bridge/value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

namespace {

// The written forms are exchanged with a host on another system, so the C runtime's
// number formatting must not show through (Microsoft's writes three exponent digits).
class ValueTextWin : public testing::TestWithParam<std::pair<bg::Value, const char*>>
{
};

TEST_P(ValueTextWin, WritesAndReadsBack)
{
    const bg::Value& value = GetParam().first;
    EXPECT_EQ(value.write(), GetParam().second);
    bg::Value back;
    ASSERT_TRUE(back.read(GetParam().second));
    EXPECT_EQ(back.type(), value.type());
    EXPECT_EQ(back.toStdString(), value.toStdString());
}

INSTANTIATE_TEST_SUITE_P(Forms, ValueTextWin,
                         testing::Values(std::make_pair(bg::Value(true), "[bool]true"),
                                         std::make_pair(bg::Value(-42), "[int]-42"),
                                         std::make_pair(bg::Value(std::int64_t(9000000000)),
                                                        "[int64]9000000000"),
                                         std::make_pair(bg::Value(0.1), "[double]0.1"),
                                         std::make_pair(bg::Value(1e-7), "[double]1e-07"),
                                         std::make_pair(bg::Value(2.5e300), "[double]2.5e+300"),
                                         std::make_pair(bg::Value("a]b[cd"), "[str:6]a]b[cd"),
                                         std::make_pair(bg::Value("C:\\x"), "[str:4]C:\\x")));

TEST(ValueTextWin, DoublesReadBackExactly)
{
    for (const double d : {0.1, 1.0 / 3.0, 123456.789, -2.5e-12}) {
        double back = 0;
        ASSERT_TRUE(bg::parse_double(bg::format_double(d).c_str(), &back));
        EXPECT_EQ(back, d);
    }
}

TEST(ValueTextWin, Int64TextUsesAllSixtyFourBits)
{
    std::int64_t n = 0;
    ASSERT_TRUE(bg::parse_int64("-9223372036854775808", &n));
    EXPECT_EQ(n, INT64_MIN);
    EXPECT_FALSE(bg::parse_int64("9223372036854775808", &n));
}

} // namespace
