// Keeps the texts of the configurations that were installed, for the day when one of them is wanted back.
//
// It is kept beside the work: what cannot be kept goes to the journal and stops nothing. What is read here was written
// by root alone, and everybody may read it who may read the configuration.
#pragma once

#include "roothelper/grammar/helper_history.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tickervantage {

class History {
public:
    explicit History(std::string folder = history_folder) : m_folder(std::move(folder)) {}

    // Before another text is installed: one that came from elsewhere since the last time is kept too.
    void before(const std::string& configuration) const;

    // What was just put in its place for this user. A text that was there once before counts as rolled back.
    void after(const std::string& configuration, std::uint32_t user) const;

    // All of it, for good. What does not belong to it stays.
    void remove() const;

private:
    using Entries = std::vector<HistoryEntry>; // the newest last

    [[nodiscard]] std::string folder_of(const std::string& configuration) const;
    [[nodiscard]] std::string text_of(const std::string& folder, const HistoryEntry& entry) const;
    void add(const std::string& configuration, const Entries& entries, HistoryEntry entry, std::string_view text) const;

    std::string m_folder;
};

} // namespace tickervantage
