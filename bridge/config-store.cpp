// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/config-store.h"

#include "bridge/logger.h"
#include "bridge/value-registry.h"

#include <json/json.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <system_error>

namespace fs = std::filesystem;

namespace bg {
namespace {

Json::Value toJson(const Value& value)
{
    switch (value.type()) {
    case Value::kNoType:
        return Json::Value(Json::nullValue);
    case Value::kBool:
        return Json::Value(value.toBool());
    case Value::kInt:
        return Json::Value(value.toInt());
    case Value::kInt64:
        return Json::Value(static_cast<Json::Int64>(value.toInt64()));
    case Value::kDouble:
        return Json::Value(value.toDouble());
    case Value::kString:
        return Json::Value(value.toStdString());
    default:
        return Json::Value(value.write());
    }
}

Value fromJson(const Json::Value& json, const Value& fallback)
{
    switch (json.type()) {
    case Json::booleanValue:
        return Value(json.asBool());
    case Json::intValue:
    case Json::uintValue:
        if (json.isInt())
            return Value(json.asInt());
        if (json.isInt64())
            return Value(static_cast<std::int64_t>(json.asInt64()));
        return Value(json.asDouble());
    case Json::realValue:
        return Value(json.asDouble());
    case Json::stringValue: {
        const std::string text = json.asString();
        ValueType type;
        if (fallback.type() > Value::kString && find_value_type(fallback.type(), &type)) {
            Value typed;
            if (typed.read(text.c_str()) && typed.type() == fallback.type())
                return typed;
        }
        return Value(text);
    }
    default:
        return fallback;
    }
}

constexpr std::uintmax_t kMaxStoreBytes = 1024 * 1024;
constexpr int kMaxDepth = 64;

std::string temporaryName(const std::string& path)
{
    std::random_device random;
    return path + ".tmp-" + std::to_string(random());
}

} // namespace

ConfigStore::ConfigStore(std::string path, Logger* logger) : path_(std::move(path)), logger_(logger)
{
}

void ConfigStore::report(const char* what, const std::string& detail) const
{
    if (logger_ != nullptr)
        logger_->log(Logger::kError, "bg", "[E][bg] configuration %s: %s: %s\n", path_.c_str(),
                     what, detail.c_str());
}

ConfigStore::Load ConfigStore::load(Json::Value* root) const
{
    *root = Json::Value(Json::objectValue);
    std::error_code error;
    const fs::path file = fs::u8path(path_);
    const fs::file_status status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found)
        return Load::Missing;
    if (error) {
        report("cannot be read", error.message());
        return Load::Broken;
    }
    // Checked before opening: opening a FIFO would wait for a writer forever.
    if (status.type() != fs::file_type::regular) {
        report("is not a regular file", "left untouched");
        return Load::Broken;
    }
    const std::uintmax_t size = fs::file_size(file, error);
    if (error || size > kMaxStoreBytes) {
        report("is too large", std::to_string(size) + " bytes");
        return Load::Broken;
    }
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        report("cannot be read", "open failed");
        return Load::Broken;
    }
    // One byte more than its size tells a file that grew since its size was taken, so
    // no more than the cap is ever read.
    std::string text(static_cast<std::size_t>(size) + 1, '\0');
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(in.gcount()));
    if (text.size() > size) {
        report("changed while it was read", "left untouched");
        return Load::Broken;
    }
    if (text.find_first_not_of(" \t\r\n") == std::string::npos)
        return Load::Missing;

    Json::CharReaderBuilder builder;
    // Settings are flat; deep nesting only comes from a damaged or hostile file, and
    // both parsing and rewriting it would cost far more than it holds.
    builder["stackLimit"] = kMaxDepth;
    std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    std::string errors;
    Json::Value parsed;
    bool parsedWell = false;
    try {
        parsedWell = reader->parse(text.data(), text.data() + text.size(), &parsed, &errors);
    } catch (const std::exception& e) {
        errors = e.what();
    }
    if (!parsedWell) {
        report("is not valid JSON", errors);
        return Load::Broken;
    }
    if (!parsed.isObject()) {
        report("is not a JSON object", "left untouched");
        return Load::Broken;
    }
    *root = parsed;
    return Load::Ok;
}

bool ConfigStore::keepAside() const
{
    std::error_code error;
    const fs::path bad = fs::u8path(path_ + ".bad");
    fs::rename(fs::u8path(path_), bad, error);
    if (error) {
        report("cannot be kept aside", error.message());
        return false;
    }
    report("was kept aside as", bad.u8string());
    return true;
}

bool ConfigStore::save(const Json::Value& root) const
{
    std::error_code error;
    const fs::path target = fs::u8path(path_);
    if (target.has_parent_path())
        fs::create_directories(target.parent_path(), error);

    const fs::path temporary = fs::u8path(temporaryName(path_));
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        if (!out) {
            report("cannot be written", temporary.u8string());
            return false;
        }
        Json::StreamWriterBuilder builder;
        builder["indentation"] = "    ";
        out << Json::writeString(builder, root) << '\n';
        out.close();
        if (!out) {
            fs::remove(temporary, error);
            report("cannot be written", temporary.u8string());
            return false;
        }
    }
    fs::rename(temporary, target, error);
    if (error) {
        report("cannot be replaced", error.message());
        std::error_code ignored;
        fs::remove(temporary, ignored);
        return false;
    }
    return true;
}

bool ConfigStore::set(const std::string& key, const Value& value)
{
    Json::Value root;
    if (load(&root) == Load::Broken && !keepAside())
        return false;
    root[key] = toJson(value);
    return save(root);
}

Value ConfigStore::get(const std::string& key, const Value& fallback) const
{
    Json::Value root;
    if (load(&root) != Load::Ok || !root.isMember(key))
        return fallback;
    return fromJson(root[key], fallback);
}

Value ConfigStore::get_or_default(const std::string& key, const Value& fallback)
{
    Json::Value root;
    const Load state = load(&root);
    if (state == Load::Broken)
        return fallback;
    if (root.isMember(key))
        return fromJson(root[key], fallback);
    root[key] = toJson(fallback);
    save(root);
    return fallback;
}

bool ConfigStore::has(const std::string& key) const
{
    Json::Value root;
    return load(&root) == Load::Ok && root.isMember(key);
}

bool ConfigStore::remove(const std::string& key)
{
    Json::Value root;
    if (load(&root) != Load::Ok || !root.isMember(key))
        return false;
    root.removeMember(key);
    return save(root);
}

} // namespace bg
