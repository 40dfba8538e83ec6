#include "chrony/status/status_cycle.h"

#include "base/text_lines.h"
#include "chrony/reports/current_frequency.h"
#include "chrony/status/quiet_reading.h"

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t longest_detail = 200; // bytes of chronyc's complaint that fit into the status line

} // namespace

StatusCycle::StatusCycle(StatusDisplay& display, const StatusCycleParts& parts, StatusCycleOptions options)
    : m_display(display), m_parts(parts), m_options(std::move(options)), m_meter([this] { m_display.redraw_meter(); }),
      m_tools(make_tools()), m_updatetimer(parts.timer.make_repeater("updatetimer", Pace::free)),
      m_clockTicker(parts.timer.make_repeater("clockTicker", Pace::wall_second)),
      m_root_reports(parts.privileged, parts.report_queue, parts.main_thread, !m_options.chronyc_arguments.empty(),
                     [this] { judge_again(); }),
      m_background(parts.main_thread) {}

StatusCycle::~StatusCycle() = default;

void StatusCycle::load() {
    m_settings = MainWindowSettings::load(m_parts.settings);
    rebuild_runner();
    const bool ntpdata = m_settings.chronyCommand == "ntpdata";
    m_list_servers = ntpdata;
    restart_timer();
    m_display.show_server_field(ntpdata);
    m_display.show_status(m_chronydStatus);
    m_clockTicker->start(1.0, [this] { m_display.redraw_clock(); });
}

void StatusCycle::close() {
    show_host({}); // what goes on without a window is this machine's
    // The farewell waits for the helper. Where the program ends before it is said, the connection ends with it.
    m_parts.report_queue.async([&privileged = m_parts.privileged] { privileged.quit(); });
    m_is_closed = true;
    if (!m_installing && !is_listened_to())
        m_updatetimer->stop();
    m_settings.save(m_parts.settings);
}

bool StatusCycle::is_listened_to() const {
    return m_parts.broadcast.has_listeners(current_frequency_key);
}

ChronyPrograms programs_of(const StatusCycleOptions& options) {
    return {options.bundle, options.preferences.chronyc, options.preferences.chronyd};
}

std::string configuration_of(const StatusCycleOptions& options) {
    return options.configuration.empty() ? options.preferences.config : options.configuration;
}

DispatchQueueSerial& StatusCycle::queue() const {
    return is_remote() && m_parts.host_queue != nullptr ? *m_parts.host_queue : m_parts.queue;
}

std::vector<std::string> StatusCycle::chronyc_arguments() const {
    return is_remote() ? std::vector<std::string>{"-h", m_host} : m_options.chronyc_arguments;
}

std::shared_ptr<RefreshTools> StatusCycle::make_tools() const {
    return std::make_shared<RefreshTools>(
        RefreshTools{RunningCheck(chronyc_arguments(), m_options.root), m_options.gpsd_application_found});
}

void StatusCycle::show_host(const std::string& host) {
    if (host == m_host)
        return;
    m_host = host;
    ++m_visit;
    m_reading = m_again = false;
    m_root_report = {};
    m_basis.reset();
    m_tools = make_tools();
    m_list_servers = m_settings.chronyCommand == "ntpdata";
    m_quiet.reset();
    if (is_remote())
        m_quiet = std::make_unique<QuietReading>(
            m_parts, m_options, m_settings.m_interval,
            [this](std::shared_ptr<const ClockTruth> truth) { m_display.watch_truth(std::move(truth)); });
    rebuild_runner();
    show_nothing_yet();
    refresh();
}

// Values of the former machine must not stand under the name of this one.
void StatusCycle::show_nothing_yet() {
    m_chronydStatus = chronydStatus::unavailable;
    m_meter.setNoValue();
    m_display.show_meter_value(no_value);
    m_display.show_status(m_chronydStatus);
    m_display.show_clock_not_adjusted(false);
    m_display.show_output({});
    m_display.show_truth(std::make_shared<const ClockTruth>());
    m_display.show_notice({StatusNotice::Kind::asking, m_host});
}

void StatusCycle::programs_changed() {
    if (programs_of(m_options) == m_programs)
        return;
    rebuild_runner();
    refresh();
}

bool StatusCycle::settings_changed() {
    const MainWindowSettings former = std::exchange(m_settings, MainWindowSettings::load(m_parts.settings));
    if (m_settings == former)
        return false;
    m_root_report = {};
    m_list_servers = m_settings.chronyCommand == "ntpdata";
    m_display.show_server_field(m_list_servers);
    rebuild_runner();
    if (m_settings.m_interval != former.m_interval && m_updatetimer->is_running())
        restart_timer();
    else
        refresh();
    return true;
}

void StatusCycle::go_on_for_listeners() {
    if (m_is_closed && !m_updatetimer->is_running())
        restart_timer();
}

void StatusCycle::chronycCommand(const std::string& command) {
    m_settings.chronyCommand = command;
    m_settings.save(m_parts.settings);
    m_root_report = {};
    const bool ntpdata = command == "ntpdata";
    m_list_servers = ntpdata;
    m_display.show_server_field(ntpdata);
    refresh();
    if (is_privileged_report(command) && !is_remote() && !may_read_root())
        m_display.ask_for_rights(); // only now, not with every reading: no is no until it is chosen again
}

void StatusCycle::selectMeter(int index) {
    if (index < 0 || index >= meter_view_count) {
        m_display.stop_program("The meter has no view number " + std::to_string(index) + ".");
        return;
    }
    m_settings.m_meterview = static_cast<meterView>(index);
    m_settings.meter_error_bound = false;
    m_settings.save(m_parts.settings);
    refresh();
}

void StatusCycle::show_error_bound() {
    m_settings.meter_error_bound = true;
    m_settings.save(m_parts.settings);
    refresh();
}

void StatusCycle::showIPaddresses(bool numeric) {
    m_settings.showIPaddress = numeric;
    m_settings.save(m_parts.settings);
    rebuild_runner();
    refresh();
}

void StatusCycle::showOriginalName(bool original) {
    m_settings.showOriginalName = original;
    m_settings.save(m_parts.settings);
    rebuild_runner();
    refresh();
}

void StatusCycle::selectNTPdataServer(const std::string& server) {
    m_settings.m_server = server;
    m_settings.save(m_parts.settings);
    refresh();
}

void StatusCycle::intervalChanged(int seconds) {
    m_settings.m_interval = seconds;
    m_settings.save(m_parts.settings);
    restart_timer();
}

void StatusCycle::set_output_font(const Font& font) {
    m_settings.output_font = font;
    m_settings.save(m_parts.settings);
}

void StatusCycle::restart_timer() {
    if (m_installing)
        return;
    m_updatetimer->stop();
    refresh();
    m_updatetimer->start(m_settings.m_interval, [this] { tick(); });
}

void StatusCycle::tick() {
    if (m_visible || is_listened_to())
        if (!m_reading) // a slow chronyc is not stale: the next tick reads again
            start_reading();
}

void StatusCycle::set_visible(bool visible) {
    if (visible == m_visible)
        return;
    m_visible = visible;
    if (!visible) {
        m_clockTicker->stop();
        return;
    }
    m_display.redraw_clock();
    m_clockTicker->start(1.0, [this] { m_display.redraw_clock(); });
    if (std::exchange(m_is_closed, false))
        restart_timer();
    else if (m_updatetimer->is_running())
        refresh();
}

void StatusCycle::begin_installation() {
    if (!std::exchange(m_installing, true))
        m_updatetimer->stop();
}

void StatusCycle::end_installation() {
    m_installing = false;
    restart_timer();
}

void StatusCycle::refresh() {
    if (m_reading)
        m_again = true;
    else
        start_reading();
}

void StatusCycle::rebuild_runner() {
    m_programs = programs_of(m_options);
    m_chronyc = std::make_shared<Runchronyc>(m_parts.execute, m_parts.privileged, m_programs, !m_settings.showIPaddress,
                                             m_settings.showOriginalName, chronyc_arguments());
    // Everything the piece of work needs travels with it: this object may be gone when it runs.
    m_background.start_newest(
        m_parts.queue,
        [programs = m_programs, &execute = m_parts.execute] {
            return std::pair(read_version(version_query(execute, programs, bundle_chronyc)),
                             read_version(version_query(execute, programs, bundle_chronyd)));
        },
        [this](const auto& versions) { apply_versions(versions.first, versions.second); });
}

void StatusCycle::start_reading() {
    m_reading = true;
    m_again = false;
    RefreshRequest wanted = request();
    wanted.list_servers = std::exchange(m_list_servers, false);
    start_report(wanted);
    if (!is_remote())
        m_root_reports.read(m_chronyc);
    m_background.start(
        queue(), [wanted = std::move(wanted), tools = m_tools] { return read_status(wanted, *tools); },
        [this, visit = m_visit](const RefreshReading& reading) {
            if (visit == m_visit)
                apply(reading);
        });
}

RefreshRequest StatusCycle::request() const {
    return {.runner = m_chronyc,
            .command = m_settings.chronyCommand,
            .configuration = is_remote() ? std::string() : configuration_of(m_options),
            .server = m_settings.m_server,
            .resolve = !m_settings.showIPaddress,
            .original = m_settings.showOriginalName,
            .root_reports = is_remote() ? nullptr : m_root_reports.newest()};
}

// One at a time: a later reading asks again.
void StatusCycle::start_report(const RefreshRequest& wanted) {
    const bool is_possible = is_privileged_report(wanted.command) && may_read_root();
    if (!is_possible || std::exchange(m_reporting, true))
        return;
    m_background.start(
        m_parts.report_queue, [wanted] { return read_privileged_report(wanted); },
        [this, wanted](const ReportText& text) { apply_report(wanted, text); });
}

void StatusCycle::apply_report(const RefreshRequest& wanted, const ReportText& text) {
    m_reporting = false;
    const bool is_wanted = wanted.runner == m_chronyc && wanted.command == m_settings.chronyCommand &&
                           wanted.server == m_settings.m_server;
    if (!is_wanted) {
        start_report(request());
    } else if (!may_read_root()) {
        refresh(); // the authorisation has lapsed: the next reading says so
    } else {
        m_root_report = text;
        m_display.show_output(text.output);
    }
}

void StatusCycle::want_root_reports() {
    if (is_remote())
        return;
    m_root_reports.want();
    if (m_root_reports.can_be_read())
        m_root_reports.read(m_chronyc);
    else
        m_display.ask_for_rights(); // who gets them refreshes
}

// They come later than the reading they belong to.
void StatusCycle::judge_again() {
    if (!m_basis || is_remote())
        return;
    m_background.start(
        m_parts.queue, [basis = m_basis, root = m_root_reports.newest()] { return truth_of(*basis, root.get()); },
        [this, basis = m_basis](const std::shared_ptr<const ClockTruth>& truth) {
            if (basis == m_basis)
                m_display.show_truth(truth);
        });
}

// The next reading tells them by their names.
void StatusCycle::learn_names(const RefreshReading& reading) {
    m_background.start(
        queue(),
        [runner = m_chronyc, tools = m_tools, truth = reading.truth] { read_names(*runner, truth->reports, *tools); },
        [this] { refresh(); });
}

void StatusCycle::apply(const RefreshReading& reading) {
    m_reading = false;
    if (m_options.history != nullptr && !is_remote())
        m_options.history->keep(reading.truth, static_cast<std::int64_t>(reading.basis->now));
    if (m_again) {
        m_list_servers = m_list_servers || reading.servers.has_value();
        start_reading();
        return;
    }
    m_display.enable_gpsd_item(reading.gpsd_application_found);
    apply_tracking(reading);
    show_output(reading);
    if (reading.servers)
        apply_servers(*reading.servers);
    m_display.show_notice(notice(reading));
    if (reading.has_new_sources)
        learn_names(reading);
}

std::string StatusCycle::meter_text(const RefreshReading& reading) {
    const auto& budget = reading.truth->budget;
    const bool has_value = m_settings.meter_error_bound ? budget.has_value() : !reading.report.leapstatus.empty();
    if (!has_value) {
        m_meter.setNoValue();
        return no_value;
    }
    return set_meter(m_meter, m_settings.meter_error_bound
                                  ? MeterInput{.value = budget->bound}
                                  : choose_meter(m_chronydStatus, m_settings.m_meterview, reading.report));
}

void StatusCycle::apply_tracking(const RefreshReading& reading) {
    const bool adjusted = reading.discipline == ClockDiscipline::not_running
                              ? m_options.preferences.adj_system
                              : reading.discipline != ClockDiscipline::forbidden; // of the unknown nothing is said
    m_display.show_clock_not_adjusted(!adjusted);
    const TrackingReport& report = reading.report;
    if (report.has_frequency && !is_remote()) // who listens keeps it for good: a daemon that does not answer has none
        m_parts.broadcast.post(current_frequency_key, current_frequency{report.frequency}, Delivery::later);
    m_chronydStatus = status_from_leap(report.leapstatus);
    m_display.show_meter_value(meter_text(reading));
    m_display.show_status(m_chronydStatus);
    m_basis = reading.basis;
    m_display.show_truth(reading.truth);
}

void StatusCycle::show_output(const RefreshReading& reading) {
    if (is_privileged_report(m_settings.chronyCommand) && may_read_root())
        return; // it comes by itself
    m_display.show_output(
        m_settings.chronyCommand == "version"
            ? version_text(is_remote() ? std::string() : m_version_chronyd.text, m_version_chronyc.text)
            : reading.report_text.output);
}

StatusNotice StatusCycle::notice(const RefreshReading& reading) const {
    using Kind = StatusNotice::Kind;
    if (reading.failure)
        return {.kind = Kind::chronyc_failed, .failure = reading.failure};
    if (m_chronydStatus == chronydStatus::unavailable && !reading.report.leapstatus.empty())
        return {Kind::unusual_leap, reading.report.leapstatus.substr(0, longest_detail)};
    if (m_chronydStatus == chronydStatus::unavailable)
        return {Kind::daemon_silent, std::string(trimmed(reading.silence.substr(0, longest_detail)))};
    const bool needs_root = is_privileged_report(m_settings.chronyCommand);
    if (needs_root && is_remote())
        return {Kind::not_from_afar, m_settings.chronyCommand};
    if (needs_root && !may_read_root())
        return {Kind::needs_helper, m_settings.chronyCommand};
    auto problem = needs_root ? m_root_report.problem : reading.report_text.problem;
    if (!problem && !reading.truth->reports.problems.empty())
        problem = reading.truth->reports.problems.front();
    return problem ? StatusNotice{.kind = Kind::report_incomplete, .failure = problem} : StatusNotice{};
}

void StatusCycle::apply_versions(const ProgramVersion& chronyc, const ProgramVersion& chronyd) {
    if (chronyc.meaningless || chronyd.meaningless) {
        m_display.stop_for_version(chronyc.meaningless ? "chronyc" : "chronyd",
                                   chronyc.meaningless ? chronyc.label : chronyd.label);
        return;
    }
    m_version_chronyc = chronyc;
    m_version_chronyd = chronyd;
    m_display.show_versions(chronyc, chronyd);
    const bool offered = knows_original_names(chronyc.label);
    m_display.show_original_name_choice(offered);
    if (!offered && m_settings.showOriginalName)
        showOriginalName(false);
}

void StatusCycle::apply_servers(const std::vector<std::string>& names) {
    if (std::ranges::find(names, m_settings.m_server) == names.end())
        m_settings.m_server.clear();
    m_display.show_servers(names, m_settings.m_server);
}

} // namespace tickervantage
