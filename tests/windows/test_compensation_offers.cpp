#include "app/compensation_offers.h"
#include "support/child_program.h"
#include "support/fake_administration.h"
#include "support/test.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

struct OneSensor : TemperatureSensors {
    std::vector<SensorReading> readings;
    [[nodiscard]] std::vector<SensorReading> read() override { return readings; }
    void close() override {}
};

struct CompensationOffersTest : ::testing::Test, testing::FakeAdministration {
    OneSensor sensors;
    testing::PrivateHome home;
    std::unique_ptr<CompensationOffers> offers;
    QWidget shown;

    void SetUp() override {
        general.config = home.path("config/chrony.conf");
        general.chronyd = "/usr/sbin/chronyd";
        machine.put({"/usr/sbin/chronyd", "/lib/systemd/system/chrony.service"});
        install_configuration("pool a\nlogdir /l\n");
        make_offers(administration.get());
        window->windowDidLoad();
        settle();
    }
    void make_offers(Administration* with) {
        offers = std::make_unique<CompensationOffers>(CompensationOffersParts{.main_thread = fakes.main_thread,
                                                                              .queue = fakes.queue,
                                                                              .sensor_queue = fakes.queue,
                                                                              .sensors = sensors,
                                                                              .general = general,
                                                                              .administration = with});
    }
    void install_configuration(const std::string& text) {
        testing::write_file(general.config, text);
        machine.files[general.config] = text;
    }
    QMessageBox* box(const char* name) { return shown.findChild<QMessageBox*>(QLatin1String(name)); }
    QStringList buttons(const char* name) {
        QStringList texts;
        if (box(name) != nullptr)
            for (const auto* button : box(name)->buttons())
                texts << button->text();
        return texts;
    }
};

// Five days, a reading each five minutes, with 0.5 ppm a degree or none.
ScatterMap points(double slope) {
    std::mt19937 random(1);
    std::normal_distribution<double> normal;
    ScatterMap map;
    for (int at = 0; at < 5 * 288; ++at) {
        const double temperature = 40 + 6 * std::sin(2 * std::numbers::pi * at / 288) + 0.1 * normal(random);
        map["chip-isa-0000/temp1"].points.append({temperature, slope * temperature + 0.05 * normal(random)},
                                                 1'790'000'000 + 300 * at);
    }
    return map;
}

TEST_F(CompensationOffersTest, WhatIsNotWorthWhileIsNotOfferedAndTheReasonIsTold) {
    for (const auto& [map, reason] : {std::pair{points(0), "that a gain is not sure."},
                                      {ScatterMap(), "No point of the sensors shown says when it was read."}}) {
        offers->offer(&shown, map, 1'000'000);
        settle();
        ASSERT_NE(box("NoCompensation"), nullptr) << reason;
        EXPECT_EQ(box("NoCompensation")->text(), QStringLiteral("A compensation for the temperature is not advised."));
        EXPECT_TRUE(box("NoCompensation")->informativeText().contains(QLatin1String(reason)))
            << box("NoCompensation")->informativeText().toStdString();
        EXPECT_EQ(buttons("NoCompensation"), QStringList{QStringLiteral("Dismiss")});
        delete box("NoCompensation");
    }
    offers->offer(&shown, points(0.5), 1'000'000); // the sensor has gone
    settle();
    ASSERT_NE(box("NoCompensation"), nullptr);
    EXPECT_TRUE(box("NoCompensation")->informativeText().contains(QStringLiteral("chronyd cannot read the sensor")));
    EXPECT_TRUE(fakes.channel.commands.empty());
}

TEST_F(CompensationOffersTest, AWindowThatForgetsTooSoonIsToldOf) {
    ScatterMap map;
    for (int at = 0; at < 2000; ++at)
        map["chip-isa-0000/temp1"].points.append({40.0 + at % 10, 1}, 1'790'000'000 + 10 * at);
    std::size_t wanted = 0;
    QObject::connect(offers.get(), &CompensationOffers::more_points_requested,
                     [&wanted](std::size_t count) { wanted = count; });
    offers->offer(&shown, map, 2000);
    settle();
    ASSERT_NE(box("NoCompensation"), nullptr);
    testing::press_button(*box("NoCompensation"), "Keep 35,000 Points");
    EXPECT_EQ(wanted, 35000U);
    delete box("NoCompensation");
    for (const auto& [most, is_told] : {std::pair{2000, true}, {1'000'000, false}}) {
        offers->offer(&shown, map, static_cast<std::size_t>(most));
        settle();
        ASSERT_NE(box("NoCompensation"), nullptr);
        const QString text = box("NoCompensation")->informativeText();
        EXPECT_EQ(text.contains(QStringLiteral("keeps 2,000 points of a sensor")), is_told) << text.toStdString();
        EXPECT_EQ(text.contains(QStringLiteral("it has to keep 35,000.")), is_told) << text.toStdString();
        EXPECT_EQ(buttons("NoCompensation").size(), is_told ? 2 : 1);
        delete box("NoCompensation");
    }
}

TEST_F(CompensationOffersTest, ADemonstrationShowsTheGainAndInstallsNothing) {
    make_offers(nullptr);
    offers->offer(&shown, points(0.5), 1'000'000);
    settle();
    ASSERT_NE(box("NoCompensation"), nullptr);
    const QString text = box("NoCompensation")->informativeText();
    EXPECT_TRUE(text.contains(QStringLiteral("times steadier")) && text.contains(QStringLiteral("A demonstration")));
    EXPECT_EQ(buttons("NoCompensation"), QStringList{QStringLiteral("Dismiss")});
}

TEST_F(CompensationOffersTest, TheInstalledOneIsTakenBackWhenThatIsChosen) {
    install_configuration("logdir /l\ntempcomp /etc/chrony/tickervantage.temperature 10 "
                          "/etc/chrony/tickervantage.tempcomp\nlog tracking tempcomp\n");
    fakes.channel.answer = [this](const std::string& command) -> std::optional<std::string> {
        if (command.find("installitem") != std::string::npos)
            machine.files[general.config] = "logdir /l\n";
        return "";
    };
    for (const auto& [button, commands] : {std::pair{"Dismiss", false}, {"Take Back", true}}) {
        offers->offer(&shown, points(0), 1'000'000);
        settle();
        ASSERT_NE(box("NoCompensation"), nullptr);
        EXPECT_EQ(buttons("NoCompensation").size(), 2);
        testing::press_button(*box("NoCompensation"), button);
        delete box("NoCompensation");
        settle();
        EXPECT_EQ(!fakes.channel.commands.empty(), commands) << button;
    }
    ASSERT_NE(box("CompensationEnded"), nullptr);
    const auto& all = fakes.channel.commands;
    EXPECT_TRUE(std::ranges::any_of(all, [](const auto& one) { return one.find("dropsensor") != std::string::npos; }))
        << all.size();
}

} // namespace
} // namespace tickervantage
