// What chronysupport does with the machine's time services and our own installation, on a machine in a folder.
#include "chrony/services/chrony_services.h"
#include "chrony/services/compensation_sensor.h"
#include "roothelper/support/verbs.h"
#include "support/child_program.h"
#include "support/scripted_execute.h"
#include "support/test.h"

namespace tickervantage::testing {
namespace {

namespace fs = std::filesystem;

const std::string ours = "org.chrony-project.chronyd.service";

// As much of systemctl as the verbs use.
class UnitsOnPaper : public Execute {
public:
    struct Unit {
        bool enabled = false;
        bool active = false;
        std::string text = {}; // what "cat" prints
        bool fails_to_start = false;
    };
    std::map<std::string, Unit> units;
    std::vector<std::string> calls; // that change something
    std::string without_bus;        // a verb that fails
    std::string journal;            // what journalctl prints

    [[nodiscard]] ExecuteResult run(const ExecuteRequest& request) override {
        if (request.program == "/bin/journalctl")
            return said(journal);
        const auto& verb = request.arguments.front();
        const auto& unit = request.arguments.back();
        const auto found = units.find(unit);
        if (verb == "show")
            return said(found == units.end() ? "Id=" + unit + "\nLoadState=not-found\nActiveState=inactive\n"
                                             : shown(unit, found->second));
        if (verb == "cat" && found != units.end())
            return said(found->second.text);
        calls.push_back(verb + (verb == unit ? "" : ' ' + unit));
        if (verb == without_bus || (found == units.end() && verb != "daemon-reload"))
            return said("No.\n", 1);
        if (found != units.end())
            return act(verb, found->second);
        return said("");
    }

private:
    static ExecuteResult said(std::string output, int status = 0) {
        return {.outcome = ExecuteOutcome::exited, .exit_status = status, .output = std::move(output), .failure = {}};
    }
    static std::string shown(const std::string& name, const Unit& unit) {
        return "Id=" + name + "\nLoadState=loaded\nActiveState=" + (unit.active ? "active" : "inactive") +
               "\nUnitFileState=" + (unit.enabled ? "enabled" : "disabled") + "\n";
    }
    static ExecuteResult act(const std::string& verb, Unit& unit) {
        if (verb == "enable" || verb == "disable")
            unit.enabled = verb == "enable";
        if ((verb == "start" || (verb == "try-restart" && unit.active)) && unit.fails_to_start)
            return said("It ended.\n", 1);
        if (verb == "start")
            unit.active = true;
        return said("");
    }
};

class ChronysupportMachineTest : public ::testing::Test {
protected:
    // The machine's file system, in a folder that is only ours.
    [[nodiscard]] std::string at(const std::string& path) const { return m_home.path("config/machine") + path; }
    void put(const std::string& path, const std::string& text, mode_t mode = 0644) const {
        fs::create_directories(fs::path(at(path)).parent_path());
        write_file(at(path), text, mode);
    }
    bool run(const std::vector<std::string>& words) {
        const auto said = run_verb(words, m_parts);
        m_line = answer_line(said);
        return said.has_value();
    }

    PrivateHome m_home;
    UnitsOnPaper m_systemd;
    struct NoClock : SteppedClock {
        [[nodiscard]] int step(const ClockOffset&) override { return -1; }
    } m_clock;
    struct NoPause : Pause {
        void pause(std::chrono::milliseconds) override {}
    } m_pause;
    SupportParts m_parts{.rules = {.self = ::geteuid()},
                         .units = {m_systemd, m_pause},
                         .clock = m_clock,
                         .configurations = {},
                         .root = at(""),
                         .bundle = m_home.path("config/bundle")};
    std::string m_line;
};

TEST_F(ChronysupportMachineTest, OtherTimeServicesComeBackAsTheyWere) {
    m_systemd.units = {{"chrony.service", {.enabled = true, .active = true}},
                       {"ntpd-rs.service", {.enabled = true}},
                       {"ntpsec.service", {}},
                       {"systemd-timesyncd.service", {.active = true}}};
    const auto before = m_systemd.units;
    ASSERT_TRUE(run({"displaceservices"})) << m_line;
    EXPECT_EQ(m_line, "Disabled chrony.service and ntpd-rs.service.");
    EXPECT_EQ(contents(at("/etc/systemd/ntp-units.d/10-tickervantage.list")), ours + "\n"); // of timedatectl
    for (auto& [name, unit] : m_systemd.units) {
        EXPECT_FALSE(unit.enabled) << name;
        unit.active = false; // our unit conflicts with it
    }
    ASSERT_TRUE(run({"displaceservices"})) << m_line; // a second installation knows of the first
    m_systemd.units.erase("ntpd-rs.service");         // its package has gone meanwhile
    m_systemd.calls.clear();
    ASSERT_TRUE(run({"restoreservices"})) << m_line;
    EXPECT_EQ(m_line, "chrony.service runs again.");
    EXPECT_EQ(m_systemd.calls, (std::vector<std::string>{"enable chrony.service", "start chrony.service"}));
    EXPECT_EQ(m_systemd.units["chrony.service"].active, before.at("chrony.service").active);
    EXPECT_FALSE(fs::exists(at("/etc/systemd/ntp-units.d/10-tickervantage.list")));
    EXPECT_FALSE(fs::exists(at("/var/lib/chronyhelper/displaced-services")));
}

TEST_F(ChronysupportMachineTest, ServicesThatCannotComeBackStayNoted) {
    m_systemd.units = {{"chrony.service", {.enabled = true, .active = true, .fails_to_start = true}},
                       {"systemd-timesyncd.service", {.enabled = true}}};
    ASSERT_TRUE(run({"displaceservices"})) << m_line;
    m_systemd.units["chrony.service"].active = false;
    m_systemd.without_bus = "enable";
    EXPECT_FALSE(run({"restoreservices"}));
    EXPECT_EQ(m_line, "Cannot enable chrony.service: No.");
    m_systemd.without_bus.clear();
    EXPECT_TRUE(run({"restoreservices"})) << m_line;
    EXPECT_EQ(m_line, "systemd-timesyncd.service runs again."); // better than none
}

TEST_F(ChronysupportMachineTest, ANoteOfOthersBringsBackNothingButTimeServices) {
    m_systemd.units = {{"ssh.service", {}}, {"chrony.service", {}}};
    put("/var/lib/chronyhelper/displaced-services", "ssh.service enabled active\n \t\nchrony.service active enabled\n");
    ASSERT_TRUE(run({"restoreservices"})) << m_line;
    EXPECT_EQ(m_systemd.calls, (std::vector<std::string>{"enable chrony.service", "start chrony.service"}));
}

TEST_F(ChronysupportMachineTest, TheDistributionsUnitGetsDropInsAndLosesThem) {
    auto& unit = m_systemd.units["chrony.service"];
    unit = {.enabled = true,
            .active = true,
            .text = "# /lib/systemd/system/chrony.service\n[Service]\nExecStart=!/usr/sbin/chronyd $DAEMON_OPTS\n"};
    const auto clock = at("/etc/systemd/system/chrony.service.d/tickervantage-clock.conf");
    ASSERT_TRUE(run({"adjustclock", "off"})) << m_line;
    const auto option = contents(clock);
    EXPECT_TRUE(option.ends_with("[Service]\nExecStart=\nExecStart=!/usr/sbin/chronyd $DAEMON_OPTS -x\n")) << option;
    EXPECT_EQ(m_systemd.calls, (std::vector<std::string>{"daemon-reload", "try-restart chrony.service"}));
    unit.text += "# " + clock + "\n" + option; // ours does not count for itself
    ASSERT_TRUE(run({"adjustclock", "off"})) << m_line;
    EXPECT_EQ(contents(clock), option);
    ASSERT_TRUE(run({"openlogs"})) << m_line;
    EXPECT_TRUE(contents(at("/etc/systemd/system/chrony.service.d/tickervantage-logs.conf"))
                    .ends_with("[Service]\nLogsDirectoryMode=0755\n"));
    ASSERT_TRUE(run({"adjustclock", "on"})) << m_line;
    EXPECT_FALSE(fs::exists(clock));
    EXPECT_EQ(m_systemd.calls.back(), "try-restart chrony.service");

    unit.fails_to_start = true; // with the option
    EXPECT_FALSE(run({"adjustclock", "off"}));
    EXPECT_EQ(m_line, "Cannot restart chrony.service: It ended.");
    EXPECT_FALSE(fs::exists(clock));
    unit.text = "# /etc/systemd/system/chrony.service\n[Service]\nExecStart=/bin/sh -c guess\n";
    EXPECT_FALSE(run({"adjustclock", "off"}));
    EXPECT_FALSE(run({"adjustclock", "perhaps"}));
    EXPECT_FALSE(fs::exists(clock));
    ASSERT_TRUE(run({"removeinstallation"})) << m_line;
    EXPECT_FALSE(fs::exists(at("/etc/systemd/system/chrony.service.d")));
}

// The unit's own command is run here, on the machine in a folder, after the kernel has numbered its sensors anew.
TEST_F(ChronysupportMachineTest, ASensorIsFoundAgainWhateverItsNumber) {
    m_systemd.units["chrony.service"] = {.enabled = true, .active = true};
    const std::string device = "/sys/devices/platform/coretemp.0/hwmon";
    const auto chip = [&](const std::string& number, const std::string& name, const std::string& temperature) {
        put(device + "/hwmon" + number + "/name", name + "\n");
        put(device + "/hwmon" + number + "/temp1_input", temperature + "\n");
    };
    chip("2", "coretemp", "41000");
    EXPECT_FALSE(run({"usesensor", device, "other", "temp1_input"}));
    EXPECT_EQ(m_line, "The sensor temp1_input of the chip other is not there, or gives no temperature.");
    EXPECT_FALSE(run({"usesensor", device + "/$(id)", "coretemp", "temp1_input"}));
    const auto drop_in = at("/etc/systemd/system/chrony.service.d/tickervantage-sensor.conf");
    EXPECT_FALSE(fs::exists(drop_in));
    ASSERT_TRUE(run({"usesensor", device, "coretemp", "temp1_input"})) << m_line;
    EXPECT_EQ(contents(at("/etc/chrony/tickervantage.temperature")), "");
    EXPECT_EQ(m_systemd.calls.back(), "daemon-reload");
    const std::string text = contents(drop_in);
    EXPECT_EQ(sensor_in_drop_in(text), (SensorPlace{device, "coretemp", "temp1_input"}));
    EXPECT_TRUE(
        text.ends_with("\nBindReadOnlyPaths=-/run/tickervantage-temperature:/etc/chrony/tickervantage.temperature\n"))
        << text;

    const auto begin = text.find("-c '") + 4;
    std::string script = text.substr(begin, text.find('\'', begin) - begin);
    for (const std::string folder : {" /run/", " /sys/"})
        for (auto found = script.find(folder); found != std::string::npos; found = script.find(folder, found + 1))
            script.replace(found, 1, ' ' + at(""));
    fs::create_directories(at("/run"));
    fs::rename(at(device + "/hwmon2"), at(device + "/hwmon7"));
    chip("2", "other", "1000");
    for (int boot = 0; boot < 2; ++boot) {                                  // the second finds what the first left
        ASSERT_EQ(std::system(("/bin/sh -c '" + script + "'").c_str()), 0); // NOLINT: one thread
        EXPECT_EQ(contents(at("/run/tickervantage-temperature")), "41000\n");
    }

    m_systemd.journal = "chronyd version 4.3 starting\nSelected source 192.0.2.1\n";
    EXPECT_TRUE(run({"checksensor"})) << m_line;
    m_systemd.journal += "Could not read temperature from /etc/chrony/tickervantage.temperature\n";
    EXPECT_FALSE(run({"checksensor"}));
    m_systemd.units["chrony.service"].active = false; // it said so before it was stopped
    EXPECT_TRUE(run({"checksensor"})) << m_line;

    ASSERT_TRUE(run({"dropsensor"})) << m_line;
    EXPECT_FALSE(fs::exists(at("/etc/systemd/system/chrony.service.d")));
    EXPECT_FALSE(fs::exists(at("/etc/chrony/tickervantage.temperature")));
    EXPECT_TRUE(run({"dropsensor"})) << "again";
}

TEST_F(ChronysupportMachineTest, ThePackageRemovesNoProgramOfADistribution) {
    for (const std::string program : {"/usr/sbin/chronywake", "/sbin/chronywake", "/bin/chronywake"}) {
        for (const auto& file : definition_files(ServiceForm::systemd, wake_service(program, {})))
            put(file.path, file.text);
        m_systemd.units["net.brisklane.chronywake.service"] = {.enabled = true, .active = true};
        put(program, "the distribution's\n", 0755);
        ASSERT_TRUE(run({"removeinstallation"})) << m_line;
        EXPECT_TRUE(fs::exists(at(program))) << program;
    }
}

TEST_F(ChronysupportMachineTest, ThePackageLooksAfterAnInstallation) {
    const std::string chronyd = "/usr/local/sbin/chronyd";
    const std::string chronyc = "/usr/local/bin/chronyc";
    for (const auto& service : {daemon_service(chronyd, "/etc/chrony.d/chrony.conf", true, true),
                                rotation_service("/usr/local/bin/chronylogrotate.sh", chronyc, "/var/log/chrony"),
                                wake_service("/usr/sbin/chronywake", {})}) // not ours to replace or remove
        for (const auto& file : definition_files(ServiceForm::systemd, service)) {
            put(file.path, file.text);
            m_systemd.units[fs::path(file.path).filename()] = {.enabled = true, .active = true};
        }
    const std::vector<std::string> programs{chronyd, chronyc, "/usr/local/bin/chronylogrotate.sh"};
    for (const auto& path : programs)
        put(path, "the same\n", 0755);
    put("/usr/sbin/chronywake", "the distribution's\n", 0755);
    for (const std::string name :
         {"MacOS/chronyd", "MacOS/chronyc", "MacOS/chronywake", "Resources/chronylogrotate.sh"}) {
        fs::create_directories(fs::path(m_parts.bundle + "/Contents/" + name).parent_path());
        write_file(m_parts.bundle + "/Contents/" + name, "the same\n", 0755);
    }
    ASSERT_TRUE(run({"refreshprograms"})) << m_line;
    EXPECT_EQ(m_systemd.calls, std::vector<std::string>());
    write_file(m_parts.bundle + "/Contents/MacOS/chronyd", "mended, of the same version\n", 0755);
    ASSERT_TRUE(run({"refreshprograms"})) << m_line;
    EXPECT_EQ(m_line, "Replaced /usr/local/sbin/chronyd.");
    EXPECT_EQ(contents(at(chronyd)), "mended, of the same version\n");
    EXPECT_EQ(m_systemd.calls, std::vector<std::string>{"try-restart " + ours});

    m_systemd.units["chrony.service"] = {.enabled = true};
    ASSERT_TRUE(run({"removeinstallation"})) << m_line;
    for (const auto& path : programs)
        EXPECT_FALSE(fs::exists(at(path))) << path;
    EXPECT_TRUE(fs::exists(at("/usr/sbin/chronywake")));
    EXPECT_TRUE(fs::is_empty(at("/etc/systemd/system")));
    EXPECT_TRUE(m_systemd.units["chrony.service"].active);
    m_systemd.calls.clear();
    ASSERT_TRUE(run({"removeinstallation"})) << m_line;
    EXPECT_EQ(m_line, "There is no installation of ours.");
}

} // namespace
} // namespace tickervantage::testing
