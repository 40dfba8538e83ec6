// The real chronyd's answers to broken configurations, and saving under fire.
#include "chrony/configuration/config_document.h"
#include "chrony/configuration/configuration_check.h"
#include "chrony/configuration/directive_options.h"
#include "chrony/configuration/directives.h"
#include "cli/laboratory/tempcomp_command.h"
#include "linux/posix_execute.h"
#include "linux/posix_path_probes.h"
#include "linux/posix_user_files.h"
#include "linux/user_name.h"
#include "studies/laboratory/compensation.h"
#include "support/child_program.h"
#include "support/test.h"

#include <fmt/format.h>

namespace tickervantage {
namespace {

std::string words_of(const std::optional<Failure>& doubt) {
    return doubt ? english(*doubt) : "";
}

struct RealChronyd : ::testing::Test {
    testing::PrivateHome home;
    PosixExecute execute;
    PosixFiles files;
    SyntaxCheckParts parts{.execute = execute,
                           .chronyds = [] { return find_chronyds("", TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyd"); },
                           .files = files,
                           .temporary = home.path() + "/"};
};

// chronyd -p is content with each of them.
TEST_F(RealChronyd, FilesOfPointsAreRefusedThatEndItOrMisleadIt) {
    struct Row {
        std::string points;
        bool starts; // with these points
        std::string sentence;
    };
    const std::string points = home.path("points");
    const std::string conf = home.path("conf");
    const std::string text = "local stratum 5\nport 0\ncmdport 0\npidfile " + home.path("pid") + "\nbindcmdaddress " +
                             home.path("s") + "\ntempcomp " + home.path("sensor") + " 1 " + points + '\n';
    testing::write_file(home.path("sensor"), "21500\n");
    testing::write_file(conf, text);
    for (const auto& row : {
             Row{"20000 1.0\n25000 2.0\n", true, ""},
             {" -2e4\t+1.0 # cold\r\n25000 -10\n30000 10", true, ""},
             {"20000 1\n\n25000 2\n", false,
              "Line 2 of % is blank, and chronyd ends where a file of points has a blank line."},
             {"20000 1\n25000 2\n \n", false,
              "Line 3 of % is blank, and chronyd ends where a file of points has a blank line."},
             {"# C\n20000 1\n25000 2\n", false,
              "Line 1 of % is a remark, and chronyd ends where a file of points has a remark."},
             {"20000 1\n", false, "% ends in line 1 with fewer than two points, and chronyd does not start with it."},
             {"", false, "% ends in line 0 with fewer than two points, and chronyd does not start with it."},
             {"20000 1\n25000\n", false,
              "Line 2 of % does not begin with a temperature and a compensation in numbers."},
             {"20000,1\n25000,2\n", false,
              "Line 1 of % does not begin with a temperature and a compensation in numbers."},
             {"20000 1,5\n25000 2,5\n", true,
              "Line 1 of % does not begin with a temperature and a compensation in numbers."},
             {"20000 nan\n25000 2\n", true,
              "Line 1 of % does not begin with a temperature and a compensation in numbers."},
             {"20000 1 " + std::string(600, 'x') + "\n25000 2\n", false,
              "Line 1 of % does not begin with a temperature and a compensation in numbers."},
             {"20000 1\n20000 2\n", true,
              "Line 2 of % has the same temperature as the line before, so that chronyd's compensation would be "
              "infinite."},
             {"25000 2\n20000 1\n", true,
              "Line 2 of % has a lower temperature than the line before, and chronyd would compensate wrongly."},
             {"20000 1\n25000 11\n", true, "Line 2 of % compensates by more than 10 ppm, which chronyd ignores."},
         }) {
        testing::write_file(points, row.points);
        std::filesystem::remove(home.path("s"));
        testing::ChildProgram daemon({"/usr/sbin/chronyd", "-x", "-U", "-u", user_name(::geteuid()), "-d", "-f", conf},
                                     home.environment, home.path());
        if (row.starts)
            EXPECT_TRUE(testing::eventually(std::chrono::seconds(20), [&] {
                return std::filesystem::exists(home.path("s"));
            })) << row.points;
        else
            EXPECT_EQ(daemon.ends_within(std::chrono::seconds(20)), 1) << row.points;
        std::string expected = row.sentence;
        if (const auto at = expected.find('%'); at != std::string::npos)
            expected.replace(at, 1, points);
        const ConfigError error = checkSyntax(parts, text);
        EXPECT_EQ(error.m_msg, expected);
        EXPECT_EQ(words_of(error.m_doubt), expected);
        EXPECT_EQ(error.passed(), expected.empty());
        EXPECT_EQ(error.m_line, expected.empty() ? 0 : 6);
    }
    const ConfigError error = checkSyntax(parts, "rtcsync\ninclude " + conf + '\n');
    EXPECT_EQ(error.m_line, 6);
    EXPECT_EQ(error.m_file, conf);
    std::filesystem::remove(points);
    ASSERT_EQ(::mkfifo(points.c_str(), 0600), 0);
    EXPECT_TRUE(checkSyntax(parts, text).passed()) << "a pipe is not waited for";
}

TEST_F(RealChronyd, ErrorsAreFoundInTheLineWhereTheyAre) {
    struct Row {
        std::string text;
        std::string message; // without what stands before its colon; empty: no error
        long long line;
    };
    const std::string included = home.path("included.conf");
    testing::write_file(included, "rtcsync\nbogus\n", 0644);
    const Row rows[] = {{"pool pool.ntp.org iburst\n", "", 0},
                        {"\n# c\nserverr foo\n", "Invalid directive at line 3", 3},
                        {"driftfile\n", "Missing arguments for driftfile directive at line 1", 1},
                        {"\nrtcsync now\n", "Too many arguments for rtcsync directive at line 2", 2},
                        {"server a minpoll x\n", "Could not parse server directive at line 1", 1},
                        {"server a frobnicate\n", "Could not parse server directive at line 1", 1},
                        {"pool x # comment\n", "Could not parse pool directive at line 1", 1},
                        {"allow 1.2.3.400\n", "Could not parse allow directive at line 1", 1},
                        {"bindaddress here\n", "Could not parse bindaddress directive at line 1", 1},
                        {"log trackin\n", "Invalid log parameter at line 1", 1},
                        {"\n\n\nmakestep a 3", "Could not parse makestep directive at line 4", 4},
                        {"local stratum 99\n", "Could not parse local directive at line 1", 1},
                        {"pool " + std::string(3000, 'a') + "\n", "String too long at line 1", 1},
                        {"p\xc3\xb6ol x\n", "Invalid directive at line 1", 1},
                        {"include " + included + "\n", "Invalid directive at line 2", 2},
                        {"refclock FOO 1\n", "", 0},
                        {"include /nope/nope\n", "", 0}};
    for (const auto& row : rows) {
        const auto [error, warnings] = check_configuration({parts, PosixPathProbes()}, row.text);
        EXPECT_EQ(error.m_msg, row.message.empty() ? "" : "Fatal error : " + row.message) << row.text;
        EXPECT_EQ(error.m_line, row.line) << row.text;
        EXPECT_EQ(error.m_file.empty(), row.text.find(included) == std::string::npos) << row.text;
        EXPECT_EQ(!error.m_doubt, row.text.find("/nope") == std::string::npos) << words_of(error.m_doubt);
        const bool is_doubtful = row.text.starts_with("refclock FOO") || row.text.find("/nope") != std::string::npos;
        EXPECT_EQ(warnings.empty(), !is_doubtful) << row.text;
    }
    EXPECT_FALSE(std::filesystem::exists(home.path("check_chrony.conf")));
}

TEST_F(RealChronyd, TheTableOfDirectivesHasTheNamesThatChronydKnows) {
    for (const auto& directive : all_directives()) {
        const ConfigError error = checkSyntax(parts, std::string(directive.name) + "\n");
        EXPECT_EQ(error.m_msg.find("Invalid directive"), std::string::npos) << directive.name;
    }
    EXPECT_EQ(find_directive("serverr"), nullptr);
    EXPECT_EQ(find_directive("SERVER"), find_directive("server"));
}

TEST_F(RealChronyd, TakesEveryOptionThatIsOfferedInItsPlace) {
    for (const auto& row : all_directive_options())
        for (const auto& option : row.options) {
            std::string line(row.directive);
            for (const auto word : {row.before, option.name, option.example})
                line.append(word.empty() ? "" : " ").append(word);
            EXPECT_EQ(option.example.empty(), option.value.empty()) << line;
            EXPECT_EQ(checkSyntax(parts, line + "\n").m_msg, "") << line;
        }
}

TEST_F(RealChronyd, TheDefaultConfigurationPasses) {
    const std::string text = testing::contents(TICKERVANTAGE_RESOURCES "/chrony.conf");
    ASSERT_FALSE(text.empty());
    EXPECT_TRUE(checkSyntax(parts, text).passed());
    std::string everything = text; // also with every example line taken out of its comment
    for (auto at = everything.find("\n#"); at != std::string::npos; at = everything.find("\n#", at + 1))
        if (std::islower(static_cast<unsigned char>(everything[at + 2])) != 0)
            everything.erase(at + 1, 1);
    const ConfigError error = checkSyntax(parts, everything);
    EXPECT_TRUE(error.passed()) << error.m_msg;
}

TEST_F(RealChronyd, AHangingChronydIsADoubt) {
    const std::string hanging = home.path("chronyd");
    testing::write_file(hanging, "#!/bin/sh\nexec sleep 60\n", 0755);
    parts.patience = std::chrono::milliseconds(200);
    parts.chronyds = [&] {
        return std::vector<std::string>{hanging};
    };
    const ConfigError error = checkSyntax(parts, "x\n");
    EXPECT_TRUE(error.m_isok);
    EXPECT_EQ(words_of(error.m_doubt), "chronyd did not end in time, so the syntax is not known to be right.");
}

TEST(PathFactsOfThisMachine, SeeWhatAUserMayDo) {
    const testing::PrivateHome home; // mode 0700, and ours
    const std::string file = home.path("secret");
    testing::write_file(file, "", 0644);
    const PosixPathProbes probes;
    EXPECT_EQ(probes.look(file, "root").kind, PathFacts::Kind::file);
    EXPECT_TRUE(probes.look(file, "root").writable);
    EXPECT_FALSE(probes.look(file, "daemon").readable); // the folder above keeps others out
    EXPECT_EQ(probes.look(file + "/x", "root").kind, PathFacts::Kind::missing);
    EXPECT_EQ(probes.look("/dev/null", "daemon").kind, PathFacts::Kind::device);
    EXPECT_FALSE(probes.user_exists("no such user"));
}

// A program killed in the middle of saving leaves one of the two texts, whole.
TEST(SavingADocument, SurvivesBeingKilledAHundredTimes) {
    const testing::PrivateHome home;
    const std::string path = home.path("chrony.conf");
    const std::string one(200'000, 'a');
    const std::string other(300'000, 'b');
    testing::write_file(path, one, 0640);
    PosixFiles files;
    int killed_while_writing = 0;
    for (int round = 0; round < 100; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            for (;;)
                for (const auto* text : {&other, &one})
                    (void)save_document(files, {path, *text, LineEnds::unix_style, {}});
        const timespec nap{0, (1 + round % 20) * 700'000L};
        nanosleep(&nap, nullptr); // so that the kill meets every stage
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string found = testing::contents(path);
        ASSERT_TRUE(found == one || found == other) << "round " << round << ": " << found.size();
        killed_while_writing += std::filesystem::exists(home.path(".chrony.conf.new")) ? 1 : 0;
    }
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
    std::printf("%d of 100 kills met a draft that was being written\n", killed_while_writing);
    EXPECT_GT(killed_while_writing, 0);
}

// What chronyd notes of each temperature, to the digits that it writes.
TEST_F(RealChronyd, CompensatesEachTemperatureByTheTableAsComputed) {
    Compensation curve;
    curve.curve = {.middle = 41.3, .powers = {-20, 0.11, 0.03, 0.002}};
    curve.f_ref = -18.5;
    curve.coldest = 33.4;
    curve.warmest = 48.2;
    const auto points = read_tempcomp_points(table_text(curve, {.sensor = {}}), "table");
    ASSERT_TRUE(points) << english(points.error());
    testing::write_file(home.path("table"), table_text(curve, {.sensor = {}}));
    testing::write_file(home.path("sensor"), "40000\n");
    testing::write_file(home.path("conf"), "port 0\ncmdport 0\nbindcmdaddress " + home.path("s") + "\npidfile " +
                                               home.path("pid") + "\nlogdir " + home.path() +
                                               "\nlog tempcomp\ntempcomp " + home.path("sensor") + " 0.02 " +
                                               home.path("table") + '\n');
    const testing::ChildProgram chronyd(
        {"/usr/sbin/chronyd", "-x", "-U", "-u", user_name(::geteuid()), "-d", "-f", home.path("conf")},
        home.environment, home.path());
    for (int degree = 30; degree <= 51; ++degree) {
        std::ofstream(home.path("new"), std::ios::binary) << degree << "000\n";
        std::filesystem::rename(home.path("new"), home.path("sensor"));
        const std::string wanted =
            fmt::format(" {:>11.4e} {:>11.4e}\n", degree * 1000.0, compensation_in(*points, degree * 1000.0));
        EXPECT_TRUE(testing::eventually(std::chrono::seconds(10), [&] {
            return testing::contents(home.path("tempcomp.log")).find(wanted) != std::string::npos;
        })) << wanted;
    }
}

} // namespace
} // namespace tickervantage
