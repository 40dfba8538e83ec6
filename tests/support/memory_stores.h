// Settings and a log that live in memory.
#pragma once

#include "base/logger.h"
#include "settings/default_settings.h"

#include <map>
#include <string>
#include <vector>

namespace tickervantage::testing {

class MemorySettingsStore : public SettingsStore {
public:
    std::map<std::string, std::vector<std::string>, std::less<>> values;
    int writes = 0;

    [[nodiscard]] std::optional<std::vector<std::string>> read(std::string_view key) const override {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void write(std::string_view key, const std::vector<std::string>& value) override {
        ++writes;
        values[std::string(key)] = value;
    }
    void remove(std::string_view key) override { values.erase(std::string(key)); }
};

class MemoryLogger : public Logger {
public:
    std::vector<std::string> sentences;
    void log(LogLevel, std::string_view sentence) override { sentences.emplace_back(sentence); }
};

} // namespace tickervantage::testing
