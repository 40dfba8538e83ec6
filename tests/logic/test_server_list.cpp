#include "base/failure_codes.h"
#include "chrony/configuration/local_host.h"
#include "chrony/configuration/server_list.h"
#include "cli/configuration/servers_command.h"
#include "linux/autostart.h"
#include "linux/shared_text_file.h"
#include "support/child_program.h"
#include "support/kept_text.h"
#include "support/test.h"

namespace tickervantage {
namespace {

TEST(ServerList, LinesAreReadAndWritten) {
    struct Case {
        const char* line;
        server_data server;
        const char* saved; // null: as it came
    };
    const Case cases[]{{"Lab:clock.example:10:6:true", {"Lab", "clock.example", 10, 6, true}, nullptr},
                       {"Fast:192.0.2.1:-2:-4:false", {"Fast", "192.0.2.1", -2, -4, false}, nullptr},
                       {"Lab", {"Lab"}, "Lab:0.0.0.0:16:0:false"},
                       {"Lab:clock.example:8", {"Lab", "clock.example", 8}, "Lab:clock.example:8:0:false"},
                       {"::::", {"", "", 16, 0, false, {}, "::::"}, nullptr},
                       {"Lab:c:1:0:true:key 5", {"Lab", "c", 1, 0, true, ":key 5"}, nullptr},
                       {"Lab:c:x:6:TRUE", {"Lab", "c", 16, 6, false, {}, "Lab:c:x:6:TRUE"}, nullptr},
                       {"V6:2001:db8::1:8", {"V6", "2001", 16, 0, false, ":8", "V6:2001:db8::1:8"}, nullptr},
                       {"Lab:c:99999999999999999999:0:true",
                        {"Lab", "c", 16, 0, true, {}, "Lab:c:99999999999999999999:0:true"},
                        nullptr}};
    for (const auto& c : cases) {
        EXPECT_EQ(parse_server(c.line), c.server) << c.line;
        const std::string saved = std::string(c.saved ? c.saved : c.line) + "\n";
        EXPECT_EQ(format_servers({parse_server(c.line)}), saved);
        EXPECT_EQ(format_servers(parse_servers("\n" + std::string(c.line) + "\r\n\n")), saved);
    }
}

TEST(ServerList, TheFirstBrokenRuleIsNamed) {
    using enum ServerProblem;
    struct Case {
        server_data server;
        ServerProblem problem;
    };
    const Case cases[]{{{"t", "a", 16, 16}, none},
                       {{"t", "a", 10, -9}, none},
                       {{"t", "a", -9, -9}, none},
                       {{"t", "", 17, 17}, address_missing},
                       {{"t", " ", 10, 6}, address_missing},
                       {{"t", "2001:db8::1", 10, 6}, address_has_colon},
                       {{"t", "ptb time 1.ptb.de", 10, 6}, address_has_blanks},
                       {{"t", "a", 17, 0}, maxpoll_too_large},
                       {{"t", "a", 17, 18}, maxpoll_too_large},
                       {{"t", "a", 16, 17}, minpoll_too_large},
                       {{"t", "a", 4, 6}, maxpoll_below_minpoll}};
    for (const auto& c : cases)
        EXPECT_EQ(check_server(c.server), c.problem) << format_servers({c.server});
    EXPECT_EQ(field_of(maxpoll_below_minpoll), ServerField::minpoll);
    for (const auto& [title, problem] : {std::pair{"ä title", none}, {" ", title_missing}, {"a:b", title_has_colon}})
        EXPECT_EQ(check_title(title), problem) << title;
}

TEST(ServerList, ChronyLinesLeaveOutWhatChronyDoesItself) {
    for (const auto& [server, line] :
         {std::pair{server_data{"t", "a.example", 10, 6, true}, "server a.example iburst\n"},
          {server_data{"t", "a.example"}, "server a.example\n"}, // the polls of a new server, which nobody typed
          {server_data{"t", "192.168.0.1"}, "server 192.168.0.1\n"},
          {server_data{"t", "a.example", 8}, "server a.example maxpoll 8\n"},
          {server_data{"t", "192.168.0.1", 2}, "server 192.168.0.1 minpoll 0 maxpoll 2\n"},
          {server_data{"t", "a.example", 16, 8}, "server a.example minpoll 8\n"},
          {server_data{"t", "a.example", 16, 12}, "server a.example minpoll 12 maxpoll 16\n"},
          {server_data{"t", "a.example", 8, -9}, "server a.example maxpoll 8\n"},
          {parse_server("t:b.example:10:6:true:pool"), "pool b.example iburst\n"},
          {parse_server("t:b.example:10:6:true:pool:key 5"), "pool b.example iburst\n"},
          {parse_server("t:b.example:10:6:true:pools"), "server b.example iburst\n"},
          {server_data{"t", "two words"}, "# t: A name or an address has no blanks.\n"},
          {server_data{"t", ""}, "# t: A server needs a name or an address.\n"},
          {server_data{"t", "a", 4, 6}, "# t: The shortest interval is longer than the longest.\n"}})
        EXPECT_EQ(chrony_lines({server}), line);
}

TEST(ServerList, OnlyServersOfTheLocalNetworkAreAskedOften) {
    for (const char* host : {"10.0.0.1", "172.31.255.1", "192.168.1.1", "169.254.9.9", "127.0.0.2", "::1", "fd00::1",
                             "fe80::1%eth0", "localhost", "Clock.LOCAL", "ntp.local.", "a.home.arpa", "gateway"})
        EXPECT_FALSE(asks_too_often(host, 0)) << host;
    for (const char* host : {"11.0.0.1", "172.32.0.1", "172.15.0.1", "192.169.1.1", "169.253.0.1", "2001:db8::1", "::2",
                             "fec0::1", "a.example", "local.example", "notlocal.org"})
        EXPECT_TRUE(asks_too_often(host, 5)) << host;
    EXPECT_FALSE(asks_too_often("a.example", 6));
}

TEST(ServerList, ImportsServersAndPoolsOnce) {
    const auto imported = import_servers("# server commented.example\n"
                                         "  Server a.example MINPOLL 3 maxpoll 20 iburst key 5\r\n"
                                         "pool b.example maxsources 4\n"
                                         "server c.example minpoll 12\n"
                                         "server 2001:db8::1 iburst\n"
                                         "server a.example\nserver known.example\nserver\npeer d.example\n",
                                         {{"Known", "known.example"}});
    const std::vector<server_data> expected{{"a.example", "a.example", 16, 3, true},
                                            {"b.example", "b.example", 10, 6, false, ":pool"},
                                            {"c.example", "c.example", 12, 12, false}};
    EXPECT_EQ(imported.servers, expected);
    EXPECT_EQ(imported.known, 2U);
    EXPECT_EQ(imported.colons, 1U);
}

TEST(ServerList, TheToolPrintsEveryServerAndWhatIsWrong) {
    std::vector<server_data> list{{"Lab", "a.example", 10, 6, true}, {"Greedy", "b.example", 10, 3, false, ":pool"}};
    std::ostringstream out;
    EXPECT_EQ(print_servers(list, ServersForm::text, out), 0);
    list.insert(list.end(), {{"Low", "b.example", 4, 6},
                             {"High", "b.example", 17, 6},
                             {"Higher", "b.example", 16, 17},
                             {"None", ""},
                             {"V6", "::1", 10, 6},
                             {"Words", "two words"}});
    for (const auto form : {ServersForm::text, ServersForm::json, ServersForm::config})
        EXPECT_EQ(print_servers(list, form, out), 1);
    for (const auto problem : {ServerProblem::maxpoll_no_number, ServerProblem::minpoll_no_number,
                               ServerProblem::title_missing, ServerProblem::title_has_colon})
        out << sentence_of(problem) << '\n';
    testing::expect_as_kept(out.str(), "servers");
}

struct SharedTextTest : ::testing::Test {
    testing::PrivateHome home;
    std::string path = home.path("data/Tickervantage/servers.txt");
    SharedTextFile ours{path};
    SharedTextFile theirs{path};
    std::string kept_as;
    Failure failure;

    int save(SharedTextFile& file, const char* text, const std::optional<std::string>& made_from) {
        const auto saved = file.replace(text, made_from);
        kept_as = saved.value_or("");
        failure = saved ? Failure() : saved.error();
        return saved ? 0 : -1;
    }
};

TEST_F(SharedTextTest, WhatSomebodyElseSavedIsKept) {
    EXPECT_EQ(ours.read().outcome, FileReading::Outcome::missing);
    ASSERT_EQ(save(ours, "a\n", std::nullopt), 0) << english(failure);
    ASSERT_EQ(save(ours, "b\n", std::nullopt), 0); // made from what we wrote ourselves
    EXPECT_EQ(kept_as, "");
    ASSERT_EQ(save(theirs, "c\n", "b\n"), 0);
    EXPECT_EQ(kept_as, "");
    ASSERT_EQ(save(ours, "d\n", std::nullopt), 0);
    EXPECT_EQ(testing::contents(kept_as), "c\n");
    const std::string first = kept_as;
    ASSERT_EQ(save(theirs, "e\n", "b\n"), 0);
    EXPECT_EQ(testing::contents(kept_as), "d\n");
    EXPECT_NE(kept_as, first);
    ASSERT_EQ(save(ours, "e\n", std::nullopt), 0); // both the same
    EXPECT_EQ(kept_as, "");
    EXPECT_EQ(ours.read().bytes, "e\n");
}

TEST_F(SharedTextTest, WhatIsNoTextIsKeptAsItIs) {
    ASSERT_EQ(save(ours, "a\n", std::nullopt), 0);
    for (const std::string& damaged : {std::string("\xff\xfe"), std::string("a\0b", 3)}) {
        testing::write_file(path, damaged);
        EXPECT_EQ(theirs.read().outcome, FileReading::Outcome::unfit);
        ASSERT_EQ(save(theirs, "b\n", std::nullopt), 0) << english(failure);
        EXPECT_EQ(testing::contents(kept_as), damaged);
    }
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    ASSERT_EQ(save(ours, "c\n", std::nullopt), 0) << english(failure);
    EXPECT_TRUE(std::filesystem::is_directory(kept_as));
    EXPECT_EQ(testing::contents(path), "c\n");
}

TEST_F(SharedTextTest, AFailureLeavesTheFile) {
    testing::write_file(home.path("data/Tickervantage"), "in the way");
    EXPECT_EQ(save(ours, "a\n", std::nullopt), -1);
    EXPECT_EQ(failure.code, FailureCode::cannot_make_folder);
    SharedTextFile on_full_disk("/dev/full/servers.txt");
    EXPECT_EQ(save(on_full_disk, "a\n", std::nullopt), -1);
}

struct AutostartTest : ::testing::Test {
    testing::PrivateHome home;
    std::string path = home.path("config/autostart/net.brisklane.tickervantage.desktop");
    Autostart agent{home.path("config/autostart"), "/bin/sh"};
    Failure failure;
};

TEST_F(AutostartTest, IsWrittenAndRemoved) {
    EXPECT_FALSE(agent.agentIsValid());
    ASSERT_EQ(agent.writePlist(failure), 0) << english(failure);
    testing::expect_as_kept(testing::contents(path), "autostart");
    EXPECT_TRUE(agent.agentIsValid());
    EXPECT_EQ(agent.unlinkAgent(failure), 0);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(agent.unlinkAgent(failure), 0);
    const Autostart absent(home.path("config/autostart"), home.path("no/such program"));
    ASSERT_EQ(absent.writePlist(failure), 0);
    EXPECT_FALSE(absent.agentIsValid());
}

TEST_F(AutostartTest, EditsOfTheUserSurvive) {
    ASSERT_EQ(agent.writePlist(failure), 0);
    const std::string edited =
        testing::contents(path) + "X-GNOME-Autostart-Delay=10\n[Desktop Action a]\nHidden=true\n";
    testing::write_file(path, edited);
    EXPECT_EQ(agent.unlinkAgent(failure), 0);
    EXPECT_FALSE(agent.agentIsValid());
    EXPECT_NE(testing::contents(path).find("Delay=10"), std::string::npos);
    ASSERT_EQ(agent.writePlist(failure), 0);
    EXPECT_EQ(testing::contents(path), edited);
    testing::write_file(path, "nonsense");
    ASSERT_EQ(agent.writePlist(failure), 0);
    EXPECT_TRUE(agent.agentIsValid());
    EXPECT_EQ(home.found_in("config/autostart").size(), 2U); // the nonsense is kept
}

TEST_F(AutostartTest, AnyPathCanBeStarted) {
    const std::string program = home.path("a \"$`\\%b'.sh");
    testing::write_file(program, "#!/bin/sh\n", 0700);
    const Autostart odd(home.path("config/autostart"), program);
    ASSERT_EQ(odd.writePlist(failure), 0);
    EXPECT_TRUE(odd.agentIsValid()) << testing::contents(path);
}

} // namespace
} // namespace tickervantage
