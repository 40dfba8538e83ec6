// Another application of the desktop, found and started by its desktop file.
#include "gui/common/desktop_links.h"
#include "support/test.h"

#include <qtestsupport_core.h>
#include <QtWidgets>

namespace tickervantage {
namespace {

const QString id = QStringLiteral("net.example.One");

struct DesktopLinksTest : ::testing::Test {
    QTemporaryDir data;
    QObject context;
    int failures = 0;

    void SetUp() override {
        qputenv("XDG_DATA_HOME", data.path().toUtf8());
        qputenv("TMPDIR", "/tmp/private/");
        std::filesystem::create_directory(path("applications"));
    }
    void TearDown() override {
        qunsetenv("XDG_DATA_HOME");
        qunsetenv("TMPDIR");
    }
    [[nodiscard]] std::string path(const char* name) const { return data.filePath(QLatin1String(name)).toStdString(); }
    void write_entry(const std::string& lines) const {
        std::ofstream(path("applications/net.example.One.desktop"))
            << "[Desktop Entry]\nType=Application\nName=One\n" + lines + "[Desktop Action x]\nHidden=true\n";
    }
    void launch() {
        launch_application(id, &context, [this] { ++failures; });
    }
};

TEST_F(DesktopLinksTest, AnApplicationIsThereUnlessHiddenOrWithoutItsProgram) {
    EXPECT_FALSE(has_application(id));
    for (const auto& [lines, is_there] :
         {std::pair("Exec=sh\n", true), std::pair("TryExec=sh\nExec=sh\n", true),
          std::pair("Hidden=true\nExec=sh\n", false), std::pair("TryExec=/nonexistent\nExec=sh\n", false)}) {
        write_entry(lines);
        EXPECT_EQ(has_application(id), is_there) << lines;
    }
}

TEST_F(DesktopLinksTest, WhatIsStartedHasASessionOfItsOwnAndNothingOfOurs) {
    if (QStandardPaths::findExecutable(QStringLiteral("gio")).isEmpty())
        GTEST_SKIP() << "gio is not installed";
    std::ofstream(path("one.sh")) << "#!/bin/sh\n"
                                     "echo \"$1 ${TMPDIR:-none} $(sed -n 's/^SigBlk:\t//p' /proc/self/status) "
                                     "$(ps -o sid= -p $$)\" >\"$0.new\"\nmv \"$0.new\" \"$0.said\"\n";
    std::filesystem::permissions(path("one.sh"), std::filesystem::perms::owner_all);
    write_entry("Exec=" + path("one.sh") + " \"a b\" %U\n");
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
    launch();
    EXPECT_TRUE(QTest::qWaitFor([this] { return std::filesystem::exists(path("one.sh.said")); }, 20'000));
    pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
    std::string a, b, temporary, mask;
    pid_t session = -1;
    std::ifstream(path("one.sh.said")) >> a >> b >> temporary >> mask >> session;
    EXPECT_EQ(a + ' ' + b, "a b");
    EXPECT_EQ(temporary, "none");
    EXPECT_EQ(mask, "0000000000000000");
    EXPECT_NE(session, getsid(0));
    EXPECT_EQ(failures, 0);
}

TEST_F(DesktopLinksTest, AFailureIsToldOnce) {
    write_entry("Exec=/nonexistent/program\n");
    launch();
    EXPECT_TRUE(QTest::qWaitFor([this] { return failures > 0; }, 20'000));
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", "/nonexistent");
    launch();
    EXPECT_TRUE(QTest::qWaitFor([this] { return failures > 1; }, 20'000));
    qputenv("PATH", before);
    EXPECT_EQ(failures, 2);
}

} // namespace
} // namespace tickervantage
