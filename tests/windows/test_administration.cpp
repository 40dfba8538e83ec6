#include "support/fake_administration.h"
#include "support/test.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

struct AdministrationTest : ::testing::Test, testing::FakeAdministration {
    std::vector<std::string> said;
    ApplicationMenus menus;

    AdministrationTest()
        : FakeAdministration({.problem = [this](PrivilegedProblem problem, const Failure& why) {
              administration->show_problem(problem, why);
          }}) {}
    void SetUp() override {
        machine.put({"/usr/local/sbin/chronyd", "/usr/local/bin/chronyc", "/etc/chrony.d/chrony.conf",
                     "/etc/systemd/system/org.chrony-project.chronyd.service"});
        QObject::connect(administration.get(), &Administration::complained,
                         [this](const QString& sentence) { said.push_back(sentence.toStdString()); });
        menus = build_application_menus(window.get());
        administration->connect_items(menus);
        window->windowDidLoad();
        window->show();
        settle();
    }
    QMessageBox* sheet(const char* name) { return window->findChild<QMessageBox*>(QLatin1String(name)); }
    static void press(QMessageBox* box, int button, bool suppress = false) {
        if (suppress)
            box->findChild<QCheckBox*>(QStringLiteral("suppress"))->setChecked(true);
        box->buttons().at(button)->click();
        delete box; // what the event loop would do
    }
    std::string status_line() { return window->findChild<QLabel*>(QStringLiteral("m_status"))->text().toStdString(); }
    void trigger(const char* name) { menus.actions.at(name)->trigger(); }
};

TEST_F(AdministrationTest, JobTellsWhatItDoesAndDisablesTheOthersMeanwhile) {
    for (const auto& [name, text] : {std::pair{"startChrony", "Starting chronyd daemon…"},
                                     {"stopChrony", "Stopping chronyd daemon…"},
                                     {"rotateLogs", "Rotating chrony's logs…"},
                                     {"runChronywake", "Running chronywake…"}}) {
        trigger(name);
        EXPECT_EQ(status_line(), text);
        Q_EMIT menus.m_action->aboutToShow();
        for (const char* item : exclusive_actions)
            EXPECT_FALSE(menus.actions.at(item)->isEnabled()) << item << " during " << name;
        EXPECT_TRUE(menus.actions.at("rotateLogs")->isEnabled());
        settle();
        Q_EMIT menus.m_action->aboutToShow();
        for (const char* item : exclusive_actions)
            EXPECT_TRUE(menus.actions.at(item)->isEnabled()) << item << " after " << name;
        EXPECT_NE(status_line(), text);
    }
}

TEST_F(AdministrationTest, JobThatFailsSaysWhyOnce) {
    fakes.channel.reply = "The unit is masked.";
    for (const auto& [name, verb, sentence] :
         {std::tuple{"startChrony", "startchrony", "chronyd was not started: The unit is masked."},
          {"stopChrony", "stopchrony", "chronyd was not stopped: The unit is masked."},
          {"runChronywake", "chronywake", "chronywake did not correct the clock: The unit is masked."}}) {
        said.clear();
        fakes.channel.failing = {verb};
        trigger(name);
        settle();
        EXPECT_EQ(said, std::vector<std::string>{sentence});
    }
}

TEST_F(AdministrationTest, RefusalIsShownAndNeverAgainOnceItIsSilenced) {
    fakes.channel.grants = false;
    for (const bool suppress : {false, true}) {
        trigger("stopChrony");
        settle();
        auto* alert = sheet("PasswordRequired");
        ASSERT_NE(alert, nullptr);
        EXPECT_EQ(alert->text(), QStringLiteral("Authorization cancelled by user"));
        EXPECT_EQ(alert->informativeText(), QStringLiteral("An admin login/password is required"));
        press(alert, 0, suppress);
    }
    trigger("stopChrony");
    settle();
    EXPECT_EQ(sheet("PasswordRequired"), nullptr);
    EXPECT_TRUE(fakes.channel.commands.empty() && said.empty());
}

TEST_F(AdministrationTest, ChronyIsRemovedOnlyWhenTheQuestionIsAnswered) {
    for (const auto& [button, removes] : {std::pair{"Cancel", false}, {"Remove", true}}) {
        trigger("uninstallChrony");
        auto* question = sheet("RemoveChrony");
        ASSERT_NE(question, nullptr);
        EXPECT_EQ(question->defaultButton()->text(), QStringLiteral("Cancel"));
        for (const auto& path : {general.chronyd, general.chronyc, general.chronywake, general.config})
            EXPECT_TRUE(question->informativeText().contains(QString::fromStdString(path))) << path;
        testing::press_button(*question, button);
        delete question;
        settle();
        EXPECT_EQ(!fakes.channel.commands.empty(), removes);
    }
}

TEST_F(AdministrationTest, OfferIsSilencedWhicheverButtonWasPressed) {
    machine.files.clear();
    for (const bool suppress : {false, true}) {
        administration->offer_installation();
        settle();
        auto* offer = sheet("FirstRunAlert");
        ASSERT_NE(offer, nullptr);
        press(offer, 1, suppress);
    }
    administration->offer_installation();
    settle();
    EXPECT_EQ(sheet("FirstRunAlert"), nullptr);
    EXPECT_TRUE(fakes.channel.commands.empty());
}

} // namespace
} // namespace tickervantage
