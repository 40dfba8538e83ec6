#include "platform/services/chrony_services.h"
#include "privileged/helper_content.h"

#include <gtest/gtest.h>

namespace tickervantage {
namespace {

TEST(HelperContent, OwnServiceDefinitionsPassAndEveryChangeOfThemFails) {
    const HelperRules rules;
    const ServiceDescription services[] = {
        daemon_service("/usr/local/sbin/chronyd", "/etc/chrony.d/chrony.conf", true),
        daemon_service("/usr/sbin/chronyd", "/etc/chrony/chrony.conf", false),
        rotation_service("/usr/local/bin/chronylogrotate.sh", "/usr/local/bin/chronyc", "/var/log/chrony/"),
        wake_service("/usr/local/bin/chronywake",
                     {"--make-thresh", "0.1", "--make-limit", "-1", "--burst-netmask", "ffff::/2001:db8::"})};
    for (const auto& service : services)
        for (const auto form : {ServiceForm::launchd, ServiceForm::systemd})
            for (const auto& file : definition_files(form, service)) {
                std::string sentence;
                EXPECT_EQ(check_service_definition(file.path, file.text, rules, sentence), 0) << file.text;
                EXPECT_EQ(check_service_definition(file.path, file.text + "\n", rules, sentence), -1);
                EXPECT_EQ(check_service_definition("/etc/systemd/system/x.service", file.text, rules, sentence), -1);
                for (std::size_t at = 0; at < file.text.size(); ++at) {
                    auto changed = file.text;
                    changed.erase(at, 1);
                    // A log folder may lose its last slash: another permitted spelling of the same one.
                    if (check_service_definition(file.path, changed, rules, sentence) == 0) {
                        EXPECT_EQ(changed.find("/var/log/chrony/"), std::string::npos) << changed;
                    }
                }
            }
}

TEST(HelperContent, ServicesOfOtherProgramsAndFoldersAreRefused) {
    const HelperRules rules;
    const ServiceDescription services[] = {
        daemon_service("/tmp/chronyd", "/etc/chrony.d/chrony.conf", true),
        daemon_service("/usr/sbin/chronyd", "/home/me/chrony.conf", true),
        rotation_service("/tmp/x.sh", "/usr/bin/chronyc", "/var/log/chrony"),
        rotation_service("/usr/local/bin/chronylogrotate.sh", "/usr/bin/chronyc", "/etc"),
        wake_service("/tmp/chronywake", {}),
        wake_service("/usr/local/bin/chronywake", {"--chronyc", "/tmp/x"}),
        wake_service("/usr/local/bin/chronywake", {"--make-thresh", "$(id)"}),
        wake_service("/usr/local/bin/chronywake", {"--make-thresh"})};
    for (const auto& service : services)
        for (const auto form : {ServiceForm::launchd, ServiceForm::systemd}) {
            const auto file = definition_files(form, service).front();
            std::string sentence;
            EXPECT_EQ(check_service_definition(file.path, file.text, rules, sentence), -1) << file.text;
            EXPECT_TRUE(sentence.ends_with('.')) << sentence;
        }
}

TEST(HelperContent, ConfigurationLinesThatReachFurtherAreFound) {
    const struct {
        const char* line;
        bool is_safe;
    } cases[] = {
        {"server ntp.example iburst", true},
        {"pool pool.example", true},
        {"driftfile /var/lib/chrony/drift", true},
        {"logdir /var/log/chrony/", true},
        {"user _chrony", true},
        {"# user root", true},
        {"; mailonchange me 1", true},
        {"confdir /etc/chrony/conf.d", true},
        {"bindcmdaddress 127.0.0.1", true},
        {"bindcmdaddress /run/chrony/chronyd.sock", true},
        {"refclock PHC /dev/ptp9 poll 0", true},
        {"refclock SHM 0", true},
        {"refclock SOCK /run/chrony.ttyS0.sock", true},
        {"include /etc/chrony/conf.d/*.conf", true},
        {"sourcedir /run/chrony-dhcp", true},
        {"keyfile /etc/chrony/chrony.keys", true},
        {"leapsectz right/UTC", true},
        // Patterns that match "..", and names that chronyd takes the backslashes from.
        {"include /etc/chrony/.?/.?/tmp/x", false},
        {"include /etc/chrony/.[.]/cron.d/x", false},
        {"include /etc/chrony/\\.\\./shadow", false},
        {"include /etc/chrony.d/.*", false},
        {"sourcedir /run/chrony/.?/.?/home/me", false},
        // What the daemon's user can write must not say what root does, nor root write among configurations.
        {"include /var/lib/chrony/x", false},
        {"confdir /var/log/chrony", false},
        {"pidfile /etc/chrony/chrony.conf", false},
        {"bindcmdaddress /etc/chrony/chrony.keys", false},
        {"driftfile /etc/chrony.d/chrony.conf", false},
        {"refclock SOCK /etc/chrony/x", false},
        {"refclock PHC /dev/watchdog", false},
        {"refclock PPS /dev/pps/../shm/x", false},
        {"refclock PPS /dev/shm/pps0", false},
        {"leapsectz /home/me/zone", false},
        {"leapsectz :/home/me/zone", false},
        {"leapsectz ../../home/me/zone", false},
        {"rtcdevice /dev/rtc1", true},
        {"user root", false},
        {"USER root", false},
        {"\tuser\vroot", false},
        {"user", false},
        {"driftfile /etc/cron.d/x", false},
        {"driftfile /var/lib/chrony/../../../etc/x", false},
        {"driftfile var/lib/chrony/drift", false},
        {"logdir /etc", false},
        {"logdir /var/log/chronyx", false},
        {"include /home/me/x", false},
        {"include /etc/chrony/a /etc/b", false},
        {"mailonchange me@example 1", false},
        {"bindcmdaddress /run/systemd/x", false},
        {"pidfile /etc/passwd", false},
        {"keyfile /etc/shadow", false},
        {"hwclockfile /etc/adjtime", false},
        {"ntsservercert /etc/ssl/private/x", false},
        {"refclock SOCK /etc/x", false},
        {"refclock PHC /etc/shadow", false},
        {"rtcdevice /dev/sda", false},
        {"tempcomp /etc/shadow 1 2", false},
        {"newdirective /etc/x", false},
    };
    for (const auto& [line, is_safe] : cases) {
        std::vector<ConfigurationLine> lines;
        std::string sentence;
        const auto text = std::string("# first\n") + line + "\n";
        ASSERT_EQ(find_unsafe_lines(text, "", {}, lines, sentence), 0) << line;
        EXPECT_EQ(lines.empty(), is_safe) << line;
        EXPECT_TRUE(is_safe || lines.at(0).number == 2) << line;
        ASSERT_EQ(find_unsafe_lines(text, "a b\n  " + std::string(line), {}, lines, sentence), 0);
        EXPECT_TRUE(lines.empty()) << line << ": what is installed already needs no second permission";
    }
}

TEST(HelperContent, ConfigurationThatChronydWouldReadOtherwiseIsRefused) {
    std::vector<ConfigurationLine> lines;
    std::string sentence;
    const auto hidden = "#" + std::string(2046, ' ') + "user root\n";
    EXPECT_EQ(find_unsafe_lines("server x\n" + hidden, "", {}, lines, sentence), -1);
    EXPECT_EQ(sentence, "Line 2 of the configuration is longer than chronyd reads.");
    EXPECT_EQ(find_unsafe_lines(std::string_view("server x\0\n", 10), "", {}, lines, sentence), -1);
    EXPECT_EQ(find_unsafe_lines("server x\nuser r\x1b[2Kx\n", "", {}, lines, sentence), -1);
    EXPECT_EQ(sentence, "Line 2 of the configuration holds characters that cannot be shown.");
}

} // namespace
} // namespace tickervantage
