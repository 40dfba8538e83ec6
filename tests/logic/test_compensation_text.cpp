#include "chrony/configuration/compensation_text.h"
#include "chrony/configuration/tempcomp_points.h"
#include "roothelper/jobs/sensor_place.h"
#include "support/child_program.h"
#include "support/test.h"

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

const std::string own = "tempcomp /etc/chrony/tickervantage.temperature 10 /etc/chrony/tickervantage.tempcomp\n"
                        "log tracking tempcomp\n";

TEST(CompensationText, IsOneAndGoesWithoutATrace) {
    const struct {
        std::string before, with, without;
    } cases[] = {{"", own + "logdir /var/log/chrony\n", "logdir /var/log/chrony\n"},
                 {"pool a\nlogdir /x", "pool a\nlogdir /x\n" + own, "pool a\nlogdir /x\n"},
                 {"TempComp /a 1 2 3 4 5\r\nlogdir /x\n", "logdir /x\n" + own, "logdir /x\n"},
                 {"# tempcomp /a 1 /b\nlog tracking tempcomp\nlogdir /x\n",
                  "# tempcomp /a 1 /b\nlog tracking tempcomp\nlogdir /x\n" + own,
                  "# tempcomp /a 1 /b\nlog tracking tempcomp\nlogdir /x\n"},
                 {"logdir /x\n" + own + "local\n", "logdir /x\nlocal\n" + own, "logdir /x\nlocal\n"}};
    for (const auto& [before, with, without] : cases) {
        EXPECT_EQ(with_compensation(before), with) << before;
        EXPECT_EQ(without_compensation(with), without) << before;
        EXPECT_TRUE(has_compensation(with) && has_any_compensation(with));
        EXPECT_FALSE(has_compensation(without));
    }
    const std::string others = "tempcomp /sys/class/hwmon/hwmon0/temp1_input 1 /etc/b\n";
    EXPECT_EQ(without_compensation(others), others);
    EXPECT_TRUE(has_any_compensation(others) && !has_compensation(others));
}

TEST(TempcompPoints, AreInTheUnitOfTheirSensor) {
    const testing::PrivateHome home;
    const std::string file = home.path("config/points");
    const auto error = [&](const std::string& points, const std::string& sensor) {
        testing::write_file(file, points);
        const auto found = tempcomp_error("tempcomp " + sensor + " 10 " + file + "\n");
        return found ? english(found->what) : std::string();
    };
    const std::string degrees = file + " has temperatures in degrees, while the sensor gives thousandths of a degree.";
    for (const std::string sensor : {"/sys/class/hwmon/hwmon0/temp1_input", "/etc/chrony/tickervantage.temperature"}) {
        EXPECT_EQ(error("20 1\n30 -1\n", sensor), degrees);
        EXPECT_EQ(error("-40 1\n120 -1\n", sensor), degrees);
        EXPECT_EQ(error("-40000 1\n20 -1\n", sensor), "");
        EXPECT_EQ(error("0 1\n30000 -1\n", sensor), "");
    }
    EXPECT_EQ(error("20 1\n30 -1\n", "/run/own/temperature"), "") << "a sensor of somebody's own";
    EXPECT_EQ(error("20000 1\n20000 -1\n", "/run/own/temperature"),
              "Line 2 of " + file +
                  " has the same temperature as the line before, so that chronyd's compensation would be "
                  "infinite.");
}

TEST(SensorPlace, IsTheDeviceWhateverTheNumber) {
    const testing::PrivateHome home;
    const std::string root = fs::canonical(home.path("config"));
    const std::string chip = root + "/sys/devices/platform/coretemp.0/hwmon/hwmon3";
    fs::create_directories(chip);
    fs::create_directories(root + "/sys/class/hwmon");
    fs::create_symlink(chip, root + "/sys/class/hwmon/hwmon3");
    testing::write_file(chip + "/name", "coretemp\n");
    testing::write_file(chip + "/temp2_input", "41000\n");
    const auto place = place_of_sensor("/sys/class/hwmon/hwmon3/temp2_input", "Core 0", root);
    ASSERT_TRUE(place) << english(place.error());
    EXPECT_EQ(*place, (SensorPlace{"/sys/devices/platform/coretemp.0/hwmon", "coretemp", "temp2_input"}));
    EXPECT_EQ(sensor_in_drop_in(sensor_drop_in(*place)), *place);
    for (const char* file : {"", "/sys/class/hwmon/hwmon3/temp9_input", "/sys/class/hwmon/hwmon4/temp2_input",
                             "/sys/class/hwmon/hwmon3/name"}) {
        const auto none = place_of_sensor(file, "Core 0", root);
        ASSERT_FALSE(none) << file;
        EXPECT_EQ(english(none.error()),
                  "chronyd cannot read the sensor Core 0: the kernel has no file of its own for it.");
    }
}

} // namespace
} // namespace tickervantage
