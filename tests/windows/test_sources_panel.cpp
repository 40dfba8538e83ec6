#include "gui/main/interval_view.h"
#include "gui/main/sources_panel.h"
#include "gui/main/verdict_panel.h"
#include "support/chrony_reports.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTextBrowser>

namespace tickervantage {
namespace {

using testing::capture_of;
using testing::ReportedSource;

const std::vector<CapturedFile> configuration{
    {"/etc/chrony/chrony.conf", "server b.example iburst\nserver c.example\n"}};

std::shared_ptr<const ClockTruth> truth_of(const std::vector<ReportedSource>& sources,
                                           const testing::TrackingLine& tracking = {}) {
    ChronyReports reports = reports_in(capture_of(tracking, sources));
    reports.names = {{"192.0.2.2", "b.example"}};
    return std::make_shared<const ClockTruth>(clock_truth(std::move(reports), configuration));
}

std::vector<ReportedSource> three() {
    return {{.address = "192.0.2.9", .letter = '+', .selected = '+', .last = "7"},
            {.address = "192.0.2.2", .letter = '*', .selected = '*', .last = "300"},
            {.address = "192.0.2.5",
             .letter = 'x',
             .selected = 'x',
             .last = "20",
             .interval = "-0.500300000,-0.499800000"}};
}

struct SourcesPanelTest : ::testing::Test {
    SourcesPanel panel{nullptr};
    QTableView* table = panel.findChild<QTableView*>(QStringLiteral("sources"));
    QTextBrowser* explanation = panel.findChild<QTextBrowser*>(QStringLiteral("source_explanation"));

    SourcesPanelTest() {
        panel.resize(900, 500);
        panel.show();
    }
    [[nodiscard]] std::string cell(int row, int column) const {
        return table->model()->index(row, column).data().toString().toStdString();
    }
    [[nodiscard]] std::string addresses() const {
        std::string all;
        for (int row = 0; row < table->model()->rowCount(); ++row)
            all += cell(row, SourcesModel::address).back();
        return all;
    }
};

TEST_F(SourcesPanelTest, RowsTellWhatChronydThinksOfEachSource) {
    panel.show_truth(truth_of(three()));
    const std::vector<std::vector<std::string>> expected{
        {"Used as well", "–", "192.0.2.9", "2", "64 s", "●●●●●●●●", "+50.0 µs ± 150 µs", "7 s"},
        {"Followed", "b.example", "192.0.2.2", "2", "64 s", "●●●●●●●●", "+50.0 µs ± 150 µs", "5 min"},
        {"Wrong time", "–", "192.0.2.5", "2", "64 s", "●●●●●●●●", "+50.0 µs ± 150 µs", "20 s"}};
    ASSERT_EQ(table->model()->rowCount(), 3);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < SourcesModel::column_count; ++column)
            EXPECT_EQ(cell(row, column), expected[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
    panel.show_truth(truth_of({{.address = "ID#0000000001", .letter = '?', .reach = "5", .last = testing::never}}));
    EXPECT_EQ(cell(0, SourcesModel::state), "Name not found");
    EXPECT_EQ(cell(0, SourcesModel::address), "–");
    EXPECT_EQ(cell(0, SourcesModel::reach), "○○○○○●○●");
    EXPECT_EQ(cell(0, SourcesModel::offset), "–");
    EXPECT_EQ(cell(0, SourcesModel::last_heard), "–");
}

TEST_F(SourcesPanelTest, ANarrowTableStillTellsWhichSourceIsHowFarOff) {
    panel.resize(640, 480);
    panel.show_truth(truth_of(three()));
    panel.grab(); // laid out
    for (const int column : {SourcesModel::state, SourcesModel::name, SourcesModel::offset})
        EXPECT_LE(table->columnViewportPosition(column) + table->columnWidth(column), 640) << column;
    EXPECT_GT(table->columnViewportPosition(SourcesModel::stratum),
              table->columnViewportPosition(SourcesModel::last_heard));
    const auto* intervals = panel.findChild<QWidget*>(QStringLiteral("source_intervals"));
    EXPECT_TRUE(intervals->isVisible());
    panel.show_truth(truth_of({}));
    EXPECT_FALSE(intervals->isVisible()) << "an empty picture says nothing";
}

TEST_F(SourcesPanelTest, AnyColumnSortsAndTheChoiceStaysWithItsSource) {
    panel.show_truth(truth_of(three()));
    EXPECT_EQ(addresses(), "925");
    table->selectRow(0);
    struct Case {
        int column;
        Qt::SortOrder order;
        std::string addresses;
    };
    for (const auto& [column, order, expected] :
         {Case{SourcesModel::address, Qt::AscendingOrder, "259"}, Case{SourcesModel::state, Qt::AscendingOrder, "295"},
          Case{SourcesModel::last_heard, Qt::DescendingOrder, "259"},
          Case{SourcesModel::last_heard, Qt::AscendingOrder, "952"}}) {
        table->sortByColumn(column, order);
        EXPECT_EQ(addresses(), expected) << column;
        EXPECT_EQ(table->currentIndex().siblingAtColumn(SourcesModel::address).data(), QStringLiteral("192.0.2.9"));
    }
    int resets = 0;
    QObject::connect(table->model(), &QAbstractItemModel::modelReset, &panel, [&resets] { ++resets; });
    auto changed = three();
    changed[0].last = "400"; // now the last of the order
    panel.show_truth(truth_of(changed));
    EXPECT_EQ(addresses(), "529");
    EXPECT_EQ(table->currentIndex().row(), 2);
    EXPECT_EQ(resets, 0);
    changed.erase(changed.begin() + 1);
    panel.show_truth(truth_of(changed)); // another list
    EXPECT_EQ(addresses(), "59");
    EXPECT_EQ(table->currentIndex().row(), 1);
}

TEST_F(SourcesPanelTest, ChosenRowIsExplainedWithItsLine) {
    panel.show_truth(truth_of(three()));
    table->selectRow(2);
    QString text = explanation->toPlainText();
    EXPECT_TRUE(text.startsWith(QStringLiteral("192.0.2.5: Wrong time"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("does not touch the one that 2 of 2 others share"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("What would change it: Do not use it")));
    table->selectRow(1);
    text = explanation->toPlainText();
    EXPECT_TRUE(text.contains(QStringLiteral("/etc/chrony/chrony.conf, line 1: server b.example iburst")))
        << text.toStdString();
    panel.explain_all();
    text = explanation->toPlainText();
    EXPECT_TRUE(text.startsWith(QStringLiteral("Synchronised: chronyd follows b.example"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("192.0.2.5: Wrong time")));
}

TEST_F(SourcesPanelTest, WhatASourceCallsItselfIsTextAndNoMarkup) {
    ChronyReports reports = reports_in(capture_of({}, {{.address = "<b>x</b>"}}));
    panel.show_truth(std::make_shared<const ClockTruth>(clock_truth(std::move(reports), {})));
    table->selectRow(0);
    EXPECT_TRUE(explanation->toPlainText().startsWith(QStringLiteral("<b>x</b>: ")));
}

TEST_F(SourcesPanelTest, AdministratorsReportsAreOfferedUntilTheyAreThere) {
    auto* ask = panel.findChild<QPushButton*>(QStringLiteral("ask_root_reports"));
    EXPECT_FALSE(ask->isVisible()) << "no report has come";
    int wanted = 0;
    QObject::connect(&panel, &SourcesPanel::root_reports_wanted, &panel, [&wanted] { ++wanted; });
    panel.show_truth(truth_of({{.address = "192.0.2.1"}}));
    ASSERT_TRUE(ask->isVisible());
    ask->click();
    EXPECT_EQ(wanted, 1);
    panel.show_truth(truth_of(three()));
    EXPECT_FALSE(ask->isVisible());
    panel.show_truth(truth_of({}));
    EXPECT_FALSE(ask->isVisible()) << "there is nothing to learn of no source";
}

TEST_F(SourcesPanelTest, IntervalsStandAtTheHeightOfTheirRows) {
    panel.show_truth(truth_of(three()));
    panel.grab(); // laid out
    const auto* view = panel.findChild<IntervalView*>(QStringLiteral("source_intervals"));
    table->selectRow(1);
    const IntervalPicture picture = view->picture();
    ASSERT_EQ(picture.rows.size(), 3U);
    EXPECT_EQ(picture.rows[0].middle - picture.rows[1].middle, picture.row_height);
    EXPECT_EQ(view->height() - picture.rows[0].middle, table->viewport()->y() + picture.row_height / 2);
    EXPECT_EQ(picture.rows[2].interval, (TimeInterval{-0.5003, -0.4998}));
    EXPECT_EQ(picture.rows[2].kind, IntervalRow::Kind::refused);
    EXPECT_TRUE(picture.rows[1].is_chosen && !picture.rows[0].is_chosen);
    EXPECT_EQ(picture.shared, (TimeInterval{-0.0001, 0.0002}));
}

TEST(VerdictPanel, SaysTheVerdictAndOffersToExplainWhatLooksBetterThanItIs) {
    struct Case {
        testing::TrackingLine tracking;
        ReportedSource source;
        std::string name;
        std::string error;
        bool has_notice;
    };
    const std::string bound = "Certainly within ±2.00 ms, probably within ±2.82 µs.";
    const std::vector<Case> cases{
        {{}, {.address = "192.0.2.1"}, "Synchronised", bound, false},
        {{.leap = "Insert second"}, {.address = "192.0.2.1"}, "Synchronised, leap second pending", bound, false},
        {{.id = "7F7F0101"}, {}, "Own time only", "Nothing tells how far off the clock is.", true},
        {{.system_time = "-0.5"},
         {.address = "192.0.2.1"},
         "Correcting, 500 ms left",
         "Certainly within ±502 ms.",
         true},
        {{.leap = "Not synchronised"},
         {.address = "192.0.2.1"},
         "Not synchronised",
         "Nothing tells how far off the clock is.",
         true},
    };
    VerdictPanel panel(nullptr);
    panel.show();
    for (const Case& one : cases) {
        panel.show_truth(*truth_of({one.source}, one.tracking));
        const auto words = [&panel](const char* label) {
            return panel.findChild<QLabel*>(QLatin1String(label))->text().toStdString();
        };
        EXPECT_EQ(words("verdict_name"), one.name);
        EXPECT_EQ(words("verdict_error"), one.error) << one.name;
        EXPECT_EQ(panel.findChild<QWidget*>(QStringLiteral("explain_verdict"))->isVisible(), one.has_notice)
            << one.name;
        EXPECT_EQ(panel.findChild<QWidget*>(QStringLiteral("error_budget"))->isVisible(),
                  one.error != "Nothing tells how far off the clock is.");
    }
}

TEST(VerdictPanel, OffersTheOneThingThatMends) {
    VerdictPanel panel(nullptr);
    panel.show();
    const auto* notice = panel.findChild<QWidget*>(QStringLiteral("verdict_notice"));
    auto* mend = panel.findChild<QPushButton*>(QStringLiteral("mend"));
    std::vector<Mending> wanted;
    QObject::connect(&panel, &VerdictPanel::mending_wanted, &panel,
                     [&wanted](Mending what) { wanted.push_back(what); });
    panel.show_truth({});
    EXPECT_FALSE(notice->isVisible()) << "the machine was not looked at yet";
    const auto* words = panel.findChild<QLabel*>(QStringLiteral("verdict_notice_words"));
    panel.show_mending_facts({.is_known = true, .is_running = false, .other_program = "systemd-timesyncd"});
    EXPECT_EQ(words->text(), QStringLiteral("chronyd is not running: systemd-timesyncd sets this clock, and nothing "
                                            "tells how right it is."));
    panel.show_mending_facts({.is_known = true, .is_running = false});
    EXPECT_EQ(words->text(), QStringLiteral("chronyd is not running: nothing keeps this clock right."));
    ASSERT_TRUE(mend->isVisible());
    EXPECT_EQ(mend->text(), QStringLiteral("St&art chronyd"));
    mend->click();
    panel.show_truth(*truth_of({{.address = "192.0.2.1"}}));
    EXPECT_FALSE(notice->isVisible()) << "it answers";
    panel.show_mending_facts({.is_known = true, .log = TrackingLogSetting::not_asked_for});
    ASSERT_TRUE(mend->isVisible());
    mend->click();
    EXPECT_EQ(wanted, (std::vector{Mending::start, Mending::turn_on_logging}));
    panel.show_truth(*truth_of({}, {.id = "7F7F0101"}));
    EXPECT_FALSE(mend->isVisible()) << "first what is worse";
    EXPECT_TRUE(panel.findChild<QWidget*>(QStringLiteral("explain_verdict"))->isVisible());
}

} // namespace
} // namespace tickervantage
