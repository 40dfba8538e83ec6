#include "roothelper/jobs/installation_offers.h"
#include "settings/warning_register.h"
#include "support/fake_job_machine.h"
#include "support/manual_dispatch.h"
#include "support/memory_stores.h"
#include "support/scripted_execute.h"
#include "support/test.h"

namespace tickervantage {
namespace {

struct InstallationOffersTest : ::testing::Test, OffersOwner {
    testing::ScriptedExecute execute;
    testing::ManualQueue queue;
    testing::ManualMainThread main_thread;
    testing::MemorySettingsStore store;
    DefaultSettings settings{store};
    WarningRegister warnings{settings};
    testing::FakeJobMachine machine;
    std::vector<std::string> events; // alerts shown and what followed
    std::vector<std::size_t> answers;
    bool suppress = false;
    bool unasked = false;
    InstalledPaths paths{"/c/chrony.conf", "/c/chronyc", "/c/chronyd"};
    Alert last;

    void SetUp() override {
        machine.put(
            {"/c/chronyd", "/etc/systemd/system/org.chrony-project.chronyd.service", "/c/chronyc", "/c/chrony.conf"});
        answer_versions("1", "1");
    }
    void have_only_the_distributions() {
        machine.files.clear();
        machine.put(
            {"/etc/chrony/chrony.conf", "/usr/bin/chronyc", "/usr/sbin/chronyd", "/lib/systemd/system/chrony.service"});
    }
    void answer_versions(const std::string& installed, const std::string& embedded) {
        execute.answers.clear();
        execute.answer("chronyd", "chronyd (chrony) version " + installed + " (+X)\n");
        execute.answer("/B.app//Contents/MacOS/chronyd", "chronyd (chrony) version " + embedded + " (+X)\n");
    }

    std::vector<std::string> run(std::vector<std::size_t> buttons = {}) {
        answers = std::move(buttons);
        events.clear();
        InstallationOffers offers({.warnings = warnings,
                                   .execute = execute,
                                   .machine = machine,
                                   .queue = queue,
                                   .main_thread = main_thread,
                                   .bundle = "/B.app",
                                   .owner = *this});
        offers.start();
        queue.turn();
        main_thread.turn();
        return events;
    }

    InstalledPaths installed_paths() override { return paths; }
    bool uses_distribution_unasked() override { return unasked; }
    std::string worded(const char* text, const char*) override { return text; }
    void show(const Alert& alert, AlertAnswered answered) override {
        events.push_back(alert.identifier);
        last = alert;
        const std::size_t button = answers.empty() ? 1 : answers.front();
        if (!answers.empty())
            answers.erase(answers.begin());
        answered({.button = button, .suppress = suppress});
    }
    void install() override { events.emplace_back("install"); }
    void use_distribution(const DistributionChrony& chrony) override { events.push_back(chrony.unit); }
    void stop_for_version(const std::string&, const std::string&) override { events.emplace_back("stop"); }
};

using Events = std::vector<std::string>;

TEST_F(InstallationOffersTest, CompleteInstallationOfTheSameVersionGetsNoOffer) {
    EXPECT_EQ(run(), Events{});
}

TEST_F(InstallationOffersTest, AnyMissingFileLeadsToTheFirstRunOffer) {
    const auto all = machine.files;
    for (const auto& [missing, text] : all) {
        machine.files = all;
        machine.files.erase(missing);
        EXPECT_EQ(run({0}), (Events{"FirstRunAlert", "install"})) << missing;
    }
    EXPECT_EQ(last.informative, "The chronyd ntp daemon is not configured/installed."
                                "\nDo you wish to install the privileged components?");
    suppress = true;
    EXPECT_EQ(run({1}), Events{"FirstRunAlert"});
    EXPECT_EQ(run(), Events{});
}

TEST_F(InstallationOffersTest, OtherVersionIsOfferedAlsoAfterADeclinedFirstRun) {
    answer_versions("4.2", "4.3");
    EXPECT_EQ(run({0}), (Events{"VersionCompareAlert", "install"}));
    EXPECT_EQ(last.informative, "Installed: /c/chronyd chronyd (chrony) version 4.2\n\n"
                                " Embedded: /Contents/MacOS/chronyd chronyd (chrony) version 4.3\n\n"
                                "Do you wish to re-install chronyd");
    machine.files.erase("/c/chrony.conf");
    EXPECT_EQ(run({1, 0}), (Events{"FirstRunAlert", "VersionCompareAlert", "install"}));
    execute.answer("/B.app//Contents/MacOS/chronyd", "no version\n");
    EXPECT_EQ(run({1}), (Events{"FirstRunAlert", "stop"}));
    warnings.register_warning("VersionCompareAlert");
    EXPECT_EQ(run({1}), Events{"FirstRunAlert"});
}

TEST_F(InstallationOffersTest, DistributionsChronyThatIsUsedUnaskedIsToldOnceAndOffersNothing) {
    have_only_the_distributions();
    unasked = true;
    EXPECT_EQ(run({0}), Events{"SystemChronyAlert"});
    EXPECT_EQ(last.buttons, std::vector<std::string>{"Dismiss"});
    EXPECT_EQ(run(), Events{});
    EXPECT_TRUE(execute.calls.empty());
}

TEST_F(InstallationOffersTest, DistributionsChronyIsOfferedOnce) {
    have_only_the_distributions();
    EXPECT_EQ(run({1, 1}), (Events{"SystemChronyAlert", "FirstRunAlert"}));
    EXPECT_NE(last.informative.find("give up what its packages provide"), std::string::npos);
    EXPECT_EQ(run({1}), Events{"FirstRunAlert"});
    warnings.resetWarnings();
    EXPECT_EQ(run({0}), (Events{"SystemChronyAlert", "chrony.service"}));
}

TEST_F(InstallationOffersTest, OnlyOurOwnProgramsAreCompared) {
    machine.files["/c/chronyd"] = "mended"; // a security update need not change the version
    machine.files["/B.app//Contents/MacOS/chronyd"] = "as it was";
    EXPECT_EQ(run({0}), (Events{"VersionCompareAlert", "install"}));
    have_only_the_distributions();
    paths = {"/etc/chrony/chrony.conf", "/usr/bin/chronyc", "/usr/sbin/chronyd"};
    answer_versions("4.2", "4.3");
    EXPECT_EQ(run({0}), Events{});
}

} // namespace
} // namespace tickervantage
