#include "chrony/configuration/configuration.h"
#include "chrony/configuration/directive_options.h"
#include "chrony/configuration/poll_limits.h"
#include "support/test.h"

namespace tickervantage {
namespace {

TEST(Configuration, DirectivesMapToTheRestOfTheirLine) {
    Configuration configuration;
    configuration.read("# comment\n  server  ntp.example  iburst \t\r\n\nlogdir /var/log/chrony # why\nrtcsync\n"
                       "! odd\n;semicolon x\nserver second\nmakestep\t1.0 3\n   \nuser \n");
    EXPECT_EQ(configuration.all(), (std::map<std::string, std::string>{{"server", "second"},
                                                                       {"logdir", "/var/log/chrony # why"},
                                                                       {"!", "odd"},
                                                                       {";semicolon", "x"},
                                                                       {"makestep", "1.0 3"}}));
    configuration.read("server a  b\n");
    EXPECT_EQ(configuration.value("server"), "a  b");
    EXPECT_EQ(configuration.value("driftfile"), std::nullopt);
}

TEST(DirectiveOptions, AreThoseThatMayComeNext) {
    const auto names = [](std::string_view before) {
        std::string text;
        for (const auto& option : options_after(before))
            text.append(text.empty() ? "" : " ").append(option.name);
        return text;
    };
    for (const auto& [before, expected] :
         std::vector<std::pair<std::string, std::string>>{{"", ""},
                                                          {"local", "distance orphan stratum"},
                                                          {"local stratum", ""},
                                                          {"LOCAL Stratum 10 ", "distance orphan"},
                                                          {"leapsecmode", "ignore slew step system"},
                                                          {"leapsecmode slew", ""},
                                                          {"refclock", "PHC PPS SHM SOCK"},
                                                          {"refclock SHM", ""},
                                                          {"# local", ""},
                                                          {"driftfile", ""},
                                                          {"server", ""}})
        EXPECT_EQ(names(before), expected) << before;
    EXPECT_TRUE(names("server a.example").starts_with("asymmetry auto_offline burst"));
    EXPECT_EQ(names("server a.example iburst minpoll 6").find("iburst"), std::string::npos);
    EXPECT_NE(names("refclock SHM 0 refid GPS").find("precision"), std::string::npos);
    EXPECT_NE(names("pool a.example").find("maxsources"), std::string::npos);
    EXPECT_EQ(names("server a.example").find("maxsources"), std::string::npos);
    EXPECT_EQ(names("peer a.example").find("iburst"), std::string::npos);
    for (const auto& row : all_directive_options())
        EXPECT_TRUE(std::ranges::is_sorted(row.options, {}, &DirectiveOption::name)) << row.directive;
}

TEST(Configuration, FileThatCannotBeReadChangesNothing) {
    const auto folder = std::filesystem::path(::testing::TempDir());
    const auto file = folder / "configuration_test.conf";
    std::ofstream(file) << "logdir /a\n";
    Configuration configuration;
    configuration.load(file);
    EXPECT_EQ(configuration.value("logdir"), "/a");
    std::ofstream(file) << "logdir /b\n\xff\n";
    for (const auto& path : {file.string(), folder.string(), std::string("/no/such/file"), std::string()})
        configuration.load(path);
    EXPECT_EQ(configuration.value("logdir"), "/a");
    std::filesystem::remove(file);
}

TEST(PollLimits, SpanThoseOfAllSources) {
    for (const auto& [configuration, limits] :
         std::vector<std::pair<const char*, PollLimits>>{{"", {6, 10}},
                                                         {"# server a minpoll 1\ndriftfile x\nmaxpoll 3\n", {6, 10}},
                                                         {"pool a iburst\n", {6, 10}},
                                                         {"server a minpoll 8 maxpoll 12\n", {8, 12}},
                                                         {"Server a MINPOLL 4\npeer b maxpoll 14\n", {4, 14}},
                                                         {"server a minpoll 12\n", {12, 12}},
                                                         {"server a maxpoll 3\n", {3, 3}},
                                                         {"server a minpoll 99 maxpoll x\n", {6, 10}},
                                                         {"server maxpoll 9\nserver b minpoll\n", {6, 10}}})
        EXPECT_EQ(poll_limits_in(configuration), limits) << configuration;
    EXPECT_EQ(read_poll_limits("/no/such/file"), PollLimits());
}

} // namespace
} // namespace tickervantage
