// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/value-qt.h"

#include "bridge/value-registry.h"
#include "host/value-text-reader.h"

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bg {
namespace {

std::string formatted(const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 1, 2)))
#endif
    ;

// Every numeric form goes through one 128-byte buffer; longer texts are cut there.
std::string formatted(const char* format, ...)
{
    char buffer[128];
    va_list args;
    va_start(args, format);
    std::vsnprintf(buffer, sizeof buffer, format, args);
    va_end(args);
    return buffer;
}

std::string writeQString(const Value& v)
{
    return "[qstr:" + std::to_string(v.text().size()) + "]" + v.text();
}

std::string writeRectF(const Value& v)
{
    return formatted("[rectf]x:%lf;y:%lf;w:%lf;h:%lf", v.real(0), v.real(1), v.real(2), v.real(3));
}

std::string writeRect(const Value& v)
{
    return formatted("[rect]x:%d;y:%d;w:%d;h:%d", v.integer(0), v.integer(1), v.integer(2),
                     v.integer(3));
}

std::string writePointF(const Value& v)
{
    return formatted("[pointf]x:%lf;y:%lf", v.real(0), v.real(1));
}

std::string writePoint(const Value& v)
{
    return formatted("[point]x:%d;y:%d", v.integer(0), v.integer(1));
}

std::string writeSizeF(const Value& v)
{
    return formatted("[sizef]w:%lf;h:%lf", v.real(2), v.real(3));
}

std::string writeSize(const Value& v)
{
    return formatted("[size]w:%d;h:%d", v.integer(2), v.integer(3));
}

// The length comes from the bracket text and is trusted only as far as the body
// reaches: the body is never read past its end.
Value readQString(const char* typeText, const char* body)
{
    const char* digits = typeText + 5;
    char* end = nullptr;
    errno = 0;
    const long long length = std::strtoll(digits, &end, 10);
    if (end == digits) {
        std::fprintf(stderr, "> bg::Value:read() err: type='%s', missing 'len'.\n", typeText);
        return Value();
    }
    if (errno == ERANGE || length < 0 || length > INT_MAX ||
        static_cast<unsigned long long>(length) > std::strlen(body)) {
        std::fprintf(stderr, "> bg::Value:read() err: type='%s', 'len' out of range.\n", typeText);
        return Value();
    }
    Value v;
    v.setText(ValueQt::kQString, std::string(body, static_cast<std::size_t>(length)));
    return v;
}

// The labels before each ':' are skipped, whatever they say.
Value readRectF(const char*, const char* body)
{
    double x = 0, y = 0, w = 0, h = 0;
    if (std::sscanf(body, "%*[^:]:%lf;%*[^:]:%lf;%*[^:]:%lf;%*[^:]:%lf", &x, &y, &w, &h) != 4)
        return Value();
    Value v;
    v.setReals(ValueQt::kRectF, x, y, w, h);
    return v;
}

Value readRect(const char*, const char* body)
{
    int x = 0, y = 0, w = 0, h = 0;
    if (std::sscanf(body, "%*[^:]:%d;%*[^:]:%d;%*[^:]:%d;%*[^:]:%d", &x, &y, &w, &h) != 4)
        return Value();
    Value v;
    v.setInts(ValueQt::kRect, x, y, w, h);
    return v;
}

Value readPointF(const char*, const char* body)
{
    double x = 0, y = 0;
    if (std::sscanf(body, "%*[^:]:%lf;%*[^:]:%lf", &x, &y) != 2)
        return Value();
    Value v;
    v.setReals(ValueQt::kPointF, x, y, 0.0, 0.0);
    return v;
}

Value readPoint(const char*, const char* body)
{
    int x = 0, y = 0;
    if (std::sscanf(body, "%*[^:]:%d;%*[^:]:%d", &x, &y) != 2)
        return Value();
    Value v;
    v.setInts(ValueQt::kPoint, x, y, 0, 0);
    return v;
}

Value readSizeF(const char*, const char* body)
{
    double w = 0, h = 0;
    if (std::sscanf(body, "%*[^:]:%lf;%*[^:]:%lf", &w, &h) != 2)
        return Value();
    Value v;
    v.setReals(ValueQt::kSizeF, 0.0, 0.0, w, h);
    return v;
}

Value readSize(const char*, const char* body)
{
    int w = 0, h = 0;
    if (std::sscanf(body, "%*[^:]:%d;%*[^:]:%d", &w, &h) != 2)
        return Value();
    Value v;
    v.setInts(ValueQt::kSize, 0, 0, w, h);
    return v;
}

const bool typesRegistered = ValueQt::registerTypes();

} // namespace

bool ValueQt::registerTypes()
{
    static const bool done = [] {
        bool ok = regist_value_type(kQString, "qstr", writeQString, readQString);
        ok = regist_value_type(kPoint, "point", writePoint, readPoint) && ok;
        ok = regist_value_type(kPointF, "pointf", writePointF, readPointF) && ok;
        ok = regist_value_type(kRect, "rect", writeRect, readRect) && ok;
        ok = regist_value_type(kRectF, "rectf", writeRectF, readRectF) && ok;
        ok = regist_value_type(kSize, "size", writeSize, readSize) && ok;
        ok = regist_value_type(kSizeF, "sizef", writeSizeF, readSizeF) && ok;
        return ok;
    }();
    return done;
}

ValueQt::ValueQt()
{
    registerTypes();
}

ValueQt::ValueQt(const Value& other) : Value(other)
{
    registerTypes();
}

ValueQt::ValueQt(const QString& v) : ValueQt()
{
    setText(kQString, v.toUtf8().toStdString());
}

ValueQt::ValueQt(const QRectF& v) : ValueQt()
{
    setReals(kRectF, v.x(), v.y(), v.width(), v.height());
}

ValueQt::ValueQt(const QRect& v) : ValueQt()
{
    setInts(kRect, v.x(), v.y(), v.width(), v.height());
}

ValueQt::ValueQt(const QPointF& v) : ValueQt()
{
    setReals(kPointF, v.x(), v.y(), 0.0, 0.0);
}

ValueQt::ValueQt(const QPoint& v) : ValueQt()
{
    setInts(kPoint, v.x(), v.y(), 0, 0);
}

ValueQt::ValueQt(const QSizeF& v) : ValueQt()
{
    setReals(kSizeF, 0.0, 0.0, v.width(), v.height());
}

ValueQt::ValueQt(const QSize& v) : ValueQt()
{
    setInts(kSize, 0, 0, v.width(), v.height());
}

ValueQt::~ValueQt() = default;

std::string ValueQt::write() const
{
    switch (type()) {
    case kQString:
        return writeQString(*this);
    case kRectF:
        return writeRectF(*this);
    case kRect:
        return writeRect(*this);
    case kPointF:
        return writePointF(*this);
    case kPoint:
        return writePoint(*this);
    case kSizeF:
        return writeSizeF(*this);
    case kSize:
        return writeSize(*this);
    default:
        return Value::write();
    }
}

// Runs the reader of the named type into a temporary that is discarded: only the body's
// form is checked here.
static void checkCoreBody(const char* typeText, const char* body)
{
    Value parsed;
    switch (typeText[0]) {
    case 'q':
        if (std::strncmp(typeText, "qstr:", 5) == 0)
            parsed = readQString(typeText, body);
        break;
    case 'r':
        if (std::strcmp(typeText, "rectf") == 0)
            parsed = readRectF(typeText, body);
        else if (std::strcmp(typeText, "rect") == 0)
            parsed = readRect(typeText, body);
        break;
    case 'p':
        if (std::strcmp(typeText, "pointf") == 0)
            parsed = readPointF(typeText, body);
        else if (std::strcmp(typeText, "point") == 0)
            parsed = readPoint(typeText, body);
        break;
    case 's':
        if (std::strcmp(typeText, "sizef") == 0)
            parsed = readSizeF(typeText, body);
        else if (std::strcmp(typeText, "size") == 0)
            parsed = readSize(typeText, body);
        break;
    default:
        break;
    }
}

bool ValueQt::read(const char* text)
{
    return readTypedText(*this, text, checkCoreBody);
}

QString ValueQt::toQString() const
{
    if (type() != kQString && type() != kString)
        return QString();
    return QString::fromUtf8(text().data(), static_cast<int>(text().size()));
}

QRectF ValueQt::toRectF() const
{
    if (type() != kRectF)
        return QRectF();
    return QRectF(real(0), real(1), real(2), real(3));
}

QRect ValueQt::toRect() const
{
    if (type() != kRect)
        return QRect();
    // QRect(x, y, w, h) adds in int, which overflows for sizes a host may well send
    // (x:1;w:2147483647). The corners are added wide and wrapped as a 32-bit build
    // of the host would, so the rectangle is the same without undefined behaviour.
    const auto corner = [](int origin, int extent) {
        return static_cast<int>(static_cast<unsigned>(static_cast<long long>(origin) + extent - 1));
    };
    return QRect(QPoint(integer(0), integer(1)),
                 QPoint(corner(integer(0), integer(2)), corner(integer(1), integer(3))));
}

QPointF ValueQt::toPointF() const
{
    if (type() != kPointF)
        return QPointF();
    return QPointF(real(0), real(1));
}

QPoint ValueQt::toPoint() const
{
    if (type() != kPoint)
        return QPoint();
    return QPoint(integer(0), integer(1));
}

QSizeF ValueQt::toSizeF() const
{
    if (type() != kSizeF)
        return QSizeF();
    return QSizeF(real(2), real(3));
}

QSize ValueQt::toSize() const
{
    if (type() != kSize)
        return QSize();
    return QSize(integer(2), integer(3));
}

} // namespace bg
