// Puts one JSON value together from the events of a parser: for what a reader keeps without knowing it.
//
// Internal to the scatter map's reader.
#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <utility>
#include <vector>

namespace tickervantage {

class JsonValueBuilder {
public:
    using Json = nlohmann::ordered_json;

    // Each takes the parser's next event; true: the value is complete, and take() has it.
    bool value(Json value) {
        add(std::move(value));
        return m_open.empty();
    }
    bool end() {
        Json done = std::move(m_open.back());
        m_open.pop_back();
        m_keys.pop_back();
        return value(std::move(done));
    }
    // False: nested deeper than anything sensible, which writing it again could not stand.
    [[nodiscard]] bool begin(Json empty) {
        m_open.push_back(std::move(empty));
        m_keys.emplace_back();
        return m_open.size() <= DEEPEST;
    }
    void key(std::string name) { m_keys.back() = std::move(name); }

    [[nodiscard]] Json take() { return std::exchange(m_done, Json()); }

private:
    static constexpr std::size_t DEEPEST = 100;

    void add(Json value) {
        if (m_open.empty())
            m_done = std::move(value);
        else if (m_open.back().is_object())
            m_open.back()[m_keys.back()] = std::move(value);
        else
            m_open.back().push_back(std::move(value));
    }

    std::vector<Json> m_open;        // arrays and objects, from the outermost
    std::vector<std::string> m_keys; // of each, the member that comes next
    Json m_done;
};

} // namespace tickervantage
