// Which chrony the whole program works with, from the preferences to the next run.
#include "support/real_application.h"
#include "support/test.h"

namespace tickervantage {
namespace {

struct PathsInUse : testing::RealApplication {
    QTemporaryDir folder;

    // A file that can be configured; what it answers is in `fakes.execute`, under its name.
    std::string program(const std::string& name) {
        const auto path = folder.filePath(QString::fromStdString(name)).toStdString();
        std::ofstream(path) << name;
        return path;
    }

    QLineEdit* field(const char* name) {
        item("showPreferences")->trigger();
        settle();
        return window("Preferences")->findChild<QLineEdit*>(QLatin1String(name));
    }
    void type(const char* name, const std::string& text) {
        auto* edited = field(name);
        edited->setText(QString::fromStdString(text));
        Q_EMIT edited->textEdited(edited->text());
        settle();
    }
    void finish_edit(const char* name) {
        Q_EMIT field(name)->editingFinished();
        settle();
    }
    [[nodiscard]] std::string shown(const char* name) { return field(name)->text().toStdString(); }

    void install_distributions_chrony() {
        for (const char* path :
             {"/etc/chrony/chrony.conf", "/usr/bin/chronyc", "/usr/sbin/chronyd", "/lib/systemd/system/chrony.service"})
            machine_files[path] = "";
    }
};

TEST_F(PathsInUse, ChangedPathIsUsedByTheNextRunAndHalfAPathIsNotRun) {
    launch();
    type("m_chronyc", program("mine"));
    EXPECT_EQ(runs_of("mine", ""), 0) << "it is still being typed";
    finish_edit("m_chronyc");
    EXPECT_EQ(runs_of("mine", "|activity"), 1);
    EXPECT_EQ(runs_of("mine", "|-v"), 1);
    EXPECT_EQ(fakes.store.values["file_chronyc"], std::vector<std::string>{program("mine")});
    finish_edit("m_chronyc");
    EXPECT_EQ(runs_of("mine", "|-v"), 1) << "nothing was changed";
}

TEST_F(PathsInUse, WrongProgramLeavesAWayToThePreferences) {
    fakes.store.values["file_chronyd"] = {program("hello")};
    fakes.execute.answer("hello", "hello\n");
    launch();
    EXPECT_FALSE(application->is_stopping());
    const auto* notice = application->main_window().findChild<QWidget*>(QStringLiteral("wrong_program"));
    EXPECT_TRUE(notice->isVisible());
    EXPECT_EQ(window("Preferences"), nullptr);
    notice->findChild<QPushButton*>()->click();
    ASSERT_NE(window("Preferences"), nullptr);
    fakes.execute.answer("right", "chronyd (chrony) version 4.3 (+CMDMON)\n");
    type("m_chronyd", program("right"));
    finish_edit("m_chronyd");
    EXPECT_FALSE(notice->isVisible());
}

TEST_F(PathsInUse, WhatIsSetElsewhereIsFollowedAndNotUndone) {
    launch();
    type("m_make_limit", "9"); // not saved yet
    fakes.store.values["file_chronyc"] = {program("theirs")};
    fakes.store.values["chronyc_interval"] = {"5"};
    fakes.store.values["enable_spectrum_win"] = {"true"};
    application->settings_changed();
    settle();
    EXPECT_EQ(runs_of("theirs", "|activity"), 1);
    EXPECT_EQ(application->main_window().findChild<QSpinBox*>(QStringLiteral("m_interval"))->value(), 5);
    EXPECT_EQ(fakes.timer.find("updatetimer")->interval(), 5);
    EXPECT_TRUE(item("showSpectrum")->isVisible());
    EXPECT_EQ(shown("m_chronyc"), program("theirs"));
    EXPECT_EQ(shown("m_make_limit"), "9");

    fakes.store.values["burst_good"] = {"6"}; // while nobody looks
    application->main_window().close();
    application->applicationWillTerminate();
    EXPECT_EQ(fakes.store.values["burst_good"], std::vector<std::string>{"6"});
    EXPECT_EQ(fakes.store.values["chronyc_interval"], std::vector<std::string>{"5"});
    EXPECT_EQ(fakes.store.values["make_limit"], std::vector<std::string>{"9"});
}

TEST_F(PathsInUse, DistributionsChronyIsUsedUnaskedAndThatIsToldOnce) {
    install_distributions_chrony();
    has_administration = true;
    launch();
    settle();
    const auto told = [this] {
        return application->main_window().findChild<QMessageBox*>(QStringLiteral("SystemChronyAlert")) != nullptr;
    };
    EXPECT_TRUE(told());
    EXPECT_EQ(shown("m_config") + shown("m_chronyd"), "/etc/chrony/chrony.conf/usr/sbin/chronyd");
    EXPECT_EQ(runs_of("chronyd", "|-v"), 1) << "the packages see to its version";
    application->main_window().close();
    application->applicationWillTerminate();
    EXPECT_FALSE(fakes.store.values.contains("file_config")) << "nobody has set it";
    launch();
    settle();
    EXPECT_FALSE(told());

    type("m_config", "/x");
    finish_edit("m_config");
    EXPECT_EQ(fakes.store.values["file_chronyd"], std::vector<std::string>{"/usr/sbin/chronyd"}) << "it stays in use";
    window("Preferences")->findChild<QPushButton*>(QStringLiteral("restoreDefaults"))->click();
    settle();
    EXPECT_EQ(shown("m_config"), "/etc/chrony/chrony.conf");
    EXPECT_FALSE(fakes.store.values.contains("file_config"));
}

} // namespace
} // namespace tickervantage
