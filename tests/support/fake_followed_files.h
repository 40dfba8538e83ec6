// Files for a follower, in memory: they can be rotated, cut, taken away and made unreadable at any moment.
#pragma once

#include "base/failure_codes.h"
#include "base/followed_file.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <memory>
#include <string>

namespace tickervantage::testing {

class FakeFollowedFiles : public FollowedFiles {
public:
    struct Content {
        std::uint64_t inode = 0;
        std::string text;
        bool readable = true;
        bool fails_when_read = false;
        std::optional<Failure> damage; // reported with the length
        bool hidden = false;           // in a folder that may not be entered
    };

    // Under a new inode.
    void create(const std::string& name, std::string text = {}) {
        m_files[name] = std::make_shared<Content>(Content{++m_inode, std::move(text), true, false, {}});
    }
    void remove(const std::string& name) { m_files.erase(name); }
    void rename(const std::string& from, const std::string& to) {
        m_files[to] = m_files.at(from);
        m_files.erase(from);
    }
    [[nodiscard]] Content& at(const std::string& name) { return *m_files.at(name); }

    [[nodiscard]] int asked() const { return m_asked; } // for a status

    Found status(const std::string& name, FileStatus& status, std::optional<Failure>& reason) override {
        ++m_asked;
        const auto found = m_files.find(name);
        if (found == m_files.end())
            return Found::nothing;
        if (found->second->hidden) {
            reason = system_failure(EACCES);
            return Found::unreadable;
        }
        status = {1, found->second->inode, found->second->text.size()};
        return Found::file;
    }

    int open(const std::string& name, std::unique_ptr<FollowedFile>& file, FileStatus& status,
             std::optional<Failure>& reason) override {
        const auto found = m_files.find(name);
        if (found == m_files.end() || !found->second->readable) {
            reason = system_failure(found == m_files.end() ? ENOENT : EACCES);
            return -1;
        }
        status = {1, found->second->inode, found->second->text.size()};
        file = std::make_unique<File>(found->second);
        return 0;
    }

    // A folder is what stands before a slash.
    std::optional<std::vector<std::string>> names_in(const std::string& folder) override {
        std::vector<std::string> names;
        for (const auto& [name, content] : m_files)
            if (name.starts_with(folder + '/'))
                names.push_back(name.substr(folder.size() + 1));
        return names.empty() ? std::nullopt : std::optional(names);
    }

private:
    class File : public FollowedFile {
    public:
        explicit File(std::shared_ptr<Content> content) : m_content(std::move(content)) {}
        int length(const GoOn&, std::uint64_t& bytes, std::optional<Failure>& reason) override {
            bytes = m_content->text.size();
            reason = m_content->damage;
            return 0;
        }
        int read(std::uint64_t offset, std::span<char> buffer, std::size_t& count,
                 std::optional<Failure>& reason) override {
            if (m_content->fails_when_read) {
                reason = system_failure(EIO);
                return -1;
            }
            const auto& text = m_content->text;
            const auto start = std::min<std::size_t>(static_cast<std::size_t>(offset), text.size());
            count = text.copy(buffer.data(), buffer.size(), start);
            return 0;
        }

    private:
        std::shared_ptr<Content> m_content;
    };

    std::map<std::string, std::shared_ptr<Content>> m_files;
    std::uint64_t m_inode = 0;
    int m_asked = 0;
};

} // namespace tickervantage::testing
