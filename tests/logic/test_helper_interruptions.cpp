#include "roothelper/grammar/helper_interruptions.h"
#include "support/test.h"

namespace tickervantage {
namespace {

using Units = HelperInterruptions::Units;

const HelperRequest stop{HelperVerb::stop_chrony, {"/tool", "stopchrony"}, {}, {}, {}};
const HelperRequest start{HelperVerb::start_chrony, {"/tool", "startchrony"}, {}, {}, {}};
const HelperRequest install{HelperVerb::install_item, {"/tool", "installitem"}, {}, {}, {}};
const HelperRequest stop_theirs{HelperVerb::service_manager, {"/bin/systemctl", "stop", "chrony.service"}, {}, {}, {}};
const HelperRequest start_theirs{
    HelperVerb::service_manager, {"/bin/systemctl", "start", "chrony.service"}, {}, {}, {}};

struct HelperInterruptionsTest : ::testing::Test {
    HelperInterruptions interruptions;

    Units done(const HelperRequest& request, std::string_view reply = "", bool is_done = true) {
        interruptions.begin(":1.1");
        return interruptions.end(":1.1", request, is_done, reply);
    }
};

TEST_F(HelperInterruptionsTest, WhatACallerStoppedIsStartedWhenItGoesBeforeItsStart) {
    const struct {
        const char* what;
        bool guards;
        const HelperRequest& stopping;
        const char* reply;
        bool starts;
        Units expected;
    } cases[] = {
        {"both of ours", true, stop, "Stopped a.service and chrony.service.", false, {"a.service", "chrony.service"}},
        {"theirs", true, stop_theirs, "", false, {"chrony.service"}},
        {"stopped for good", false, stop, "Stopped a.service.", false, {}},
        {"none was running", true, stop, "a.service was not running.", false, {}},
        {"it started it itself", true, stop, "Stopped a.service.", true, {}}};
    for (const auto& [what, guards, stopping, reply, starts, expected] : cases) {
        if (guards)
            interruptions.guard(":1.1");
        EXPECT_EQ(done(stopping, reply), Units()) << what;
        EXPECT_EQ(done(install), Units()) << what;
        if (starts) {
            EXPECT_EQ(done(&stopping == &stop ? start : start_theirs), Units()) << what;
        }
        EXPECT_EQ(interruptions.gone(":1.2"), Units()) << what;
        EXPECT_EQ(interruptions.gone(":1.1"), expected) << what;
        EXPECT_TRUE(interruptions.empty()) << what;
    }
}

TEST_F(HelperInterruptionsTest, AStopThatIsUnderWayWhenItsCallerGoesIsWaitedFor) {
    interruptions.guard(":1.1");
    interruptions.begin(":1.1");
    interruptions.begin(":1.1");
    EXPECT_EQ(interruptions.gone(":1.1"), Units());
    EXPECT_EQ(interruptions.end(":1.1", stop, true, "Stopped a.service."), Units());
    EXPECT_EQ(interruptions.end(":1.1", install, false, ""), Units{"a.service"});
    EXPECT_TRUE(interruptions.empty());
}

TEST_F(HelperInterruptionsTest, AReportFromBeforeTheGuardDoesNotEndTheWaitingForAStop) {
    interruptions.begin(":1.1");
    interruptions.guard(":1.1");
    interruptions.begin(":1.1");
    EXPECT_EQ(interruptions.end(":1.1", install, true, ""), Units());
    EXPECT_EQ(interruptions.gone(":1.1"), Units());
    EXPECT_EQ(interruptions.end(":1.1", stop, true, "Stopped a.service."), Units{"a.service"});
    EXPECT_TRUE(interruptions.empty());
}

TEST_F(HelperInterruptionsTest, OnRequestItIsStartedAtOnceAndAFarewellLeavesItStopped) {
    interruptions.guard(":1.1");
    (void)done(stop, "Stopped a.service.");
    EXPECT_EQ(interruptions.resume(":1.1"), Units{"a.service"});
    EXPECT_EQ(interruptions.gone(":1.1"), Units());
    interruptions.guard(":1.1");
    (void)done(stop, "Stopped a.service.");
    interruptions.forget(":1.1");
    EXPECT_EQ(interruptions.gone(":1.1"), Units());
}

} // namespace
} // namespace tickervantage
