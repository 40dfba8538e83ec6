// The files that go to root, as the real programs read them.
#include "chrony/services/chrony_services.h"
#include "linux/posix_execute.h"
#include "support/child_program.h"
#include "support/test.h"

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

struct ServiceFilesTest : ::testing::Test {
    PosixExecute execute;
    const testing::PrivateHome home;
    const fs::path folder = home.path("service files");

    void SetUp() override { fs::create_directories(folder); }
    std::string write(const std::string& name, const std::string& text) const {
        std::ofstream(folder / name) << text;
        return folder / name;
    }
    std::string read(const std::string& name) const { return testing::contents(folder / name); }
};

TEST_F(ServiceFilesTest, ServiceManagerUnderstandsEveryUnit) {
    if (!fs::exists("/usr/bin/systemd-analyze"))
        GTEST_SKIP() << "systemd-analyze is not installed";
    ExecuteRequest request{.program = "/usr/bin/systemd-analyze", .arguments = {"verify", "--man=no"}};
    for (const auto& service : {daemon_service("/bin/true", "/etc/a \"b\" 50% $c\\d/chrony.conf", false),
                                rotation_service("/usr/local/bin/chronylogrotate.sh", "/usr/local/bin/chronyc", "/l"),
                                wake_service("/bin/true", {"--make-limit", "-1"})})
        for (const auto& file : definition_files(ServiceForm::systemd, service))
            request.arguments.push_back(write(fs::path(file.path).filename(), file.text));
    const auto result = execute.run(request);
    EXPECT_EQ(result.exit_status, 0);
    EXPECT_EQ(result.output, "");
}

TEST_F(ServiceFilesTest, RotationKeepsSevenLogsAndTellsTheDaemon) {
    const std::string chronyc = write("chronyc", "#!/bin/sh\necho \"$@\" >> \"${0%/*}/told\"\n");
    fs::permissions(chronyc, fs::perms::owner_all);
    const fs::path logs = folder / "logs";
    fs::create_directory(logs);
    std::ofstream(logs / "empty.log");
    std::ofstream(folder / "outside") << "kept";
    fs::create_symlink(folder / "outside", logs / "link.log");
    for (int day = 1; day <= 9; ++day) {
        std::ofstream(logs / "tracking.log") << "day " << day;
        const auto result = execute.run(
            {.program = "/bin/sh", .arguments = {TICKERVANTAGE_RESOURCES "/chronylogrotate.sh", chronyc, logs}});
        ASSERT_EQ(result.output, "1 logs rotated\n");
    }
    EXPECT_EQ(read("logs/tracking.log.1"), "day 9");
    EXPECT_TRUE(fs::exists(logs / "tracking.log.7.gz"));
    EXPECT_EQ(std::distance(fs::directory_iterator(logs), fs::directory_iterator()), 9); // with empty.log and link.log
    EXPECT_EQ(read("outside"), "kept");
    EXPECT_EQ(read("told").substr(0, 20), "cyclelogs\ncyclelogs\n");
    EXPECT_NE(
        execute
            .run({.program = "/bin/sh", .arguments = {TICKERVANTAGE_RESOURCES "/chronylogrotate.sh", chronyc, "/no"}})
            .exit_status,
        0);
}

} // namespace
} // namespace tickervantage
