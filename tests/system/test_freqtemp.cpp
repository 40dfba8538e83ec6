// The scatter map on real disks, and sensors from files as the kernel has them.
#include "linux/machine_sensors.h"
#include "linux/posix_user_files.h"
#include "studies/freqtemp/scatter_json.h"
#include "support/child_program.h"
#include "support/small_disk.h"
#include "support/test.h"

#include <sched.h>
#include <signal.h>
#include <sys/mount.h>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

class FreqTempSystemTest : public ::testing::Test {
protected:
    testing::PrivateHome m_home;
    fs::path m_folder = m_home.path();

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

TEST_F(FreqTempSystemTest, ReadsChipsAndZonesAsTheKernelHasThem) {
    const testing::SmallDisk disk("1m");
    if (disk.path().empty()) {
        if (!disk.runs_the_test())
            GTEST_SKIP() << "This machine lets nobody here mount folders over /sys/class.";
        return;
    }
    put("class/hwmon/hwmon0/name", "acpitz");
    put("class/hwmon/hwmon0/temp1_input", "27800");
    put("class/hwmon/hwmon1/name", "coolbox");
    put("class/hwmon/hwmon1/temp1_input", "45125");
    put("class/hwmon/hwmon1/temp1_label", "Package id 0");
    put("class/hwmon/hwmon1/fan1_input", "1200");
    for (const auto& [zone, type, degrees] : {std::tuple("zone0", "x86_pkg_temp", "46000"),
                                              {"zone1", "acpitz", "-274000"},
                                              {"zone10", "acpitz", "30500"}}) {
        put(fs::path("class/thermal") / ("thermal_" + std::string(zone)) / "type", type);
        put(fs::path("class/thermal") / ("thermal_" + std::string(zone)) / "temp", degrees);
    }
    // On a real sysfs, which libsensors insists on; a kernel without a chip lacks /sys/class/hwmon itself.
    ASSERT_EQ(mount((m_folder / "class").c_str(), "/sys/class", nullptr, MS_BIND, nullptr), 0);
    MachineSensors sensors;
    auto readings = sensors.read();
    ASSERT_EQ(readings.size(), 2U);
    EXPECT_TRUE(readings[0].name == "acpitz-virtual-0/temp1" && readings[0].temperature == 27.8);
    EXPECT_TRUE(readings[1].name.starts_with("coolbox-") && readings[1].temperature == 45.125);
    EXPECT_TRUE(readings[1].description.starts_with("Package id 0 (coolbox-")) << readings[1].description;
    put("class/hwmon/hwmon1/temp1_input", "46125");
    put("class/hwmon/hwmon2/name", "nvme"); // plugged in
    put("class/hwmon/hwmon2/temp1_input", "38850");
    readings = sensors.read();
    EXPECT_TRUE(readings.size() == 3 && readings[1].temperature == 46.125);
    fs::remove_all(m_folder / "class/hwmon/hwmon0"); // and out
    EXPECT_EQ(sensors.read().size(), 2U);
    for (const char* chip : {"hwmon1", "hwmon2"})
        fs::remove_all(m_folder / "class/hwmon" / chip);
    readings = sensors.read(); // only zones are left
    ASSERT_EQ(readings.size(), 3U);
    EXPECT_TRUE(readings[0].name == "x86_pkg_temp" && readings[0].temperature == 46);
    EXPECT_TRUE(readings[1].name == "acpitz" && readings[2].name == "acpitz 2" && readings[2].temperature == 30.5);
    for (const char* zone : {"thermal_zone0", "thermal_zone1", "thermal_zone10"})
        fs::remove_all(m_folder / "class/thermal" / zone);
    EXPECT_TRUE(sensors.read().empty());
}

} // namespace
} // namespace tickervantage
