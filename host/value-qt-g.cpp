// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/value-qt-g.h"

#include "bridge/value-registry.h"
#include "host/value-text-reader.h"

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

// Runs the reader of the named type into a temporary that is discarded: only the body's
// form is checked here.
static void checkGuiBody(const char* typeText, const char* body)
{
    Value parsed;
    if (typeText[0] == 'c' && std::strcmp(typeText, "color") == 0)
        parsed = readColor(typeText, body);
    else if (typeText[0] == 'f' && std::strcmp(typeText, "font") == 0)
        parsed = readFont(typeText, body);
}

bool ValueQtG::read(const char* text)
{
    return readTypedText(*this, text, checkGuiBody);
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
