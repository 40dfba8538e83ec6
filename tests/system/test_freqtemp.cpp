// The scatter map on real disks, and sensors from files as the kernel has them.
#include "linux/machine_sensors.h"
#include "linux/posix_user_files.h"
#include "studies/freqtemp/scatter_json.h"

#include <gtest/gtest.h>

#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <thread>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

class FreqTempSystemTest : public ::testing::Test {
protected:
    fs::path m_folder;

    FreqTempSystemTest() {
        std::string name = (fs::temp_directory_path() / "freqtemp-XXXXXX").string();
        m_folder = mkdtemp(name.data());
    }
    ~FreqTempSystemTest() override { fs::remove_all(m_folder); }

    void put(const fs::path& path, const std::string& text) const {
        fs::create_directories((m_folder / path).parent_path());
        std::ofstream(m_folder / path) << text << '\n';
    }
};

Result<> save(const std::string& path, const ScatterMap& map) {
    return PosixUserFiles().replace(path, [&map](const TextSink& sink) { return write_scatter_json(map, sink); });
}

ScatterMap map_of(std::size_t points, double frequency) {
    ScatterMap map;
    for (std::size_t i = 0; i < points; ++i)
        map["cpu"].points.append({45, frequency});
    return map;
}

TEST_F(FreqTempSystemTest, AKilledWriterLeavesTheOldOrTheNewMap) {
    const std::string path = m_folder / "scattermap.json";
    std::mt19937 random(1);
    std::uniform_int_distribution<int> delay(0, 6000); // microseconds; a save takes about half of that
    int changed = 0;
    double last = 0;
    ASSERT_TRUE(save(path, map_of(3000, 0)));
    for (int round = 1; round <= 120; ++round) {
        const ScatterMap next = map_of(3000, round);
        const pid_t writer = fork();
        if (writer == 0)
            _exit(save(path, next) ? 0 : 1);
        std::this_thread::sleep_for(std::chrono::microseconds(delay(random)));
        kill(writer, SIGKILL);
        ASSERT_EQ(waitpid(writer, nullptr, 0), writer);
        const auto found = read_scatter_json(PosixUserFiles().read(path, 1U << 24U).bytes);
        ASSERT_TRUE(found) << english(found.error());
        const auto& points = found->at("cpu").points;
        ASSERT_EQ(points.size(), 3000U);
        const double frequency = points.back().frequency;
        ASSERT_EQ(points[0].frequency, frequency);
        ASSERT_TRUE(frequency == last || frequency == round);
        changed += frequency == round ? 1 : 0;
        last = frequency;
    }
    RecordProperty("new_maps", changed);
    ASSERT_TRUE(save(path, map_of(1, 7))) << "a killed writer stands in the way";
}

// Runs `look` in a process whose /sys/class is a folder of this test, on a real sysfs, which libsensors insists on. (A
// kernel without a chip lacks /sys/class/hwmon itself, so that nothing could be laid over that.) What it returns is its
// exit status; 77 where the machine does not let us.
int with_class_folder(const fs::path& folder, const std::function<int()>& look) {
    const pid_t child = fork();
    if (child == 0) {
        const bool is_own = (unshare(CLONE_NEWNS) == 0 || unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) &&
                            mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                            mount(folder.c_str(), "/sys/class", nullptr, MS_BIND, nullptr) == 0;
        _exit(is_own ? look() : 77);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#define CHECK(condition)                                                                                               \
    if (!(condition))                                                                                                  \
    return __LINE__ % 64 + 1

TEST_F(FreqTempSystemTest, ReadsChipsAndZonesAsTheKernelHasThem) {
    put("class/hwmon/hwmon0/name", "acpitz");
    put("class/hwmon/hwmon0/temp1_input", "27800");
    put("class/hwmon/hwmon1/name", "coolbox");
    put("class/hwmon/hwmon1/temp1_input", "45125");
    put("class/hwmon/hwmon1/temp1_label", "Package id 0");
    put("class/hwmon/hwmon1/fan1_input", "1200");
    put("class/thermal/thermal_zone0/type", "x86_pkg_temp");
    put("class/thermal/thermal_zone0/temp", "46000");
    put("class/thermal/thermal_zone1/type", "acpitz");
    put("class/thermal/thermal_zone1/temp", "-274000");
    put("class/thermal/thermal_zone10/type", "acpitz");
    put("class/thermal/thermal_zone10/temp", "30500");
    const fs::path hwmon = m_folder / "class/hwmon";
    const fs::path thermal = m_folder / "class/thermal";
    const int result = with_class_folder(m_folder / "class", [&] {
        MachineSensors sensors;
        auto readings = sensors.read();
        CHECK(readings.size() == 2);
        CHECK(readings[0].name == "acpitz-virtual-0/temp1" && readings[0].temperature == 27.8);
        CHECK(readings[1].name.starts_with("coolbox-") && readings[1].temperature == 45.125);
        CHECK(readings[1].description.starts_with("Package id 0 (coolbox-"));
        put("class/hwmon/hwmon1/temp1_input", "46125");
        put("class/hwmon/hwmon2/name", "nvme"); // plugged in
        put("class/hwmon/hwmon2/temp1_input", "38850");
        readings = sensors.read();
        CHECK(readings.size() == 3 && readings[1].temperature == 46.125);
        fs::remove_all(hwmon / "hwmon0"); // and out
        CHECK(sensors.read().size() == 2);
        fs::remove_all(hwmon / "hwmon1");
        fs::remove_all(hwmon / "hwmon2");
        readings = sensors.read(); // only zones are left
        CHECK(readings.size() == 3);
        CHECK(readings[0].name == "x86_pkg_temp" && readings[0].temperature == 46);
        CHECK(readings[1].name == "acpitz" && readings[2].name == "acpitz 2" && readings[2].temperature == 30.5);
        fs::remove_all(thermal / "thermal_zone0");
        fs::remove_all(thermal / "thermal_zone1");
        fs::remove_all(thermal / "thermal_zone10");
        CHECK(sensors.read().empty());
        return 0;
    });
    if (result == 77)
        GTEST_SKIP() << "This machine lets nobody here mount folders over /sys/class.";
    EXPECT_EQ(result, 0);
}

TEST_F(FreqTempSystemTest, ADiskThatIsFullOrClosedLeavesTheOldMap) {
    const fs::path disk = m_folder / "disk";
    fs::create_directories(disk);
    const pid_t child = fork();
    if (child == 0) {
        if ((unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) ||
            mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", disk.c_str(), "tmpfs", 0, "size=256k") != 0)
            _exit(77);
        const std::string path = disk / "scattermap.json";
        const auto refusal = [&path](int number) {
            const auto saved = save(path, map_of(20'000, number));
            return saved ? std::string() : english(saved.error());
        };
        const auto is_old = [&path] {
            return fs::file_size(path) < 1000 && !fs::exists(fs::path(path).parent_path() / ".scattermap.json.new");
        };
        _exit(!save(path, map_of(1, 1))                                                    ? 1
              : refusal(2).find("space") == std::string::npos                              ? 2
              : !is_old()                                                                  ? 3
              : mount("none", disk.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0 ? 77
              : refusal(3).find("Read-only file") == std::string::npos                     ? 4
              : !is_old()                                                                  ? 5
                                                                                           : 0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    if (WEXITSTATUS(status) == 77)
        GTEST_SKIP() << "This machine lets nobody here mount a disk.";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

} // namespace
} // namespace tickervantage
