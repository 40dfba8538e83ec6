#include "studies/spectrum/spectrum.h"
#include "studies/spectrum/spectrum_view.h"
#include "studies/spectrum/transform.h"
#include "support/recording_canvas.h"
#include "support/test.h"

#include <fmt/format.h>

namespace tickervantage {
namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr Rect BOUNDS{0, 0, 824, 424}; // a plot of 800 by 400

// A log with a record every `spacing` seconds from midnight.
void fill(TrackingRecords& records, int count, int spacing, const std::function<std::string(int)>& offset) {
    for (int i = 0; i < count; ++i) {
        const int seconds = i * spacing;
        const auto line =
            fmt::format("2024-11-{:02} {:02}:{:02}:{:02} 192.0.2.1       2 -10.5 0.1 {} N 1 1e-6 2e-6 1e-3 "
                        "1e-3 1e-3",
                        21 + seconds / 86400, seconds / 3600 % 24, seconds / 60 % 60, seconds % 60, offset(i));
        ASSERT_EQ(records.add_line(line), TrackingRecords::Added::record) << line;
    }
}

ComputedSpectrum spectrum_of_log(double interval, double duration, const std::function<std::string(int)>& offset) {
    TrackingRecords records;
    fill(records, 300, 4, offset);
    ComputedSpectrum spectrum;
    SpectrumFailure failure;
    EXPECT_EQ(compute_spectrum(records, Series::offset, interval, duration, spectrum, failure), 0)
        << english(failure_of(failure));
    return spectrum;
}

std::string constant(int) {
    return "3e-6";
}

TEST(Transform, AgreesWithTheDefinitionForEveryLength) {
    std::mt19937 random(7);
    std::normal_distribution<double> noise;
    for (const std::size_t length : {1U, 2U, 3U, 4U, 5U, 8U, 30U, 64U, 256U, 1024U}) {
        std::vector<double> values(length);
        std::ranges::generate(values, [&] { return noise(random); });
        const SpectrumPair result = dft(values);
        const double tolerance = 2e-6 * std::sqrt(static_cast<double>(length)) * 4;
        for (std::size_t k = 0; k < length; ++k) {
            std::complex<double> sum;
            for (std::size_t j = 0; j < length; ++j)
                sum += values[j] * std::polar(1.0, -2 * std::numbers::pi * static_cast<double>(j * k % length) /
                                                       static_cast<double>(length));
            const auto got = std::polar(result.magnitudes[k], result.phases[k]);
            EXPECT_NEAR(std::abs(got - sum), 0, tolerance) << length << " bin " << k;
        }
    }
    EXPECT_TRUE(dft({}).magnitudes.empty());
}

TEST(Normalise, DividesByTheElementOfLargestAbsoluteValue) {
    using Values = std::vector<double>;
    EXPECT_EQ(normalise(Values{1, 4, -2}), (Values{0.25, 1, -0.5}));
    EXPECT_EQ(normalise(Values{1, -4, 2}), (Values{-0.25, 1, -0.5}));
    EXPECT_EQ(normalise(Values{-2, 2, 1}), (Values{-1, 1, 0.5}));
    EXPECT_EQ(normalise(Values{0, 0, 0, 0, 0}), (Values{0, 0, 0, 0, 0}));
    EXPECT_TRUE(normalise({}).empty());
}

TEST(Transform, AValueThatIsNotFiniteLeavesNothingFinite) {
    for (const double value : {NOT_A_NUMBER, std::numeric_limits<double>::infinity()}) {
        const SpectrumPair result = spectrumOf(std::vector<double>{0, value, 0, 0});
        EXPECT_FALSE(std::isfinite(result.magnitudes[0]));
    }
}

struct ResamplingCase {
    const char* name;
    std::vector<TimedValue> records;
    std::size_t count;
    double interval;
    std::vector<double> samples;
};

TEST(Resampling, FollowsTheRecords) {
    const std::vector<ResamplingCase> cases{
        {"no records", {}, 3, 1, {0, 0, 0}},
        {"one record", {{10, 5}}, 2, 1, {0, 0}},
        {"newest sample extrapolated, older ones run out", {{0, 0}, {10, 10}}, 4, 5, {0, 5, 10, 15}},
        {"zeros before the oldest record", {{0, 1}, {10, 1}}, 5, 5, {0, 1, 1, 1, 1}},
        {"one record a sample, falling behind",
         {{0, 0}, {1, 1}, {2, 4}, {3, 9}, {4, 16}, {5, 25}},
         7,
         3,
         {0, -7, -14, -11, 2, 25, 52}},
        {"clock stepped back", {{0, 0}, {10, 10}, {8, 20}}, 3, 2, {6, 8, 10}},
        {"two records in a second", {{0, 0}, {4, 7}, {4, 8}}, 3, 2, {7.0 / 4 * 2, 8, 8}}};
    for (const auto& one : cases) {
        std::vector<double> samples;
        LogTime absent_at = 0;
        ASSERT_EQ(resample_series(one.records, one.count, one.interval, samples, absent_at), 0) << one.name;
        EXPECT_EQ(samples, one.samples) << one.name;
    }
}

TEST(Resampling, RefusesAnAbsentValueOnlyWhereItIsNeeded) {
    const std::vector<TimedValue> records{{0, NOT_A_NUMBER}, {10, 1}, {20, 1}};
    std::vector<double> samples{42};
    LogTime absent_at = -1;
    EXPECT_EQ(resample_series(records, 4, 10, samples, absent_at), -1);
    EXPECT_EQ(absent_at, 0);
    EXPECT_EQ(samples, std::vector<double>{42});
    EXPECT_EQ(resample_series(records, 3, 10, samples, absent_at), 0);
    EXPECT_EQ(samples, (std::vector<double>{1, 1, 1}));
}

TEST(Resampling, ThePartThatIsReachableGivesWhatTheWholeLogGives) {
    std::mt19937 random(3);
    TrackingRecords records;
    std::vector<TimedValue> all;
    fill(records, 3000, 2, [&](int) { return fmt::format("{:.3e}", std::normal_distribution<double>()(random)); });
    for (std::size_t i = 0; i < records.size(); ++i)
        all.push_back({records.time(i), records.value(Series::offset, i)});
    for (const auto& [count, interval] : {std::pair{1, 1.0}, {7, 0.3}, {50, 2.0}, {50, 100.0}, {400, 16.0}}) {
        const auto size = static_cast<std::size_t>(count);
        ReachableRecords reachable(records, Series::offset, size, interval);
        while (!reachable.read(records, 100))
            EXPECT_TRUE(reachable.are_still_in(records));
        const auto part = reachable.take();
        EXPECT_LE(part.size(), size + 2);
        std::vector<double> of_part;
        std::vector<double> of_all;
        LogTime absent_at = 0;
        ASSERT_EQ(resample_series(part, size, interval, of_part, absent_at), 0);
        ASSERT_EQ(resample_series(all, size, interval, of_all, absent_at), 0);
        EXPECT_EQ(of_part, of_all) << count << " every " << interval;
    }
}

TEST(Resampling, PassesOverTheLossOfTheReference) {
    TrackingRecords records;
    for (const auto* text : {"05:20:00 192.0.2.1 2 1 1 4", "05:20:10 0.0.0.0 0 1 1 0", "05:20:20 192.0.2.1 2 1 1 8",
                             "05:20:30 0.0.0.0 0 1 1 0"})
        ASSERT_EQ(records.add_line(std::string("2026-11-21 ") + text + " N 0 1 1 1 1"), TrackingRecords::Added::record);
    ReachableRecords reachable(records, Series::offset, 9, 10);
    EXPECT_TRUE(reachable.read(records, 9));
    EXPECT_TRUE(reachable.are_still_in(records));
    const auto part = reachable.take();
    ASSERT_EQ(part.size(), 2U);
    EXPECT_EQ(part[0].value, 4);
    EXPECT_EQ(part[1].value, 8);
}

TEST(Resampling, NoticesALogThatWasReadAnew) {
    TrackingRecords records;
    fill(records, 10, 2, constant);
    ReachableRecords reachable(records, Series::offset, 100, 2);
    EXPECT_FALSE(reachable.read(records, 3));
    fill(records, 1, 2, constant);
    EXPECT_TRUE(reachable.are_still_in(records)); // it only grew
    records.clear();
    EXPECT_FALSE(reachable.are_still_in(records));
    fill(records, 12, 1, constant);
    EXPECT_FALSE(reachable.are_still_in(records));
}

TEST(Spectrum, LengthIsTheNextPowerOfTwo) {
    struct Case {
        double interval;
        double duration;
        std::size_t count;
        std::size_t length;
    };
    for (const auto& one : {Case{4, 1024, 256, 256}, Case{1, 300, 300, 512}, Case{1, 0.5, 1, 1}, Case{1, 2, 2, 2},
                            Case{0.25, 100, 400, 512}}) {
        const auto spectrum = spectrum_of_log(one.interval, one.duration, constant);
        EXPECT_EQ(spectrum.count, one.count);
        EXPECT_EQ(spectrum.length, one.length);
        EXPECT_EQ(spectrum.magnitudes.size(), one.length);
        EXPECT_EQ(spectrum.phases.size(), one.length);
        EXPECT_DOUBLE_EQ(spectrum.samplefreq, 0.5 / one.interval);
    }
}

TEST(Spectrum, OfAConstantIsTheFirstBinAlone) {
    const auto spectrum = spectrum_of_log(4, 1024, constant);
    EXPECT_EQ(spectrum.magnitudes[0], 1);
    EXPECT_TRUE(std::all_of(spectrum.magnitudes.begin() + 1, spectrum.magnitudes.end(),
                            [](double magnitude) { return magnitude == 0; }));
}

TEST(Spectrum, PaddingIsZeros) {
    // The transform of 300 ones and 212 zeros, whose magnitudes have a closed form.
    const auto spectrum = spectrum_of_log(1, 300, constant);
    for (std::size_t k = 1; k < spectrum.length; ++k) {
        const double angle = std::numbers::pi * static_cast<double>(k) / 512;
        EXPECT_NEAR(spectrum.magnitudes[k], std::abs(std::sin(300 * angle) / std::sin(angle)) / 300, 1e-6) << k;
    }
}

TEST(Spectrum, OfASineStandsInItsBinAndTheMirroredOne) {
    constexpr int BIN = 20;
    const auto spectrum = spectrum_of_log(
        4, 1024, [](int i) { return fmt::format("{:.9e}", 1e-6 * std::sin(2 * std::numbers::pi * BIN * i / 256)); });
    for (std::size_t k = 0; k < spectrum.length; ++k)
        EXPECT_NEAR(spectrum.magnitudes[k], k == BIN || k == 256 - BIN ? 1 : 0, 0.01) << k;
    EXPECT_EQ(std::ranges::max(spectrum.phases), 1);
}

TEST(Spectrum, SaysWhyThereIsNone) {
    TrackingRecords records;
    fill(records, 20, 10, [](int i) { return i == 9 ? "-" : "1e-6"; });
    struct Case {
        double interval;
        double duration;
        const char* words;
    };
    for (const auto& one :
         {Case{0, 1024, "interval"}, Case{-4, 1024, "interval"}, Case{NOT_A_NUMBER, 1024, "interval"},
          Case{4, 1.9, "half an interval"}, Case{4, NOT_A_NUMBER, "half"}, Case{1e-3, 1e9, "16777216 samples"},
          Case{1e-320, 4, "samples"}, Case{10, 200, "The record of 2024-11-21 00:01:30 UTC has no offset."}}) {
        ComputedSpectrum spectrum;
        spectrum.count = 42;
        SpectrumFailure failure;
        EXPECT_EQ(compute_spectrum(records, Series::offset, one.interval, one.duration, spectrum, failure), -1);
        const std::string said = english(failure_of(failure));
        EXPECT_NE(said.find(one.words), std::string::npos) << said;
        EXPECT_EQ(spectrum.count, 42U);
    }
}

TEST(Spectrum, OfFewerThanTwoRecordsIsFlat) {
    const TrackingRecords records;
    ComputedSpectrum spectrum;
    SpectrumFailure failure;
    ASSERT_EQ(compute_spectrum(records, Series::rem_cor, 4, 1024, spectrum, failure), 0);
    EXPECT_EQ(spectrum.magnitudes, std::vector<double>(256, 0.0));
}

TEST(Spectrum, SeriesHaveIndexesAndNames) {
    for (const auto& [index, name] :
         {std::pair{0, "offset"}, {1, "rem_cor"}, {2, "rms_offset"}, {3, "offset"}, {-1, "offset"}}) {
        EXPECT_EQ(spectrum_series_name(spectrum_series_at(index)), name);
        EXPECT_EQ(spectrum_series_named(name), spectrum_series_at(index));
    }
    EXPECT_EQ(spectrum_series_named("skew"), std::nullopt);
}

TEST(Spectrum, TableLeavesOutWhatIsNotFinite) {
    ComputedSpectrum spectrum{
        .samplefreq = 0.125, .count = 2, .length = 2, .magnitudes = {1, NOT_A_NUMBER}, .phases = {0, -0.5}};
    EXPECT_EQ(csv_of(spectrum), "bin,axis_frequency,magnitude,phase,frequency,period,mirrored\n"
                                "0,0,1,0,0,,0\n1,0.0625,,-0.5,0.125,8,0\n");
}

TEST(Spectrum, BinsStandForTheirTrueFrequencies) {
    // A sine of 51.2 s, found where the transform of a sample every 4 s has it, and mirrored.
    const auto spectrum = spectrum_of_log(
        4, 1024, [](int i) { return fmt::format("{:.9e}", 1e-6 * std::sin(2 * std::numbers::pi * 4 * i / 51.2)); });
    const auto& magnitudes = spectrum.magnitudes;
    const auto highest = std::ranges::max_element(magnitudes.begin(), magnitudes.begin() + 128) - magnitudes.begin();
    const auto bin = static_cast<std::size_t>(highest);
    EXPECT_NEAR(period_of(spectrum, bin).value_or(0), 51.2, 1e-9);
    EXPECT_NEAR(true_frequency(spectrum, bin), 1 / 51.2, 1e-12);
    EXPECT_FALSE(is_mirrored(spectrum, bin));
    EXPECT_TRUE(is_mirrored(spectrum, 256 - bin));
    EXPECT_EQ(true_frequency(spectrum, 256 - bin), true_frequency(spectrum, bin));
    EXPECT_EQ(true_frequency(spectrum, 128), 0.125) << "half the sampling rate";
    EXPECT_FALSE(is_mirrored(spectrum, 128));
    EXPECT_EQ(period_of(spectrum, 0), std::nullopt);
}

TEST(Spectrum, CountsSamplesThatDoNotLieBetweenRecords) {
    struct Case {
        double interval; // of a log with 300 records, one every 4 s
        double duration;
        DoubtfulSamples doubtful;
        const char* words;
    };
    for (const auto& one : {Case{4, 400, {1, 0}, ""}, // the newest sample lies after the newest record
                            {1, 100, {1, 0}, ""},
                            {0.5, 2000, {1, 1606}, "1606 of 4000 samples are older"},
                            {8, 400, {48, 0}, "48 of 50 samples are extrapolated"},
                            {4, 2000, {1, 199}, "199 of 500 samples are older"}}) {
        const auto spectrum = spectrum_of_log(one.interval, one.duration, constant);
        EXPECT_EQ(spectrum.doubtful.extrapolated, one.doubtful.extrapolated) << one.interval;
        EXPECT_EQ(spectrum.doubtful.before_records, one.doubtful.before_records) << one.interval;
        EXPECT_TRUE(doubt_of(spectrum).starts_with(one.words)) << doubt_of(spectrum);
        EXPECT_EQ(doubt_of(spectrum).empty(), std::string_view(one.words).empty()) << doubt_of(spectrum);
    }
    const TrackingRecords none;
    ComputedSpectrum spectrum;
    SpectrumFailure failure;
    ASSERT_EQ(compute_spectrum(none, Series::offset, 4, 1024, spectrum, failure), 0);
    EXPECT_EQ(spectrum.doubtful, (DoubtfulSamples{0, 256}));
}

std::shared_ptr<ComputedSpectrum> spectrum_with(std::vector<double> magnitudes, double samplefreq = 0.125) {
    const std::size_t length = magnitudes.size();
    return std::make_shared<ComputedSpectrum>(ComputedSpectrum{.samplefreq = samplefreq,
                                                               .count = length,
                                                               .length = length,
                                                               .magnitudes = std::move(magnitudes),
                                                               .phases = std::vector<double>(length)});
}

testing::RecordingCanvas drawn(const SpectrumView& view, Rect bounds = BOUNDS, double pixel = 1) {
    testing::RecordingCanvas canvas;
    canvas.pixel_side = pixel;
    view.draw(canvas, bounds);
    return canvas;
}

TEST(SpectrumView, StopsAtTheFirstBinThatIsNotFinite) {
    SpectrumView view;
    view.set_spectrum(spectrum_with({1, 0.5, NOT_A_NUMBER, 0.25}));
    EXPECT_EQ(drawn(view).boxes.at(0).boxes.size(), 2U);
    EXPECT_EQ(view.reading_at(700, BOUNDS), std::nullopt);
    view.set_spectrum(spectrum_with({1})); // one bin is no spectrum
    EXPECT_TRUE(drawn(view).boxes.empty());
    view.set_spectrum(nullptr);
    EXPECT_TRUE(drawn(view).boxes.empty());
}

TEST(SpectrumView, LongSpectraKeepEveryPeakInOneBarAColumn) {
    std::vector<double> magnitudes(65536, 0.1);
    for (const std::size_t peak : {0U, 12345U, 40000U, 65535U})
        magnitudes[peak] = 1;
    SpectrumView view;
    view.set_spectrum(spectrum_with(magnitudes));
    for (const double pixel : {1.0, 0.5}) {
        const auto boxes = drawn(view, BOUNDS, pixel).boxes.at(0).boxes;
        EXPECT_EQ(boxes.size(), static_cast<std::size_t>(800 / pixel));
        EXPECT_EQ(std::ranges::count(boxes, 400.0, &Rect::height), 4);
        EXPECT_NEAR(std::ranges::find_if(boxes.begin() + 1, boxes.end(), [](Rect box) { return box.height == 400; })->x,
                    24 + 12345 * 800.0 / 65536, pixel);
    }
    EXPECT_EQ(view.reading_at(24 + 12345 * 800.0 / 65536, BOUNDS)->bin, 12345U);
}

TEST(SpectrumView, LabelsNeitherOverlapNorLeaveTheBounds) {
    SpectrumView view;
    for (const double samplefreq : {0.125, 500.0, 50000.0}) {
        view.set_spectrum(spectrum_with(std::vector<double>(64, 0.5), samplefreq));
        for (const Rect bounds : {Rect{0, 0, 100, 60}, {0, 0, 200, 100}, {0, 0, 420, 180}, {0, 0, 2000, 1000}}) {
            const auto texts = drawn(view, bounds).texts;
            for (std::size_t i = 0; i < texts.size(); ++i) {
                const auto ink = [&](std::size_t at) {
                    const Rect& box = texts[at].box;
                    return Rect{box.x, box.y + box.height - 7 - 3.7, box.width, 7.4};
                };
                const Rect one = ink(i);
                EXPECT_GE(one.x, 0) << texts[i].text;
                EXPECT_GE(one.y, 0) << texts[i].text;
                EXPECT_LE(one.x + one.width, bounds.width) << texts[i].text;
                EXPECT_LE(one.y + one.height, bounds.height) << texts[i].text;
                for (std::size_t j = i + 1; j < texts.size(); ++j) {
                    const Rect two = ink(j);
                    EXPECT_TRUE(one.x + one.width <= two.x || two.x + two.width <= one.x ||
                                one.y + one.height <= two.y || two.y + two.height <= one.y)
                        << texts[i].text << " and " << texts[j].text << " at " << bounds.width;
                }
            }
        }
    }
}

} // namespace
} // namespace tickervantage
