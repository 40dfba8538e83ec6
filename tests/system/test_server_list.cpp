// A program that saves the server list is killed again and again: what is on the disk is always one whole list.
#include "chrony/configuration/server_list.h"
#include "linux/shared_text_file.h"
#include "support/child_program.h"

#include <gtest/gtest.h>

#include <random>

namespace tickervantage {
namespace {

constexpr std::size_t length = 200;

std::string list_number(int number) {
    const server_data server{.title = "List " + std::to_string(number), .address = "192.0.2.1"};
    return format_servers(std::vector(length, server));
}

// Runs in a process of its own until it is killed.
[[noreturn]] void save_for_ever(const std::string& path) {
    SharedTextFile file(path);
    const auto found = file.read();
    const auto made_from =
        found.outcome == SharedTextReading::Outcome::missing ? std::nullopt : std::optional(found.text);
    std::string kept_as;
    std::string sentence;
    for (int number = 0;; ++number)
        if (file.replace(list_number(number), made_from, kept_as, sentence) != 0)
            _exit(1);
}

TEST(ServerListFile, SurvivesAHundredKills) {
    const testing::PrivateHome home;
    const std::string path = home.path("data/Tickervantage/servers.txt");
    std::mt19937 random(1);
    std::uniform_int_distribution<int> microseconds(0, 20'000);
    int found = 0;
    for (int kill_number = 0; kill_number < 100; ++kill_number) {
        const pid_t child = fork();
        if (child == 0)
            save_for_ever(path);
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random))); // the moment of the kill
        ::kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "saving failed";
        const auto reading = SharedTextFile(path).read();
        if (reading.outcome == SharedTextReading::Outcome::missing && found == 0)
            continue; // not one save yet
        ASSERT_EQ(reading.outcome, SharedTextReading::Outcome::read) << reading.reason;
        const auto servers = parse_servers(reading.text);
        ASSERT_EQ(servers, std::vector(length, servers.at(0)));
        ++found;
    }
    EXPECT_GT(found, 50);
    std::string kept_as;
    std::string sentence;
    SharedTextFile after(path);
    EXPECT_EQ(after.replace(list_number(1), after.read().text, kept_as, sentence), 0) << sentence; // no lock is left
    for (const auto& name : home.found_in("data"))
        EXPECT_EQ(name.find(".other-"), std::string::npos) << name; // nobody else ever wrote
}

} // namespace
} // namespace tickervantage
