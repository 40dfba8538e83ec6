#include "base/failure_codes.h"
#include "chrony/services/chrony_services.h"
#include "roothelper/grammar/helper_content.h"
#include "roothelper/grammar/helper_displaced.h"
#include "roothelper/grammar/helper_includes.h"
#include "roothelper/grammar/helper_question.h"
#include "support/kept_text.h"
#include "support/test.h"

#include <fnmatch.h>

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
                EXPECT_TRUE(check_service_definition(file.path, file.text, rules)) << file.text;
                EXPECT_FALSE(check_service_definition(file.path, file.text + "\n", rules));
                EXPECT_FALSE(check_service_definition("/etc/systemd/system/x.service", file.text, rules));
                for (std::size_t at = 0; at < file.text.size(); ++at) {
                    auto changed = file.text;
                    changed.erase(at, 1);
                    // A log folder may lose its last slash: another permitted spelling of the same one.
                    if (check_service_definition(file.path, changed, rules)) {
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
            const auto checked = check_service_definition(file.path, file.text, rules);
            ASSERT_FALSE(checked) << file.text;
            EXPECT_EQ(english(checked.error()),
                      "The file is not the service definition that belongs at " + file.path + ".");
        }
}

TEST(HelperContent, ConfigurationLinesThatReachFurtherAreFound) {
    testing::expect_answers_as_kept("unsafe_lines", [](const std::string& line) {
        const auto lines = find_unsafe_lines("# first\n" + line + "\n", "", {});
        const auto left = find_unsafe_lines(line + "\n", "a b\n  " + line, {});
        EXPECT_TRUE(left && left->empty()) << line << ": what is installed already needs no second permission";
        if (!lines || lines->empty())
            return std::string();
        const bool is_that = lines->size() == 1 && lines->at(0).number == 2;
        return std::string(is_that ? "  needs an authorisation\n" : "  is another line\n");
    });
}

TEST(HelperContent, ConfigurationThatChronydWouldReadOtherwiseIsRefused) {
    const auto hidden = "#" + std::string(2046, ' ') + "user root\n";
    const auto lines = find_unsafe_lines("server x\n" + hidden, "", {});
    ASSERT_FALSE(lines);
    EXPECT_EQ(english(lines.error()), "Line 2 of the configuration is longer than chronyd reads.");
    EXPECT_FALSE(find_unsafe_lines(std::string_view("server x\0\n", 10), "", {}));
}

// polkitd expands "$(", agents read markup, and some characters turn, hide or divide what stands beside them.
TEST(HelperContent, QuestionsAreMadeOfPlainSignsOrNotAsked) {
    const std::string hostile[] = {"mailonchange root@localhost$( 0.5",
                                   "mailonchange root@$(user) 0.5",
                                   "mailonchange <!-- 1",
                                   "mailonchange --> 1",
                                   "mailonchange a&lt;b 1",
                                   "include /etc/chrony/\\.\\./x",
                                   "include /home/me/`id`",
                                   "include /home/me/\"x\"",
                                   "include /home/me/\xE2\x80\xAEx",
                                   "include /home/me/\xE2\x80\xA8x",
                                   "include /home/me/\x1b[2Kx",
                                   "include /home/me/\xC2\xA0x",
                                   "include /home/me/\xC3\xBC",
                                   "include /home/me/\x7F",
                                   "include /home/me/'x'",
                                   "include /home/me/\xFF"};
    for (const auto& line : hostile) {
        const auto lines = find_unsafe_lines("server x\n" + line + "\nuser root\n", "", {});
        ASSERT_FALSE(lines) << line;
        EXPECT_EQ(english(lines.error()),
                  "Line 2 of the configuration needs an authorisation of its own, but holds characters that "
                  "a question cannot show safely.");
        EXPECT_FALSE(question_about({{1, "user root"}, {2, line}})) << line;
        EXPECT_TRUE(find_unsafe_lines(line + "\n", line, {})) << "installed already: not asked";
    }
}

TEST(HelperContent, QuestionsShowEveryLineWholeOrAreNotAsked) {
    EXPECT_EQ(question_about({{2, "user root"}, {7, "driftfile /etc/cron.d/x"}}),
              "This configuration lets chronyd, which starts as root, do more than usual:\n"
              "line 2: user root\nline 7: driftfile /etc/cron.d/x");
    EXPECT_FALSE(question_about({{1, "include /" + std::string(240, 'x')}}));
    EXPECT_EQ(question_about(std::vector<ConfigurationLine>(13, {1, "user root"})).error(),
              Failure{.code = FailureCode::configuration_unshowable});
}

// What a machine holds, by path; a pattern of the tests' ends in a star.
class FilesOnPaper : public IncludedFiles {
public:
    explicit FilesOnPaper(std::map<std::string, std::string> machine) : m_machine(std::move(machine)) {}
    [[nodiscard]] std::vector<std::string> matching(const std::string& pattern) const override {
        std::vector<std::string> paths;
        for (const auto& [path, text] : m_machine)
            if (::fnmatch(pattern.c_str(), path.c_str(), FNM_PATHNAME) == 0)
                paths.push_back(path == "/etc/chrony/link.conf" ? "/etc/chrony/chrony.conf" : path);
        return paths;
    }
    [[nodiscard]] std::string read(const std::string& path) const override { return m_machine.at(path); }

private:
    std::map<std::string, std::string> m_machine;
};

TEST(HelperContent, ConfigurationsThatIncludeThemselvesAreFound) {
    const std::map<std::string, std::string> machine{
        {"/etc/chrony/chrony.conf", "server former.example\n"},
        {"/etc/chrony/link.conf", ""},
        {"/etc/chrony/conf.d/plain.conf", "server a.example\ninclude /etc/chrony/conf.d/plain.conf\n"},
        {"/etc/chrony/back/x.conf", "# back\ninclude /etc/chrony/chron?.conf\n"},
        {"/etc/chrony/far/x.conf", "confdir /etc/chrony/back\n"},
        {"/etc/chrony/sources/x.sources", "include /etc/chrony/chrony.conf\n"}};
    const struct {
        const char* line;
        bool comes_back;
    } cases[] = {{"include /etc/chrony/chrony.conf", true},
                 {"INCLUDE /etc//chrony/chrony.conf", true},
                 {"include /etc/chrony/*.conf", true},
                 {"include /etc/chrony/[a-d]hrony.conf", true},
                 {"confdir /etc/chrony", true},
                 {"confdir /etc/chrony/conf.d /etc/chrony/", true},
                 {"include /etc/chrony/link.conf", true},
                 {"include /etc/chrony/back/x.conf", true},
                 {"confdir /etc/chrony/far", true},
                 {"# include /etc/chrony/chrony.conf", false},
                 {"include /etc/chrony/conf.d/plain.conf", false},
                 {"confdir /etc/chrony/conf.d", false},
                 {"sourcedir /etc/chrony", false},
                 {"sourcedir /etc/chrony/sources", false},
                 {"include /etc/chrony.conf", false}};
    for (const auto& [line, comes_back] : cases)
        EXPECT_EQ(line_that_includes_itself(std::string("server a\n") + line + "\n", "/etc/chrony/chrony.conf",
                                            FilesOnPaper(machine)),
                  comes_back ? 2 : 0)
            << line;
    EXPECT_EQ(line_that_includes_itself("confdir /etc/chrony.d\n", "/etc/chrony.d/chrony.conf", FilesOnPaper(machine)),
              1)
        << "also where nothing is installed yet";
}

TEST(HelperContent, NoPatternOfACallerLeadsASearchOutOfTheConfigurations) {
    class Searches : public IncludedFiles {
    public:
        mutable std::vector<std::string> patterns;
        [[nodiscard]] std::vector<std::string> matching(const std::string& pattern) const override {
            patterns.push_back(pattern);
            return {};
        }
        [[nodiscard]] std::string read(const std::string&) const override { return {}; }
    } files;
    for (const char* pattern : {"/etc/chrony/../../*/*/*/*", "/etc/chrony/.*/.*/*/*", "/etc/chrony/\\.*/\\.*/*",
                                "/etc/chrony*/.?/*", "/etc/chrony/*/../../*"})
        EXPECT_EQ(line_that_includes_itself(std::string("include ") + pattern + "\n", "/etc/chrony/chrony.conf", files),
                  0);
    EXPECT_EQ(files.patterns, std::vector<std::string>(5, "/etc/chrony/chrony.conf"))
        << "the destination's other names only";
}

TEST(HelperContent, RefusalsOfChronydTellNothingOfFilesThatTheCallerMayNotRead) {
    const std::string path = "/run/chronyhelper/item-1";
    const std::string text = "server a\ninclude /etc/chrony/own\nconfdir /etc/chrony/secret\n";
    const struct {
        const char* errors;
        const char* sentence;
    } cases[] = {
        {"2026-01-01T00:00:00Z Fatal error : Invalid directive at line 2 in file /run/chronyhelper/item-1\nuser x\n",
         "chronyd does not accept this configuration: Fatal error : Invalid directive at line 2."},
        {"Fatal error : Could not parse server directive at line 7 in file /etc/chrony/secret/name\n",
         "chronyd does not accept a file that this configuration includes: Fatal error : Could not parse server "
         "directive at line 7."},
        {"Fatal error : Could not open /etc/chrony/own : Permission denied\n",
         "chronyd does not accept this configuration: Fatal error : Could not open /etc/chrony/own : Permission "
         "denied."},
        {"Fatal error : Could not open /etc/chrony/hidden : Permission denied\n",
         "chronyd does not accept this configuration: a file that it includes is missing or cannot be read."},
        {"1 SHA1 HEX:0123456789\n", "chronyd does not accept this configuration."},
        {"", "chronyd does not accept this configuration."}};
    for (const auto& [errors, sentence] : cases)
        EXPECT_EQ(english(chronyd_refusal(errors, path, text)), sentence);
}

TEST(HelperContent, FormerConfigurationIsConsentOnlyWithinItsJob) {
    const HelperCaller caller{.name = ":1.7", .user = 1000, .process = 42, .process_start = 99};
    auto other = caller;
    other.name = ":1.8";
    const ConfigurationExchange exchange{"/etc/chrony.conf", "user root\n", "server a\n"};
    const auto changed = [&exchange](auto change) {
        auto result = exchange;
        change(result);
        return result;
    };
    const auto life = DisplacedConfigurations::lifetime_seconds;
    const struct {
        HelperCaller who;
        ConfigurationExchange what;
        std::int64_t when;
        bool holds;
    } cases[] = {{caller, exchange, 5, true},
                 {other, exchange, 5, false},
                 {caller, exchange, life + 5, false},
                 {caller, changed([](auto& e) { e.displaced += "x"; }), 5, false},
                 {caller, changed([](auto& e) { e.installed += "x"; }), 5, false},
                 {caller, changed([](auto& e) { e.destination += "x"; }), 5, false}};
    for (const auto& [who, what, when, holds] : cases) {
        DisplacedConfigurations displaced;
        EXPECT_FALSE(displaced.take(caller, exchange, 0)) << "an older file of that name";
        displaced.note(caller, exchange, 0);
        EXPECT_EQ(displaced.take(who, what, when), holds);
        if (holds) {
            EXPECT_FALSE(displaced.take(who, what, when)) << "once is enough";
        }
    }
    DisplacedConfigurations displaced;
    displaced.note(caller, exchange, 0);
    displaced.note(other, changed([](auto& e) { e.displaced = "server b\n"; }), 1);
    EXPECT_FALSE(displaced.take(caller, exchange, 2)) << "somebody else installed one since";
    displaced.note(caller, exchange, 0);
    displaced.drop(caller.name);
    EXPECT_FALSE(displaced.take(caller, exchange, 1));
}

} // namespace
} // namespace tickervantage
