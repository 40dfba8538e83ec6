// Files that lie in memory only.
#pragma once

#include "base/failure_codes.h"
#include "base/user_files.h"

#include <cerrno>
#include <map>
#include <string>

namespace tickervantage::testing {

class MemoryFiles : public UserFiles {
public:
    std::map<std::string, std::string> texts;
    int writes = 0;
    bool is_full = false;
    bool holds_fast = false; // nothing can be renamed

    [[nodiscard]] FileReading read(const std::string& path, std::size_t) override {
        const auto found = texts.find(path);
        if (found == texts.end())
            return {.reason = system_failure(ENOENT)};
        return {.outcome = FileReading::Outcome::read, .bytes = found->second};
    }
    [[nodiscard]] Result<> replace(const std::string& path, const WriteText& write) override {
        std::string text;
        ++writes;
        if (is_full || write([&text](std::string_view piece) {
                           text += piece;
                           return 0;
                       }) != 0)
            return failed(FailureCode::cannot_write, {path}, ENOSPC);
        texts[path] = text;
        return {};
    }
    [[nodiscard]] Result<std::string> set_aside(const std::string& path) override {
        if (holds_fast)
            return failed(FailureCode::cannot_rename, {path}, EACCES);
        auto kept_as = path + ".damaged";
        texts[kept_as] = texts[path];
        texts.erase(path);
        return kept_as;
    }
    void remove(const std::string& path) override { texts.erase(path); }
};

} // namespace tickervantage::testing
