#include "gui/laboratory/compensation_page.h"
#include "gui/laboratory/compensation_words.h"
#include "settings/settings_catalogue.h"
#include "studies/freqtemp/scatter_json.h"
#include "support/fake_followed_files.h"
#include "support/memory_files.h"
#include "support/memory_stores.h"
#include "support/window_test.h"

#include <numbers>
#include <random>

namespace tickervantage {
namespace {

// Five days, a reading each five minutes, with so many ppm a degree.
std::string made_map(double slope, int days = 5) {
    std::mt19937 random(1);
    std::normal_distribution<double> normal;
    ScatterMap map;
    for (int at = 0; at < days * 288; ++at) {
        const double temperature = 40 + 6 * std::sin(2 * std::numbers::pi * at / 288) + 0.1 * normal(random);
        map["cpu"].points.append({temperature, slope * (temperature - 40) + 0.05 * normal(random)},
                                 1'790'000'000 + 300 * at);
    }
    std::string text;
    (void)write_scatter_json(map, [&text](std::string_view piece) {
        text += piece;
        return 0;
    });
    return text;
}

struct CompensationPageTest : testing::WindowTest<CompensationPage> {
    testing::MemoryFiles files;
    testing::FakeFollowedFiles logs;
    testing::MemorySettingsStore store;
    DefaultSettings settings{store};

    void open(bool can_install = true) {
        window = std::make_unique<CompensationPage>(nullptr, CompensationPageParts{.main_thread = main_thread,
                                                                                   .queue = queue,
                                                                                   .files = files,
                                                                                   .logs = logs,
                                                                                   .settings = settings,
                                                                                   .map = "/map.json",
                                                                                   .can_install = can_install});
        window->set_configuration("/none.conf");
        window->show();
        settle();
    }
    bool is_enabled(const char* button) { return find<QPushButton>(button)->isEnabled(); }
    QString figure(const QString& name) {
        const auto found = find<QTreeWidget>("compensation_figures")->findItems(name, Qt::MatchExactly);
        return found.empty() ? QString() : found.front()->text(1);
    }
};

TEST_F(CompensationPageTest, SaysWhatToDoAndOffersOnlyThat) {
    const struct {
        std::string map;
        const char* headline;
        bool offers;
    } cases[] = {{"", "No frequency was read together with a temperature yet. Keep the window", false},
                 {made_map(0.5, 2), "The temperatures go back 2.0 days; a compensation needs 3 at least. Keep", false},
                 {made_map(0), "A compensation is not worthwhile. On days that it was not made of", false},
                 {made_map(0.5), "With a compensation the clock would be", true}};
    for (const auto& [map, headline, offers] : cases) {
        files.texts.clear();
        if (!map.empty())
            files.texts["/map.json"] = map;
        open();
        EXPECT_TRUE(words("compensation_headline").starts_with(headline)) << words("compensation_headline");
        EXPECT_EQ(is_enabled("compensation_install"), offers) << headline;
        EXPECT_FALSE(is_enabled("compensation_take_back"));
    }
    EXPECT_FALSE(figure(QStringLiteral("Expected gain")).isEmpty());
    EXPECT_TRUE(figure(QStringLiteral("An hour without sources")).contains(QStringLiteral(" instead of ")));
    std::size_t sensors = 0;
    QObject::connect(window.get(), &CompensationPage::install_requested,
                     [&sensors](const ScatterMap& map) { sensors = map.size(); });
    press("compensation_install");
    EXPECT_EQ(sensors, 1U);

    open(false);
    EXPECT_FALSE(is_enabled("compensation_install")) << "a demonstration";
    files.texts["/map.json"] = "[";
    window->look();
    settle();
    EXPECT_FALSE(
        find<QTreeWidget>("compensation_figures")->findItems(QStringLiteral("Not read"), Qt::MatchExactly).empty());
}

TEST_F(CompensationPageTest, WhereTooFewPointsAreKeptOneClickKeepsEnough) {
    files.texts["/map.json"] = made_map(0.5, 2); // 576 of them
    save(settings, settings::max_samples, std::int64_t{576});
    open();
    EXPECT_TRUE(words("compensation_headline")
                    .ends_with("keeps 576 points of a sensor, and drops the oldest before "
                               "there are enough days: it has to keep 1,200."))
        << words("compensation_headline");
    std::size_t wanted = 0;
    QObject::connect(window.get(), &CompensationPage::more_points_requested,
                     [&wanted](std::size_t count) { wanted = count; });
    auto* button = find<QPushButton>("compensation_more_points");
    EXPECT_EQ(button->text(), QStringLiteral("&Keep 1,200 Points"));
    button->click();
    EXPECT_EQ(wanted, 1200U);
    save(settings, settings::max_samples, std::int64_t{1200});
    window->look();
    settle();
    EXPECT_FALSE(button->isVisible());
    EXPECT_TRUE(words("compensation_headline").ends_with("with chronyd running.")) << words("compensation_headline");
}

TEST_F(CompensationPageTest, AnInstalledOneIsJudgedByTheLogs) {
    CompensationState state;
    state.installed = InstalledCompensation{.points = {},
                                            .since = 1'790'000'000,
                                            .sensor = SensorPlace{"/sys/devices/x", "coretemp", "temp1_input"},
                                            .log_folder = "/l"};
    const auto value = [&state](const char* name) {
        for (const QStringList& row : compensation_figures(state))
            if (row.at(0) == QLatin1String(name))
                return (row.at(1) + QLatin1Char('|') + row.at(2)).toStdString();
        return std::string("none");
    };
    EXPECT_TRUE(compensation_headline(state).startsWith(QStringLiteral("A compensation is installed. What it gains")));
    EXPECT_TRUE(value("Installed since").ends_with("|coretemp temp1_input"));
    EXPECT_EQ(value("Gained in the last day"), "none") << "without logs";
    state.gain = CompensationGain{};
    EXPECT_EQ(value("Gained in the last day"), "not known yet|");
    state.gain->day = DayGain{.before = 0.4, .after = 0.1, .gain = 4};
    EXPECT_EQ(value("Gained in the last day"), "4 times|0.1 ppm instead of 0.4 ppm, by the log");
    EXPECT_EQ(compensation_headline(state),
              QStringLiteral("A compensation is installed, and the clock is 4 times steadier by it."));
    state.gain->week = DayGain{.before = 0.3, .after = 0.4, .gain = 0.75, .low = 0.6, .high = 0.9};
    EXPECT_EQ(value("Gained in the last week"), "0.75 times (0.6 to 0.9)|0.4 ppm instead of 0.3 ppm, by the log");
    EXPECT_TRUE(compensation_headline(state).endsWith(QStringLiteral("(0.75 times): take it back.")));
}

} // namespace
} // namespace tickervantage
