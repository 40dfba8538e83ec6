// Places that only we, or only root, can change; and what happens at those that others can.
#include "base/failure_codes.h"
#include "chrony/configuration/config_error.h"
#include "linux/private_temporary.h"
#include "roothelper/support/install_file.h"
#include "support/child_program.h"
#include "support/test.h"

#include <grp.h>
#include <pwd.h>

namespace tickervantage::testing {
namespace {

namespace fs = std::filesystem;

TEST(PathRules, OnlyOwnersAndRootsGroupMayWriteToAFolderOfRootsFiles) {
    struct Case {
        uid_t user;
        gid_t group;
        mode_t mode;
        bool ours;
    };
    const PathRules rules{.self = 1000};
    for (const auto& one :
         {Case{0, 0, 0755, true}, Case{0, 0, 0775, true}, Case{0, 0, 0777, false}, Case{0, 50, 0755, true},
          Case{0, 50, 0775, false}, Case{0, 50, 0757, false}, Case{1000, 1000, 0755, true},
          Case{1000, 1000, 0775, false}, Case{1001, 0, 0755, false}, Case{1001, 1000, 0700, false}}) {
        struct stat status {};
        status.st_uid = one.user;
        status.st_gid = one.group;
        status.st_mode = S_IFDIR | one.mode;
        EXPECT_EQ(rules.only_ours(status), one.ours) << one.user << ' ' << one.group << ' ' << std::oct << one.mode;
    }
}

class InstallFileTest : public ::testing::Test {
protected:
    Result<> install(const std::string& source, const std::string& mode, const std::string& to = "config/new") {
        const std::string owner = std::string(getpwuid(::geteuid())->pw_name) + ":" + getgrgid(::getegid())->gr_name;
        return install_file({source, m_home.path(to), owner, mode}, {.self = ::geteuid()});
    }
    PrivateHome m_home;
};

TEST_F(InstallFileTest, NobodyElseMayWriteToWhatRootInstallsAndNothingRunsAsItsOwner) {
    write_file(m_home.path("source"), "x");
    for (const auto* mode : {"0664", "0646", "0620", "0602", "2755", "1755", "4755"})
        EXPECT_FALSE(install(m_home.path("source"), mode)) << mode;
    EXPECT_TRUE(m_home.found_in("config").empty());
    EXPECT_TRUE(install(m_home.path("source"), "0755"));
}

TEST_F(InstallFileTest, NoWayLeadsThroughALinkThatSomebodyElseCanMove) {
    write_file(m_home.path("source"), "x");
    fs::create_directory_symlink(m_home.path("data"), m_home.path("run/link"));
    fs::create_directory_symlink("link", m_home.path("run/second"));
    EXPECT_TRUE(install(m_home.path("source"), "0644", "run/second/new"));
    EXPECT_EQ(contents(m_home.path("data/new")), "x");
    ASSERT_EQ(chmod(m_home.path("run").c_str(), 01777), 0);
    const auto refused = install(m_home.path("source"), "0644", "run/link/other");
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code,
              ::geteuid() == 0 ? FailureCode::way_through_link_of_others : FailureCode::way_open_to_others);
    fs::create_directory_symlink("loop", m_home.path("state/loop"));
    EXPECT_FALSE(install(m_home.path("source"), "0644", "state/loop/new"));
}

// Files of the kernel are longer or shorter than they say, as one is that somebody writes meanwhile.
TEST_F(InstallFileTest, ASourceThatGrowsOrShrinksWhileItIsCopiedIsRefused) {
    for (const std::string source : {"/proc/self/status", "/sys/kernel/mm/transparent_hugepage/enabled"}) {
        if (!fs::exists(source))
            continue;
        const auto holds = static_cast<std::uintmax_t>(contents(source).size());
        ASSERT_NE(fs::file_size(source), holds) << source;
        EXPECT_EQ(install(source, "0644").error().code, FailureCode::cannot_write) << source;
        EXPECT_TRUE(m_home.found_in("config").empty()) << source;
    }
}

TEST(PrivateTemporary, LiesInNoRuntimeFolderThatOthersCanWriteTo) {
    const auto before = process_environment("TMPDIR");
    const PrivateHome home;
    for (const auto& [mode, trusted] :
         {std::pair{0700U, true}, {0755U, true}, {0770U, false}, {0720U, false}, {0702U, false}, {0777U, false}}) {
        fs::permissions(home.path("run"), static_cast<fs::perms>(mode));
        const PrivateTemporary temporary([&](const std::string&) { return std::optional(home.path("run")); },
                                         home.path("data"));
        EXPECT_TRUE(temporary.path().starts_with(home.path(trusted ? "run/" : "data/"))) << std::oct << mode;
    }
    before ? setenv("TMPDIR", before->c_str(), 1) : unsetenv("TMPDIR");
}

TEST(Executables, AreSoughtInAbsoluteFoldersOnly) {
    const PrivateHome home;
    write_file(home.path("run/chronyd-of-a-test"), "", 0700);
    write_file(home.path("data/chronyd-of-a-test"), "", 0600);
    fs::create_directory(home.path("state/chronyd-of-a-test"));
    const std::string relative = fs::relative(home.path("run")).string();
    ASSERT_TRUE(fs::exists(relative + "/chronyd-of-a-test"));
    const std::string path = relative + "::" + home.path("data") + ":" + home.path("state");
    EXPECT_TRUE(executables("chronyd-of-a-test", path).empty());
    EXPECT_EQ(executables("chronyd-of-a-test", path + ":" + home.path("run") + ":" + home.path("run")),
              std::vector{home.path("run/chronyd-of-a-test")});
}

} // namespace
} // namespace tickervantage::testing
