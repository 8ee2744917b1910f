// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/value.h"

#include <string>

namespace Json {
class Value;
}

namespace bg {

class Logger;

// Key-value settings shared with the host in one JSON object. The file is read on
// every access, so changes the host makes are seen at once, and written through a
// temporary file that is renamed over it, so a crash never leaves half a file. A store
// that cannot be read (not a regular file, too large, not a JSON object, nested too
// deep) is reported and read as empty; before the first write it is moved aside to
// PATH.bad, so what it held is never lost.
class ConfigStore
{
public:
    explicit ConfigStore(std::string path, Logger* logger = nullptr);

    const std::string& path() const { return path_; }

    bool set(const std::string& key, const Value& value);
    // A stored text is read back as the fallback's type when it is that type's written
    // form ("[rectf]..."), else as a string.
    Value get(const std::string& key, const Value& fallback = Value()) const;
    // Like get(), but an absent key is first stored with the fallback.
    Value get_or_default(const std::string& key, const Value& fallback);
    bool has(const std::string& key) const;
    bool remove(const std::string& key);

private:
    enum class Load
    {
        Ok,
        Missing,
        Broken
    };

    Load load(Json::Value* root) const;
    bool save(const Json::Value& root) const;
    bool keepAside() const;
    void report(const char* what, const std::string& detail) const;

    std::string path_;
    Logger* logger_;
};

} // namespace bg
