// Paths that lie nowhere but here. Users are those named; root may do anything.
#pragma once

#include "base/path_probes.h"
#include "support/test.h"

namespace tickervantage::testing {

struct FakePathProbes : PathProbes {
    std::map<std::string, PathState> states;
    std::map<std::string, PathFacts> facts;
    std::set<std::string> users;

    [[nodiscard]] PathState state(const std::string& path) const override {
        const auto found = states.find(path);
        return found == states.end() ? PathState::nothing : found->second;
    }
    [[nodiscard]] PathFacts look(const std::string& path, const std::string& user) const override {
        const auto found = facts.find(path);
        PathFacts result = found == facts.end() ? PathFacts{PathFacts::Kind::missing} : found->second;
        result.readable = result.readable || user == "root";
        result.writable = result.writable || user == "root";
        return result;
    }
    [[nodiscard]] bool user_exists(const std::string& user) const override { return users.contains(user); }
};

} // namespace tickervantage::testing
