// A disk of some kilobytes that only one test sees.
//
// The test runs once more for it, in a process of its own with its own mounts: a fork alone would leave the toolkit's
// threads behind. There, `path` is where the disk lies; in the first process it is empty.
#pragma once

#include "support/test.h"

#include <sched.h>
#include <sys/mount.h>

namespace tickervantage::testing {

class SmallDisk {
public:
    explicit SmallDisk(std::string size) : m_size(std::move(size)) {
        const char* path = std::getenv(variable); // NOLINT(concurrency-mt-unsafe): nobody changes it meanwhile
        m_path = path == nullptr ? "" : path;
    }
    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] bool make_read_only() const {
        return mount("none", m_path.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }

    // Runs the current test there; a failure there is one here. False where this machine lets nobody here mount a disk.
    [[nodiscard]] bool runs_the_test() const {
        char folder[] = "/tmp/tv-disk-XXXXXX";
        EXPECT_NE(mkdtemp(folder), nullptr);
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        const std::string filter = std::string("--gtest_filter=") + test->test_suite_name() + "." + test->name();
        const pid_t child = fork();
        if (child == 0) {
            if (!mount_at(folder))
                _exit(not_allowed);
            setenv(variable, folder, 1); // NOLINT(concurrency-mt-unsafe): one thread is left
            execl("/proc/self/exe", "test", filter.c_str(), nullptr);
            _exit(1);
        }
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        std::filesystem::remove(folder);
        if (WIFEXITED(status) && WEXITSTATUS(status) == not_allowed)
            return false;
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "see above; status " << status;
        return true;
    }

private:
    static constexpr const char* variable = "TICKERVANTAGE_TEST_DISK";
    static constexpr int not_allowed = 77;

    [[nodiscard]] static bool tell(const char* file, const std::string& words) {
        const int target = open(file, O_WRONLY | O_CLOEXEC);
        const bool told =
            target >= 0 && write(target, words.data(), words.size()) == static_cast<ssize_t>(words.size());
        close(target);
        return told;
    }
    // As an ordinary user one has to be root of a namespace first, of its user and of its group.
    [[nodiscard]] static bool unshare_mounts() {
        const std::string user = "0 " + std::to_string(getuid()) + " 1";
        const std::string group = "0 " + std::to_string(getgid()) + " 1";
        return unshare(CLONE_NEWNS) == 0 ||
               (unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && tell("/proc/self/uid_map", user) &&
                tell("/proc/self/setgroups", "deny") && tell("/proc/self/gid_map", group));
    }
    [[nodiscard]] bool mount_at(const char* folder) const {
        return unshare_mounts() && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
               mount("none", folder, "tmpfs", 0, ("size=" + m_size).c_str()) == 0;
    }

    std::string m_size;
    std::string m_path;
};

} // namespace tickervantage::testing
