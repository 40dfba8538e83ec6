// The root helper as an ordinary user meets it, on a real bus with a real polkit. Run by root_side in a scratch
// machine.
#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "linux/posix_execute.h"
#include "refused_requests.h"
#include "roothelper/client/bus_privileged_channel.h"
#include "roothelper/client/privileged_actions.h"
#include "roothelper/grammar/helper_names.h"
#include "support/child_program.h"
#include "support/hostile_requests.h"
#include "support/test.h"

namespace tickervantage {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using testing::contents;
using testing::eventually;

constexpr std::chrono::seconds patience(30); // a busy machine takes its time

const std::string home = "/home/clockadmin";
const std::string bundle = home + "/Tickervantage.app/Contents/MacOS/";
const std::string tool = bundle + "chronysupport";
const std::string clients = "EXECUTE /bin/sh -c '/usr/bin/chronyc clients' 2>&1";
const std::string slow = "EXECUTE /bin/sh -c '/opt/scratch/chronyd -t 3 -q \"server a.example iburst\"' 2>&1";
const std::string conf = "/etc/chrony.d/chrony.conf";

std::string install_line(const std::string& source, const std::string& destination, const std::string& mode = "0644") {
    return "EXECUTE \"" + tool + "\" installitem \"" + source + "\" \"" + destination + "\" \"root:wheel\" \"" + mode +
           "\"";
}

std::string write(const std::string& name, const std::string& text) {
    const auto path = home + "/" + name;
    fs::remove(path);
    std::ofstream(path) << text;
    return path;
}

bool is_sentence(const std::string& text) {
    return text.ends_with('.') && text.find('\n') == std::string::npos;
}

class Times {
public:
    explicit Times(const char* what) : m_what(what) {}
    void add(double milliseconds) { m_times.push_back(milliseconds); }
    void show() {
        std::ranges::sort(m_times);
        std::printf("%s: p50 %.2f ms, p99 %.2f ms, most %.2f ms\n", m_what, m_times[m_times.size() / 2],
                    m_times[m_times.size() * 99 / 100], m_times.back());
    }

private:
    const char* m_what;
    std::vector<double> m_times;
};

// A password dialog of this process at which nobody types anything.
class SilentAgent {
public:
    SilentAgent() {
        sd_bus* opened = nullptr;
        sd_bus_open_system(&opened);
        m_bus.reset(opened);
        sd_bus_add_object_vtable(opened, nullptr, "/dialog", "org.freedesktop.PolicyKit1.AuthenticationAgent", vtable,
                                 this);
        EXPECT_GE(sd_bus_call_method(opened, "org.freedesktop.PolicyKit1", "/org/freedesktop/PolicyKit1/Authority",
                                     "org.freedesktop.PolicyKit1.Authority", "RegisterAuthenticationAgent", nullptr,
                                     nullptr, "(sa{sv})ss", "unix-process", 2, "pid", "u",
                                     static_cast<unsigned>(::getpid()), "start-time", "t", std::uint64_t{0}, "C",
                                     "/dialog"),
                  0);
    }
    [[nodiscard]] bool opens() { return comes(m_opened); }
    [[nodiscard]] bool closes() { return comes(m_closed); }
    [[nodiscard]] bool is_open() const { return m_opened; }

    // What the dialog asks.
    [[nodiscard]] std::string question() const {
        const char* action = nullptr;
        const char* text = nullptr;
        return sd_bus_message_read(m_question.get(), "ss", &action, &text) > 0 ? text : "";
    }

private:
    [[nodiscard]] bool comes(const bool& event) {
        const auto end = Clock::now() + patience;
        while (!event && Clock::now() < end)
            if (sd_bus_process(m_bus.get(), nullptr) == 0)
                (void)sd_bus_wait(m_bus.get(), 100'000);
        return event;
    }
    static int on_begin(sd_bus_message* message, void* self, sd_bus_error*) {
        static_cast<SilentAgent*>(self)->m_question.reset(sd_bus_message_ref(message));
        static_cast<SilentAgent*>(self)->m_opened = true;
        return 1;
    }
    static int on_cancel(sd_bus_message* message, void* self, sd_bus_error*) {
        static_cast<SilentAgent*>(self)->m_closed = true;
        return sd_bus_reply_method_return(message, "");
    }
    static constexpr sd_bus_vtable vtable[]{
        SD_BUS_VTABLE_START(0),
        SD_BUS_METHOD("BeginAuthentication", "sssa{ss}sa(sa{sv})", "", on_begin, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("CancelAuthentication", "s", "", on_cancel, SD_BUS_VTABLE_UNPRIVILEGED), SD_BUS_VTABLE_END};

    Bus m_bus;
    BusMessage m_question;
    bool m_opened = false;
    bool m_closed = false;
};

class RootSide : public ::testing::Test {
protected:
    void authorise() {
        const auto granted = channel.authorise();
        ASSERT_TRUE(granted) << english(granted.error());
        token = *granted;
    }
    std::string send(const std::string& request) { return channel.send(request, token).value_or("(no reply)"); }
    bool runs(const std::string& pattern) {
        return execute.run({.program = "/usr/bin/pgrep", .arguments = {"-f", pattern}}).exit_status == 0;
    }

    PosixExecute execute;
    BusPrivilegedChannel channel{execute, bundle + "chronyhelper"};
    BusPrivilegedChannel other{execute, bundle + "chronyhelper"};
    std::optional<HelperToken> token;
};

class BystanderRootSide : public RootSide {};
class AskedRootSide : public RootSide {};
class ConsentingRootSide : public RootSide {};

TEST_F(RootSide, ReportsOfTheDaemonComeBack) {
    authorise();
    EXPECT_TRUE(send(clients).starts_with("Hostname")) << send(clients);
    EXPECT_NE(send("EXECUTE /usr/bin/pgrep -l -f chronyd").find("/usr/sbin/chronyd -x"), std::string::npos);
    const auto there = channel.install();
    EXPECT_TRUE(there) << english(there.error());
}

TEST_F(RootSide, ReportsAsDataComeInOneRun) {
    PrivilegedActions actions(channel);
    const auto refused = actions.data_reports("/usr/bin/chronyc");
    EXPECT_EQ(refused.failure, Failure{.code = FailureCode::authorisation_needed});
    ASSERT_TRUE(actions.blessHelper());
    const auto answer = actions.data_reports("/usr/bin/chronyc");
    EXPECT_TRUE(answer.is_done) << answer.reply.value_or("");
    const auto lines = non_empty_lines(*answer.reply);
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(std::ranges::count(lines.back(), ','), 10) << "serverstats of chrony 4.3 has eleven columns";
    EXPECT_EQ(actions.data_reports("/opt/scratch/chronyc").failure, Failure{.code = FailureCode::program_not_listed});
}

TEST_F(RootSide, AuthorisationHoldsOnItsOwnConnectionOnly) {
    authorise();
    auto wrong = *token;
    wrong.back() ^= 1U;
    EXPECT_TRUE(is_sentence(channel.send(clients, std::nullopt).value_or("")));
    EXPECT_TRUE(is_sentence(channel.send(clients, wrong).value_or("")));
    EXPECT_TRUE(is_sentence(other.send(clients, token).value_or(""))) << "a stolen token";
    EXPECT_TRUE(send(clients).starts_with("Hostname")) << "the owner's token outlives the attempts";
    channel.disconnect();
    EXPECT_TRUE(is_sentence(send(clients))) << "the next connection is another one";
    authorise();
    EXPECT_EQ(send("QUIT"), "quit");
    EXPECT_TRUE(is_sentence(send(clients)));
}

TEST_F(RootSide, AuthorisationOutlivesAHelperThatEnds) {
    authorise();
    ASSERT_TRUE(send(clients).starts_with("Hostname"));
    EXPECT_TRUE(eventually(patience, [this] { return !runs("chronyhelper$"); })); // it is told to end after a second
    EXPECT_TRUE(send(clients).starts_with("Hostname"));
}

TEST_F(RootSide, WhatWasNotDoneIsNamedBesideItsWords) {
    EXPECT_EQ(channel.ask(clients, std::nullopt).failure, Failure{.code = FailureCode::authorisation_needed});
    authorise();
    EXPECT_FALSE(channel.ask(clients, token).failure);
    const auto answer = channel.ask("EXECUTE \"" + tool + "\" restoreformer \"/etc/chrony.conf\"", token);
    EXPECT_FALSE(answer.is_done);
    EXPECT_EQ(answer.reply, "Cannot bring back the former /etc/chrony.conf: No such file or directory.\n");
    EXPECT_EQ(answer.failure, failed(FailureCode::cannot_restore_former, {"/etc/chrony.conf"}, ENOENT).value());
}

TEST_F(RootSide, HostileRequestsAreRefused) {
    authorise();
    int sent = 0;
    std::istringstream lines(refused_requests);
    for (std::string written; std::getline(lines, written);) {
        const auto line = testing::request_in(written, tool);
        const bool is_text = line.find('\xff') == std::string::npos && line.find('\0') == std::string::npos;
        if (written.starts_with("  ") || !is_text) // the bus carries text only
            continue;
        const auto reply = send(line);
        EXPECT_TRUE(is_sentence(reply)) << line << ": " << reply;
        ++sent;
    }
    EXPECT_GT(sent, 180);
    std::printf("%d hostile requests were sent\n", sent);
}

TEST_F(RootSide, OnlyTheCallersOwnPlainFilesAreInstalled) {
    authorise();
    const auto good = write("good.conf", "server a.example\n");
    fs::create_directory(home + "/folder");
    (void)::mkfifo((home + "/pipe").c_str(), 0600);
    fs::remove(home + "/second");
    fs::remove(home + "/link");
    fs::create_symlink("/etc/shadow", home + "/link");
    for (const auto& path : {home + "/link", home + "/pipe", home + "/folder", home + "/missing",
                             std::string("/etc/shadow"), std::string("/home/bystander/own.conf"),
                             std::string("/dev/zero"), write("large.conf", std::string((1U << 20U) + 1, '#'))})
        EXPECT_TRUE(is_sentence(send(install_line(path, conf)))) << path;
    EXPECT_FALSE(fs::exists(conf));
    EXPECT_EQ(send(install_line(good, conf)).find("200 OK"), 0U) << send(install_line(good, conf));
    EXPECT_EQ(contents(conf), "server a.example\n");
    fs::create_hard_link(good, home + "/second");
    EXPECT_TRUE(is_sentence(send(install_line(good, conf))));
}

TEST_F(RootSide, FilesSwappedMeanwhileLeakNothing) {
    authorise();
    std::atomic<bool> done = false;
    const auto source = home + "/swapped.conf";
    std::thread swapper([&] {
        while (!done) {
            write("next", "server a.example\n");
            fs::rename(home + "/next", source);
            fs::create_symlink("/etc/shadow", home + "/next");
            fs::rename(home + "/next", source);
        }
    });
    for (int round = 0; round < 200; ++round) {
        (void)send(install_line(source, conf)); // refused or done, as it happens
        ASSERT_TRUE(contents(conf).starts_with("server ")) << contents(conf);
    }
    done = true;
    swapper.join();
}

TEST_F(RootSide, ContentIsChecked) {
    authorise();
    const auto before = contents(conf);
    const auto climbing = "include /etc/chrony/.?/.?" + write("hidden.conf", "user root\n") + "\n";
    const auto hiding = "keyfile /etc/" + std::string(300, 'x') + "/../shadow\n";
    for (const auto& [text, part] : {std::pair{"server a\nuser root\n", "Line 2 (user root)"},
                                     std::pair{"driftfile /etc/cron.d/x\n", "Line 1 (driftfile /etc/cron.d/x)"},
                                     std::pair{"mailonchange root@localhost$( 0.5\nuser root\n", "show safely"},
                                     std::pair{"confdir /etc/chrony.d\n", "includes the configuration itself"},
                                     std::pair{"servr a\n", "chronyd does not accept this configuration"},
                                     std::pair{climbing.c_str(), "Line 1 (include /etc/chrony/.?/.?/home"},
                                     std::pair{hiding.c_str(), "than a question can show"}}) {
        const auto reply = send(install_line(write("c.conf", text), conf));
        EXPECT_TRUE(is_sentence(reply) && reply.find(part) != std::string::npos) << reply;
    }
    const auto unit = "/etc/systemd/system/org.chrony-project.chronyd.service";
    EXPECT_TRUE(is_sentence(send(install_line(write("x", "[Service]\nExecStart=/home/clockadmin/x\n"), unit))));
    EXPECT_TRUE(is_sentence(send(install_line(write("x", "#!/bin/sh\n"), "/usr/local/bin/chronyc", "0755"))));
    EXPECT_TRUE(!fs::exists(unit) && !fs::exists("/usr/local/bin/chronyc") && contents(conf) == before);
    EXPECT_EQ(send(install_line(bundle + "chronyc", "/usr/local/bin/chronyc", "0755")).find("200 OK"), 0U);
    EXPECT_EQ(contents("/usr/local/bin/chronyc"), contents("/usr/bin/chronyc"));
    EXPECT_EQ(send("EXECUTE \"" + tool + "\" removeitem \"/usr/local/bin/chronyc\"").find("200 OK"), 0U);
}

TEST_F(RootSide, PointsOfACompensationAreCheckedAndComeBack) {
    authorise();
    const std::string points = "/etc/chrony/tickervantage.tempcomp";
    const auto install = [&](const std::string& text) {
        return send(install_line(write("points", text), points));
    };
    for (const auto& [text, part] : {std::pair{"20000 1\n\n25000 1\n", "is blank"},
                                     {"20000 1\n20000 2\n", "the same temperature"},
                                     {"25000 1\n20000 2\n", "a lower temperature"},
                                     {"20000 1\n", "fewer than two points"},
                                     {"20 1\n25 1\n", "in degrees"},
                                     {"20000 11\n25000 1\n", "more than 10 ppm"}}) {
        const auto reply = install(text);
        EXPECT_TRUE(is_sentence(reply) && reply.find(part) != std::string::npos) << reply;
        EXPECT_FALSE(fs::exists(points));
    }
    EXPECT_EQ(install("20000 1\n25000 1\n"), "200 OK\n");
    EXPECT_EQ(install("20000 2\n25000 2\n"), "200 OK\n");
    const auto restore = "EXECUTE \"" + tool + "\" restoreformer \"" + points + "\"";
    EXPECT_EQ(send(restore), "200 OK\n");
    EXPECT_EQ(contents(points), "20000 1\n25000 1\n");
    EXPECT_TRUE(is_sentence(send(restore))) << "once";
    const auto sensor = " usesensor \"/sys/devices/virtual/none\" \"none\" \"temp1_input\"";
    EXPECT_EQ(send("EXECUTE \"" + tool + "\"" + sensor),
              "The sensor temp1_input of the chip none is not there, or gives no temperature.\n");
    EXPECT_EQ(send("EXECUTE \"" + tool + "\" removeitem \"" + points + "\""), "200 OK\n");
    EXPECT_EQ(send("EXECUTE \"" + tool + "\" dropsensor"), "chronyd reads no temperature.\n");
}

// root_side has left a former configuration from long ago that says "user root".
TEST_F(RootSide, FormerConfigurationIsNoConsent) {
    authorise();
    const auto restore = "EXECUTE \"" + tool + "\" restoreformer \"" + conf + "\"";
    const auto old = contents(conf + ".former");
    ASSERT_EQ(old, "server old.example\nuser root\n");
    for (const auto& reply : {send(restore), send(install_line(write("c.conf", old), conf))})
        EXPECT_EQ(reply, "Line 2 (user root) needs an authorisation of its own.");
    EXPECT_EQ(contents(conf), "server present.example\nmailonchange me 1\n");
    EXPECT_EQ(contents(conf + ".former"), old);

    ASSERT_EQ(send(install_line(write("c.conf", "server new.example\n"), conf)), "200 OK\n");
    EXPECT_TRUE(is_sentence(other.send(restore, token).value_or("")));
    EXPECT_EQ(send(restore), "200 OK\n") << "what was displaced a moment ago comes back without a question";
    EXPECT_EQ(contents(conf), "server present.example\nmailonchange me 1\n");
}

TEST_F(RootSide, LongJobsHoldNobodyUp) {
    authorise();
    fs::remove(home + "/go-on");
    std::string output;
    std::atomic<bool> over = false;
    std::thread synchronise([&] {
        output = send(slow);
        over = true;
    });
    EXPECT_TRUE(eventually(patience, [this] { return runs("/opt/scratch/chronyd -t 3"); }));
    EXPECT_TRUE(send(clients).starts_with("Hostname")) << "over the same connection";
    EXPECT_FALSE(over);
    write("go-on", "");
    synchronise.join();
    EXPECT_EQ(output, "scratch chronyd: -t 3 -q server a.example iburst\n");
}

TEST_F(RootSide, EveryCallIsAnsweredAcrossEndsOfTheHelper) {
    const char* wanted = std::getenv("ROOT_SIDE_CALLS");
    const int calls = wanted != nullptr ? std::atoi(wanted) : 2000;
    std::atomic<int> left = calls;
    std::atomic<int> lost = 0;
    std::vector<std::thread> callers;
    for (int number = 0; number < 4; ++number)
        callers.emplace_back([&] {
            BusPrivilegedChannel own(execute, bundle + "chronyhelper");
            while (left.fetch_sub(1) > 0)
                if (own.send("EXECUTE x", std::nullopt).value_or("") != "This needs an administrator's authorisation.")
                    ++lost;
        });
    int ends = 0;
    for (; left > 0; ++ends) {
        authorise();
        EXPECT_EQ(send("QUIT"), "quit"); // the last authorisation given back ends the helper
    }
    for (auto& caller : callers)
        caller.join();
    EXPECT_EQ(lost, 0);
    std::printf("%d calls across %d ends of the helper, %d lost\n", calls, ends, lost.load());
}

// While root_side has a user without rights flood the helper.
TEST_F(RootSide, FloodHoldsNoAdministratorUp) {
    if (std::getenv("ROOT_SIDE_FLOOD") == nullptr)
        GTEST_SKIP() << "nobody floods the helper";
    const auto seconds = [](const auto& act) {
        const auto start = Clock::now();
        act();
        return std::chrono::duration<double>(Clock::now() - start).count();
    };
    double longest = 0; // of the reports: polkit, which is asked for an authorisation, has its own share of the bus
    for (int round = 0; round < 5; ++round) {
        BusPrivilegedChannel own(execute, bundle + "chronyhelper");
        const double authorised = seconds([&] { token = own.authorise().value_or(HelperToken()); });
        std::string reply;
        const double reported = seconds([&] { reply = own.send(clients, token).value_or("(no reply)"); });
        std::printf("authorised after %.2f s, a report after %.2f s\n", authorised, reported);
        EXPECT_TRUE(reply.starts_with("Hostname")) << reply;
        longest = std::max(longest, reported);
    }
    EXPECT_LE(longest, 2.0);
}

TEST_F(RootSide, DISABLED_Figures) {
    const auto time = [](const auto& act) {
        const auto start = Clock::now();
        act();
        return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    };
    std::printf("first call, with activation: %.0f ms\n", time([&] { (void)channel.send("EXECUTE x", token); }));
    std::printf("authorisation: %.1f ms\n", time([&] { authorise(); }));
    // A ping goes the same way and is answered by the bus library: what is above it is the helper's own.
    BusCalls pings(helper::bus_name, helper::object_path);
    const BusMethod ping{"org.freedesktop.DBus.Peer", "Ping", false, std::chrono::minutes(1)};
    Times requests("authorised request without a child");
    Times echoes("ping of the helper, in turn with it");
    for (int round = 0; round < 5000; ++round) {
        echoes.add(time([&] { ASSERT_TRUE(pings.call(ping, {})); }));
        requests.add(time([&] { (void)send("EXECUTE x"); }));
    }
    requests.show();
    echoes.show();
    Times reports("chronyc report");
    for (int round = 0; round < 500; ++round)
        reports.add(time([&] { (void)send(clients); }));
    reports.show();
}

TEST_F(BystanderRootSide, GetsNothing) {
    const auto refused = channel.authorise();
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error(), Failure{.code = FailureCode::authorisation_refused}) << english(refused.error());
    EXPECT_TRUE(is_sentence(send(clients)));
    EXPECT_TRUE(is_sentence(send("EXECUTE \"" + tool + "\" stopchrony")));
    EXPECT_EQ(send("QUIT"), "quit");
}

// Whom polkit takes for an administrator, but asks before a configuration reaches further.
TEST_F(ConsentingRootSide, IsShownEveryUnsafeLineAndNothingThatCouldHideOne) {
    const std::string source = "/home/consenting/c.conf";
    authorise();
    SilentAgent dialog;
    std::ofstream(source) << "mailonchange root@localhost$( 0.5\nuser root\ndriftfile /etc/cron.d/x\n";
    EXPECT_NE(send(install_line(source, conf)).find("show safely"), std::string::npos);
    EXPECT_FALSE(dialog.is_open());
    std::ofstream(source)
        << "server <!-- iburst\n# <b> $(\nuser root\n\n driftfile\t/etc/cron.d/x\nserver --> iburst\n";
    std::string reply;
    std::thread asking([&] { reply = send(install_line(source, conf)); });
    EXPECT_TRUE(dialog.opens());
    EXPECT_EQ(dialog.question(), "This configuration lets chronyd, which starts as root, do more than usual:\n"
                                 "line 3: user root\nline 5: driftfile /etc/cron.d/x");
    channel.cancel();
    asking.join();
    EXPECT_EQ(reply, "Line 3 (user root) needs an authorisation of its own.");
    EXPECT_FALSE(fs::exists(conf));
}

TEST_F(AskedRootSide, NobodyWaitsForAPasswordWhenTheProgramEnds) {
    using Way = void (BusPrivilegedChannel::*)();
    for (const Way way : {&BusPrivilegedChannel::cancel, &BusPrivilegedChannel::disconnect}) {
        SilentAgent dialog;
        BusPrivilegedChannel own(execute, bundle + "chronyhelper");
        bool granted = true;
        std::thread asking([&] { granted = own.authorise().has_value(); });
        EXPECT_TRUE(dialog.opens());
        EXPECT_TRUE(is_sentence(own.send(clients, std::nullopt).value_or(""))) << "a request waits for no dialog";
        const auto start = Clock::now();
        (own.*way)();
        asking.join();
        const std::chrono::duration<double, std::milli> took = Clock::now() - start;
        EXPECT_LT(took, patience);
        EXPECT_FALSE(granted);
        EXPECT_TRUE(dialog.closes()) << "polkit takes the dialog away";
        std::printf("a caller that waited for a password was free after %.1f ms\n", took.count());
    }
}

} // namespace
} // namespace tickervantage
