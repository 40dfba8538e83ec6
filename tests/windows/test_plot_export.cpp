#include "gui/common/plot_export.h"
#include "support/manual_dispatch.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <optional>

namespace tickervantage {
namespace {

struct PlotExportTest : ::testing::Test {
    testing::ManualQueue queue;
    testing::ManualMainThread main_thread;
    QWidget window;
    int slices_left = 2;
    bool data_is_there = true;
    std::string written;
    QString told;
    std::optional<PlotExport> exports;

    void SetUp() override {
        const auto table = [this] {
            return PlotTable{[this] {
                                 if (!data_is_there)
                                     return Taking::lost;
                                 return --slices_left > 0 ? Taking::more : Taking::all;
                             },
                             [] {
                                 return std::string("rows");
                             }};
        };
        exports.emplace(
            &window,
            PlotExportParts{.queue = queue,
                            .main_thread = main_thread,
                            .write_picture = {},
                            .write_text =
                                [this](const std::string& path, std::string_view bytes, std::string&) {
                                    written = path + ": " + std::string(bytes);
                                    return 0;
                                }},
            ExportedPlot{.widget = &window, .draw = {}, .table = table, .tell = [this](const QString& sentence) {
                             told = sentence;
                         }});
    }

    void settle() {
        while (queue.turn() || main_thread.turn()) {
        }
    }
};

TEST_F(PlotExportTest, ATableIsTakenInSlicesAndWrittenOnTheQueue) {
    exports->export_to(QStringLiteral("a.CSV"));
    EXPECT_EQ(slices_left, 1);
    main_thread.turn();
    EXPECT_EQ(slices_left, 0);
    EXPECT_EQ(written, "");
    EXPECT_EQ(told, QStringLiteral("Exporting…"));
    settle();
    EXPECT_EQ(written, "a.CSV: rows");
    EXPECT_EQ(told, QStringLiteral("Exported to a.CSV."));
}

TEST_F(PlotExportTest, AWindowThatClosesLeavesOnlyWhatWasAllTaken) {
    exports->export_to(QStringLiteral("a.csv"));
    exports.reset();
    settle();
    EXPECT_EQ(written, "") << "half a table is worse than none";
    SetUp();
    exports->export_to(QStringLiteral("b.csv"));
    exports.reset();
    settle();
    EXPECT_EQ(written, "b.csv: rows");
}

TEST_F(PlotExportTest, WhatCannotBeExportedIsSaid) {
    exports->export_to(QStringLiteral("a.csv"));
    data_is_there = false;
    settle();
    EXPECT_TRUE(told.contains(QStringLiteral("changed"))) << told.toStdString();
    exports->export_to(QStringLiteral("a.bmp"));
    EXPECT_TRUE(told.contains(QStringLiteral(".svg or .csv"))) << told.toStdString();
    settle();
    EXPECT_EQ(written, "");
}

} // namespace
} // namespace tickervantage
