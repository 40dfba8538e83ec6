#include "chrony/log/log_kinds.h"

#include <algorithm>

namespace tickervantage {
namespace {

using enum ColumnForm;

constexpr std::array<LogColumn, 12> tracking_columns{{{"address", text},
                                                      {"stratum", whole},
                                                      {"frequency"},
                                                      {"skew"},
                                                      {"offset"},
                                                      {"el", letter},
                                                      {"co", whole},
                                                      {"offset_sd"},
                                                      {"rem_cor"},
                                                      {"root_delay"},
                                                      {"rootdispersion"},
                                                      {"max_error"}}};
constexpr std::array<LogColumn, 18> measurements_columns{{{"source", text},
                                                          {"leap", letter},
                                                          {"stratum", whole},
                                                          {"tests_1_3", text},
                                                          {"tests_5_7", text},
                                                          {"tests_a_d", text},
                                                          {"local_poll", whole},
                                                          {"remote_poll", whole},
                                                          {"score"},
                                                          {"offset"},
                                                          {"peer_delay"},
                                                          {"peer_dispersion"},
                                                          {"root_delay"},
                                                          {"root_dispersion"},
                                                          {"reference", text},
                                                          {"mode", text},
                                                          {"transmit", letter},
                                                          {"receive", letter}}};
constexpr std::array<LogColumn, 11> statistics_columns{{{"source", text},
                                                        {"std_dev"},
                                                        {"offset"},
                                                        {"offset_sd"},
                                                        {"frequency"},
                                                        {"skew"},
                                                        {"stress"},
                                                        {"samples", whole},
                                                        {"start", whole},
                                                        {"runs", whole},
                                                        {"asymmetry"}}};
constexpr std::array<LogColumn, 8> selection_columns{{{"source", text},
                                                      {"state", letter},
                                                      {"options", text},
                                                      {"reach", octal},
                                                      {"score"},
                                                      {"last_sample"},
                                                      {"low"},
                                                      {"high"}}};
constexpr std::array<LogColumn, 7> refclocks_columns{
    {{"source", text}, {"poll", whole}, {"leap", letter}, {"pps", whole}, {"raw_offset"}, {"offset"}, {"dispersion"}}};
constexpr std::array<LogColumn, 2> tempcomp_columns{{{"temperature"}, {"compensation"}}};
constexpr std::array<LogColumn, 7> rtc_columns{
    {{"offset"}, {"valid", whole}, {"estimate"}, {"slope"}, {"samples", whole}, {"runs", whole}, {"interval", whole}}};

constexpr std::array<LogShape, log_kinds.size()> shapes{{
    {.kind = LogKind::tracking,
     .name = "tracking",
     .heading = "Skew ppm",
     .columns = tracking_columns,
     .fewest = 11,
     .has_source = true},
    {.kind = LogKind::measurements,
     .name = "measurements",
     .heading = "Peer del.",
     .columns = measurements_columns,
     .fewest = 18,
     .has_source = true},
    {.kind = LogKind::statistics,
     .name = "statistics",
     .heading = "Std dev'n",
     .columns = statistics_columns,
     .fewest = 11,
     .has_source = true},
    {.kind = LogKind::selection,
     .name = "selection",
     .heading = "EOpts Reach",
     .columns = selection_columns,
     .fewest = 8,
     .has_source = true},
    {.kind = LogKind::refclocks,
     .name = "refclocks",
     .heading = "Cooked offset",
     .columns = refclocks_columns,
     .fewest = 7,
     .has_fraction = true,
     .has_source = true},
    {.kind = LogKind::tempcomp, .name = "tempcomp", .heading = "Temp. ", .columns = tempcomp_columns, .fewest = 2},
    {.kind = LogKind::rtc, .name = "rtc", .heading = "RTC fast (s)", .columns = rtc_columns, .fewest = 7},
}};

static_assert(std::ranges::all_of(log_kinds, [](LogKind kind) {
    return shapes[static_cast<std::size_t>(kind)].kind == kind; // shape_of() looks them up by their number
}));

} // namespace

const LogShape& shape_of(LogKind kind) {
    return shapes[static_cast<std::size_t>(kind)];
}

std::optional<LogKind> log_kind_named(std::string_view name) {
    if (name == "rawmeasurements")
        return LogKind::measurements;
    const auto* const found = std::ranges::find(shapes, name, &LogShape::name);
    return found == shapes.end() ? std::nullopt : std::optional(found->kind);
}

std::optional<LogKind> kind_of_heading(std::string_view line) {
    if (!is_banner(line))
        return std::nullopt;
    const auto* const found = std::ranges::find_if(
        shapes, [&](const LogShape& shape) { return line.find(shape.heading) != std::string_view::npos; });
    return found == shapes.end() ? std::nullopt : std::optional(found->kind);
}

bool is_banner(std::string_view line) {
    return line.starts_with("====") || line.starts_with("   Date (UTC) Time");
}

} // namespace tickervantage
