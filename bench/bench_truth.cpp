// A thousand sources, from the text of a capture to the JSON of `tickerctl sources` and of `tickerctl explain`, against
// cutting the same text into columns and reading each as a number or a word, by the standard library.
#include "cli/status/truth_command.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace tickervantage {
namespace {

constexpr int sources = 1000;

// Each rule that takes numbers comes by; every source has a line in the configuration.
std::string rows_of(const std::string& report) {
    static constexpr std::string_view letters = "*+xxNMsDPd~W";
    std::string text = "> " + report + '\n';
    for (int i = 0; i < sources; ++i) {
        const std::string host =
            report == "sources -N" ? fmt::format("ntp{}.example.net", i) : fmt::format("10.1.{}.{}", i / 250, i % 250);
        const char letter =
            i < 2 ? letters[static_cast<std::size_t>(i)] : letters[static_cast<std::size_t>(i) % 10 + 2];
        if (report.starts_with("sources") && report != "sourcestats")
            text += fmt::format("^,{},{},2,6,377,23,0.000150000,0.000160000,0.000850000\n", i < 2 ? letter : '-', host);
        else if (report == "sourcestats")
            text += fmt::format("{},12,6,704,0.001,0.050,0.000150000,0.000031000\n", host);
        else if (report == "selectdata")
            text += fmt::format("{},{},N,-,-,-,-,-,-,-,-,-,-,23,1.0,-0.000700000,0.000950000,Normal\n", letter, host);
        else
            text += fmt::format("{},0A010001,123,10.0.0.1,0A000001,Normal,4,Server,2,6,64,-25,0.000000030,0.001,0.0002,"
                                "7F7F0101,,1795341719.135675289,-0.000000237,0.000005618,0.000000052,0.000069786,0.19,"
                                "111,111,1111,No,No,Kernel,Kernel,80,80,80,78\n",
                                host);
    }
    return text;
}

const std::string& capture_text() {
    static const std::string text = [] {
        std::string all = std::string(capture_heading) + "\n@ time 2026-11-22T10:02:59Z\n";
        for (const char* report : {"sources", "sources -N", "sourcestats", "selectdata", "ntpdata"})
            all += rows_of(report);
        all += "> configuration /etc/chrony/chrony.conf\n";
        for (int i = 0; i < sources; ++i)
            all += fmt::format("| server ntp{}.example.net iburst\n", i);
        return all;
    }();
    return text;
}

void columns(benchmark::State& state) {
    for (auto _ : state) {
        std::istringstream lines(capture_text());
        double sum = 0;
        std::vector<std::string> words;
        for (std::string line; std::getline(lines, line);) {
            std::istringstream row(line);
            for (std::string column; std::getline(row, column, ',');) {
                char* end = nullptr;
                const double number = std::strtod(column.c_str(), &end);
                if (*end == '\0')
                    sum += number;
                else
                    words.push_back(std::move(column));
            }
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(words.data());
    }
}
BENCHMARK(columns);

void listed(benchmark::State& state) {
    for (auto _ : state) {
        const ClockTruth reading = reading_of(*parse_capture(capture_text()));
        std::ostringstream out;
        (void)print_sources(reading.sources, DocumentForm::json_line, out);
        benchmark::DoNotOptimize(out.str().data());
    }
}
BENCHMARK(listed);

void explained(benchmark::State& state) {
    for (auto _ : state) {
        const ClockTruth reading = reading_of(*parse_capture(capture_text()));
        std::ostringstream out;
        (void)print_explanations(reading.explanations, DocumentForm::json_line, out);
        benchmark::DoNotOptimize(out.str().data());
    }
}
BENCHMARK(explained);

} // namespace
} // namespace tickervantage

BENCHMARK_MAIN();
