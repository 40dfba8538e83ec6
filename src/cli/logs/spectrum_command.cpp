#include "cli/logs/spectrum_command.h"

#include "base/failure_codes.h"
#include "chrony/log/log_pieces.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <ostream>

namespace tickervantage {
namespace {

Result<> read_records(FollowedFiles& files, const std::string& log, TrackingRecords& records) {
    auto read = read_log(files, log, [&records](std::string_view line) { records.add_line(line); });
    return !read || records.size() >= 2 ? read : failed(FailureCode::log_of_one_record, {log});
}

std::string period_text(const std::optional<double>& period) {
    return period ? fmt::format("{:.6g}", *period) : "-";
}

} // namespace

Result<ComputedSpectrum> spectrum_of_log(FollowedFiles& files, const SpectrumChoice& choice) {
    const auto series = spectrum_series_named(choice.series);
    if (!series)
        return failed(FailureCode::no_such_spectrum, {choice.series});
    TrackingRecords records;
    if (const auto read = read_records(files, choice.log, records); !read)
        return tl::unexpected(read.error());
    ComputedSpectrum spectrum;
    SpectrumFailure failure;
    if (compute_spectrum(records, *series, choice.interval, choice.duration, spectrum, failure) != 0)
        return tl::unexpected(failure_of(failure));
    return spectrum;
}

void print_spectrum(const ComputedSpectrum& spectrum, const SpectrumChoice& choice, OutputForm form,
                    std::ostream& out) {
    if (form == OutputForm::json) {
        const nlohmann::ordered_json document{{"samplefreq", spectrum.samplefreq},
                                              {"count", spectrum.count},
                                              {"length", spectrum.length},
                                              {"magnitudes", spectrum.magnitudes},
                                              {"phases", spectrum.phases},
                                              {"extrapolated", spectrum.doubtful.extrapolated},
                                              {"before_records", spectrum.doubtful.before_records}};
        out << document.dump() << '\n';
        return;
    }
    out << fmt::format("Series          : {}\n"
                       "Samples         : {}, one every {} s\n"
                       "Extrapolated    : {}\n"
                       "Before records  : {}\n"
                       "Bins            : {}, drawn from 0 to {} Hz; those marked * mirror the others\n",
                       choice.series, spectrum.count, choice.interval, spectrum.doubtful.extrapolated,
                       spectrum.doubtful.before_records, spectrum.length, spectrum.samplefreq);
    if (const std::string doubt = doubt_of(spectrum); !doubt.empty())
        out << doubt << '\n';
    out << "\n     bin frequency (Hz)     period (s)    magnitude        phase\n";
    for (std::size_t bin = 0; bin < spectrum.length; ++bin)
        out << fmt::format("{:8} {:14.6g} {:>14} {:12.6f} {:12.6f}{}\n", bin, true_frequency(spectrum, bin),
                           period_text(period_of(spectrum, bin)), spectrum.magnitudes[bin], spectrum.phases[bin],
                           is_mirrored(spectrum, bin) ? " *" : "");
}

} // namespace tickervantage
