// A machine of which the test says what lies on it, and a queue for its jobs.
#pragma once

#include "roothelper/jobs/administrative_jobs.h"
#include "roothelper/jobs/job_machine.h"
#include "support/test.h"

namespace tickervantage::testing {

class FakeJobMachine : public JobMachine {
public:
    std::map<std::string, std::string> files; // by path
    std::vector<std::string> unreadable;      // names that every folder has beside its files
    std::optional<StartedDaemon> started;
    std::function<bool()> survives; // missing: the daemon does
    std::function<void(int seconds)> paused;
    std::function<ConfigError(const std::string& text)> checked; // missing: every text passes

    void put(std::initializer_list<const char*> paths) {
        for (const char* path : paths)
            files[path] = "";
    }

    [[nodiscard]] bool file_exists(const std::string& path) const override { return files.contains(path); }
    [[nodiscard]] std::optional<std::string> read_file(const std::string& path) const override {
        const auto found = files.find(path);
        return found == files.end() ? std::nullopt : std::optional(found->second);
    }
    [[nodiscard]] std::vector<std::string> file_names(const std::string& folder) const override {
        std::vector<std::string> names = unreadable;
        for (const auto& [path, text] : files)
            if (path.starts_with(folder + '/'))
                names.push_back(path.substr(folder.size() + 1));
        return names;
    }
    [[nodiscard]] std::string user_name(std::uint32_t user) const override {
        return user == 0 ? "root" : std::to_string(user);
    }
    [[nodiscard]] ConfigError check_syntax(const std::string& text) const override {
        return checked ? checked(text) : ConfigError{};
    }
    [[nodiscard]] std::string find_chronywake() const override { return "/opt/chronywake"; }
    [[nodiscard]] bool daemon_survives(const std::string&) const override { return !survives || survives(); }
    [[nodiscard]] std::optional<StartedDaemon> started_daemon(const std::string&) const override { return started; }
    [[nodiscard]] bool filters_calls() const override { return false; }
    [[nodiscard]] Result<> replace_file(const std::string& path, std::string_view bytes) override {
        files[path] = bytes;
        return {};
    }
    void pause(int seconds) const override {
        if (paused)
            paused(seconds);
    }
};

// Every job's queue in one.
class OneJobQueue : public JobQueues {
public:
    explicit OneJobQueue(DispatchQueueSerial& queue) : m_queue(queue) {}

    [[nodiscard]] DispatchQueueSerial& queue(std::string_view label) override {
        labels.emplace_back(label);
        return m_queue;
    }
    std::vector<std::string> labels; // that were asked for

private:
    DispatchQueueSerial& m_queue;
};

} // namespace tickervantage::testing
