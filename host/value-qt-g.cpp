// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/value-qt-g.h"

#include "bridge/value-registry.h"

#include <cstdio>
#include <cstring>

namespace bg {
namespace {

// name() has no alpha: a translucent colour is written, and read back, opaque.
std::string writeColor(const Value& v)
{
    return "[color]" + QColor::fromRgba(v.word()).name().toStdString();
}

std::string writeFont(const Value& v)
{
    return "[font]" + v.text();
}

Value readColor(const char*, const char* body)
{
    QColor color;
    color.setNamedColor(QString::fromUtf8(body));
    Value v;
    v.setWord(ValueQtG::kColor, color.rgba());
    return v;
}

Value readFont(const char*, const char* body)
{
    Value v;
    v.setText(ValueQtG::kFont, body);
    return v;
}

const bool typesRegistered = ValueQtG::registerTypes();

} // namespace

bool ValueQtG::registerTypes()
{
    static const bool done = [] {
        bool ok = regist_value_type(kColor, "color", writeColor, readColor);
        ok = regist_value_type(kFont, "font", writeFont, readFont) && ok;
        return ok;
    }();
    return done;
}

ValueQtG::ValueQtG()
{
    registerTypes();
}

ValueQtG::ValueQtG(const Value& other) : Value(other)
{
    registerTypes();
}

ValueQtG::ValueQtG(const QColor& v) : ValueQtG()
{
    setWord(kColor, v.rgba());
}

ValueQtG::ValueQtG(const QFont& v) : ValueQtG()
{
    setText(kFont, v.toString().toStdString());
}

ValueQtG::~ValueQtG() = default;

std::string ValueQtG::write() const
{
    switch (type()) {
    case kColor:
        return writeColor(*this);
    case kFont:
        return writeFont(*this);
    default:
        return Value::write();
    }
}

bool ValueQtG::read(const char* text)
{
    clear();
    if (text == nullptr || strnlen(text, 4) < 4)
        return false;
    if (std::strncmp(text, "<variant>", 9) == 0) {
        fast_set(text + 9);
        return true;
    }
    if (std::strchr(text, ']') == nullptr)
        return false;
    if (std::strncmp(text, "<null>", 6) == 0)
        return false;

    char typeText[256] = "";
    std::sscanf(text + 1, "%255[^]]", typeText);
    std::fflush(stderr);

    // Parsing here only checks the body; the value itself is set by the base class
    // below, through the registry.
    const char* close = std::strchr(text + 1, ']');
    if (close != nullptr) {
        const char* body = close + 1;
        Value parsed;
        if (typeText[0] == 'c' && std::strcmp(typeText, "color") == 0)
            parsed = readColor(typeText, body);
        else if (typeText[0] == 'f' && std::strcmp(typeText, "font") == 0)
            parsed = readFont(typeText, body);
    }
    if (type() == kNoType)
        return Value::read(text);
    return true;
}

QColor ValueQtG::toColor() const
{
    if (type() != kColor)
        return QColor();
    return QColor::fromRgba(word());
}

QString ValueQtG::fontDescription() const
{
    if (type() != kFont)
        return QString();
    return QString::fromUtf8(text().data(), static_cast<int>(text().size()));
}

QFont ValueQtG::toFont() const
{
    QFont font;
    const QString description = fontDescription();
    if (!description.isEmpty())
        font.fromString(description);
    return font;
}

} // namespace bg
