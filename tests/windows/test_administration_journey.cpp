#include "support/keyboard.h"
#include "support/real_application.h"
#include "support/test.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

// An administrator's way through the real application, over a helper that carries out what it is asked for.
struct AdministrationJourney : testing::RealApplication {
    std::vector<std::string>& commands = fakes.channel.commands;

    void SetUp() override {
        paths.bundle = "/B.app";
        for (const char* program : {"chronyd", "chronyc", "chronywake"})
            machine_files["/B.app/Contents/MacOS/" + std::string(program)] = program;
        machine_files["/B.app/Contents/Resources/chrony.conf"] = "logdir /logs\n";
        has_administration = true;
        fakes.channel.answer = [this](const std::string& command) {
            const auto words = quoted_words(command);
            if (command.find("installitem") != std::string::npos)
                machine_files[words.at(2)] = machine_files[words.at(1)];
            return std::string("200 OK");
        };
    }
    static std::vector<std::string> quoted_words(std::string_view line) {
        std::vector<std::string> words;
        for (auto at = line.find('"'); at != std::string_view::npos; at = line.find('"')) {
            line.remove_prefix(at + 1);
            const auto end = std::min(line.find('"'), line.size());
            words.emplace_back(line.substr(0, end));
            line.remove_prefix(std::min(end + 1, line.size()));
        }
        return words;
    }
    [[nodiscard]] std::ptrdiff_t place_of(std::string_view verb) const {
        const auto found = std::ranges::find_if(
            commands, [verb](const auto& command) { return command.find(verb) != std::string::npos; });
        return found == commands.end() ? -1 : found - commands.begin();
    }
    // Answers the sheet that is open; empty: there is none.
    static std::string answer(QWidget& window, const char* button) {
        auto* sheet = window.findChild<QMessageBox*>();
        if (sheet == nullptr)
            return {};
        const auto text = sheet->text().toStdString();
        testing::press_button(*sheet, button);
        delete sheet; // what the event loop would do
        return text;
    }
    QMainWindow& main_window() { return application->main_window(); }
};

TEST_F(AdministrationJourney, OfferInstallsStartsAndReadsAgain) {
    launch();
    settle();
    const auto readings = runs_of("chronyc", "tracking");
    EXPECT_EQ(answer(main_window(), "Install"), "Warning");
    for (int second = 0; second < 60; ++second) {
        fakes.timer.advance(1);
        fakes.settle();
    }
    EXPECT_EQ(runs_of("chronyc", "tracking"), readings) << "the status rests meanwhile";
    settle();
    EXPECT_EQ(answer(main_window(), ""), "") << "nothing went wrong";
    EXPECT_LT(place_of("checkitem"), place_of("stopchrony"));
    EXPECT_LT(place_of("stopchrony"), place_of("installitem"));
    EXPECT_NE(commands.back().find("startchrony"), std::string::npos);
    EXPECT_EQ(machine_files["/etc/chrony.d/chrony.conf"], "logdir /logs\n");
    EXPECT_EQ(machine_files["/usr/local/sbin/chronyd"], "chronyd");
    EXPECT_EQ(runs_of("chronyc", "tracking"), readings + 1);
    wait(60);
    EXPECT_GT(runs_of("chronyc", "tracking"), readings + 1) << "it goes on";
    launch();
    settle();
    EXPECT_EQ(answer(main_window(), ""), "") << "all is there: no offer";
}

TEST_F(AdministrationJourney, InstallationThatIsRefusedSaysSoStopsNothingAndReadsAgain) {
    fakes.channel.failing = {"checkitem"};
    fakes.channel.answer = [](const std::string&) {
        return std::string("Nothing may be installed there.");
    };
    launch();
    settle();
    (void)answer(main_window(), "Install");
    const auto readings = runs_of("chronyc", "tracking");
    settle();
    EXPECT_EQ(answer(main_window(), "Dismiss"), "chrony was not installed: Nothing may be installed there.");
    EXPECT_EQ(place_of("stopchrony"), -1);
    EXPECT_EQ(place_of("startchrony"), -1);
    wait(60);
    EXPECT_GT(runs_of("chronyc", "tracking"), readings + 1);
}

TEST_F(AdministrationJourney, ALogIsMadeReadableFromItsWindow) {
    machine_files["/etc/chrony.d/chrony.conf"] = "logdir /logs\n";
    launch();
    settle();
    application->open_log(QStringLiteral("/logs/tracking.log"));
    auto* button = window("TrackingWindow")->findChild<QPushButton*>(QStringLiteral("makeReadable"));
    for (const char* failing : {"none", "chmod"}) {
        commands.clear();
        fakes.channel.failing = {failing};
        button->click();
        EXPECT_FALSE(button->isEnabled());
        settle();
        EXPECT_TRUE(button->isEnabled());
        EXPECT_NE(place_of("/logs/tracking.log"), -1);
        const auto* said = window("TrackingWindow")->findChild<QStatusBar*>();
        EXPECT_EQ(said != nullptr && !said->currentMessage().isEmpty(), fakes.channel.failing.front() == "chmod");
    }
    button->click();
    window("TrackingWindow")->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle(); // the answer finds nobody
}

TEST_F(AdministrationJourney, FormerConfigurationIsShownComparedAndBroughtBack) {
    const std::string installed = "/etc/chrony.d/chrony.conf";
    const std::string folder = "/var/lib/chronyhelper/history/etc-chrony.d-chrony.conf/";
    machine_files[installed] = "server b\nrtcsync\n";
    machine_files[folder + "1-1795320000-0-installed.conf"] = "server a\nrtcsync\n";
    machine_files[folder + "2-1795330000-0-rolledback.conf"] = machine_files[installed];
    launch();
    settle();
    (void)answer(main_window(), "Cancel");
    settle();
    item("formerConfigurations")->trigger();
    settle();
    auto* history = window("KeptConfigurations");
    ASSERT_NE(history, nullptr);
    auto* list = history->findChild<QTreeWidget*>(QStringLiteral("m_list"));
    auto* button = history->findChild<QPushButton*>(QStringLiteral("m_restore"));
    ASSERT_EQ(list->topLevelItemCount(), 2);
    EXPECT_EQ(list->topLevelItem(0)->text(2), QStringLiteral("root"));
    EXPECT_EQ(list->topLevelItem(0)->text(3), QStringLiteral("rolled back (in use)"));
    EXPECT_FALSE(button->isEnabled()) << "it is installed";
    list->setCurrentItem(list->topLevelItem(1));
    EXPECT_EQ(history->findChild<QPlainTextEdit*>(QStringLiteral("m_difference"))->toPlainText(),
              QStringLiteral("-server b\n+server a\n rtcsync\n"));
    EXPECT_EQ(testing::out_of_reach(*history), std::vector<std::string>());
    EXPECT_EQ(testing::clashes(testing::mnemonic_texts(*history)), std::vector<std::string>());
    for (const auto& [choice, text] :
         {std::pair{"Cancel", "server b\nrtcsync\n"}, {"Bring Back", "server a\nrtcsync\n"}}) {
        button->click();
        EXPECT_EQ(answer(*history, choice), "Bring back this configuration?");
        settle();
        EXPECT_EQ(machine_files[installed], text) << choice;
        EXPECT_EQ(list->indexOfTopLevelItem(list->currentItem()), 1) << "still chosen in the new list";
    }
    EXPECT_LT(place_of("checkitem"), place_of("stopchrony"));
    EXPECT_EQ(history->findChild<QLabel*>(QStringLiteral("words"))->text(),
              QStringLiteral("It is back, and chronyd runs with it."));
    EXPECT_EQ(list->topLevelItem(1)->text(3), QStringLiteral("installed (in use)"));
}

} // namespace
} // namespace tickervantage
