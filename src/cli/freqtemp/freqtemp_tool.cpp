// `tickerctl sensors`, `fit`, `record` and `plot freqtemp`, put together for this machine.
#include "cli/freqtemp/freqtemp_commands.h"
#include "cli/freqtemp/record_command.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "linux/machine_sensors.h"
#include "linux/posix_user_files.h"
#include "settings/settings_catalogue.h"
#include "studies/freqtemp/freqtemp_session.h"
#include "studies/freqtemp/freqtemp_view.h"

#include <iostream>

namespace tickervantage {

int Tool::sensors() const {
    MachineSensors sensors;
    print_sensors(sensors.read(), m_arguments.json ? OutputForm::json : OutputForm::text, std::cout);
    return 0;
}

int Tool::fit() const {
    PosixUserFiles files;
    auto map = read_points(files, m_arguments.freqtemp.file);
    if (!map)
        return fail(english(map.error()));
    const int order =
        m_arguments.freqtemp.order.value_or(static_cast<int>(load(m_settings, settings::regression_order)) + 1);
    const bool all_fit = fit_all(*map, order);
    print_fits(*map, order, m_arguments.json ? OutputForm::json : OutputForm::text, std::cout);
    return all_fit ? 0 : answer_is_no;
}

int Tool::record() {
    const std::string folder = m_paths.data_home.empty() ? std::string() : m_paths.data_home + "/Tickervantage";
    const RecordOptions options{.map = m_arguments.freqtemp.map.value_or(scatter_map_path(folder)),
                                .settings = FreqTempSettings::load(m_settings),
                                .interval_seconds = static_cast<double>(load(m_settings, settings::chronyc_interval)),
                                .for_seconds = m_arguments.freqtemp.for_seconds};
    return tickervantage::record(options, m_daemon.runner(m_settings, programs()), m_signals);
}

int Tool::freqtemp_view(FreqTempView& view) const {
    const FreqTempArguments& asked = m_arguments.freqtemp;
    const auto stored = FreqTempSettings::load(m_settings);
    PosixUserFiles files;
    auto map = read_points(files, asked.file);
    if (!map)
        return fail(english(map.error()));
    if (asked.order || asked.file.ends_with(".csv")) // a .csv brings no fits of its own
        (void)fit_all(*map, asked.order.value_or(static_cast<int>(stored.regression_order) + 1));
    for (auto& [name, entry] : *map)
        entry.digest = make_digest(entry.points);
    view.m_show_scatter_points = stored.show_scatter_points && !asked.hide_points;
    view.m_show_mean_frequency = stored.show_mean_frequency && !asked.hide_means;
    view.m_show_freq_bounds = stored.show_freq_bounds && !asked.hide_bounds;
    view.m_show_last_record = stored.show_last_record && !asked.hide_last;
    view.set_scatter(*map);
    return 0;
}

} // namespace tickervantage
