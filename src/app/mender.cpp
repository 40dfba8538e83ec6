#include "app/mender.h"

#include "app/administration.h"
#include "app/alert_sheet.h"
#include "base/failure_codes.h"
#include "chrony/configuration/logging_text.h"
#include "gui/main/tickervantage_window.h"
#include "qt/in_words.h"
#include "qt/named_widget.h"

#include <QCoreApplication>
#include <QLocale>

#include <cmath>
#include <optional>
#include <utility>

namespace tickervantage {

/* TRANSLATOR mending
   What one button of the main window mends where something is wrong with chrony, and the questions before. */
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(mending)
};

// How often each source is asked, in seconds.
std::vector<double> intervals_of(const ClockTruth* truth) {
    std::vector<double> intervals;
    if (truth != nullptr)
        for (const JudgedSource& source : truth->sources)
            intervals.push_back(std::exp2(source.data.poll));
    constexpr double usual = 64;
    return intervals.empty() ? std::vector{usual} : intervals;
}

Alert logging_question(const QString& configuration, double bytes_a_day) {
    const QString cost = QLocale().formattedDataSize(std::llround(bytes_a_day), 1, QLocale::DataSizeSIFormat);
    return {.identifier = "TurnOnLogging",
            //: question before chrony's logs are turned on
            .message = Texts::tr("Turn on chrony's logging?").toStdString(),
            .informative =
                //: question before chrony's logs are turned on: %1 is a path, %2 a line of that file, %3 a size such as
                //: 1.2 MB
            Texts::tr("%1 gets the line\n%2\nThen chronyd is restarted, and everybody on this computer may read "
                      "its logs.\n\nWith the sources as they are now, the logs grow by about %3 a day.\n\nIf "
                      "chronyd does not run with it, the former configuration comes back.")
                .arg(configuration, QLatin1String(usual_log_line), cost)
                .toStdString(),
            //: buttons of that question
            .buttons = {Texts::tr("Turn On").toStdString(), Texts::tr("Cancel").toStdString()}};
}

} // namespace

Mender::Mender(MenderParts parts)
    : m_parts(std::move(parts)), m_background(m_parts.main_thread), m_asking(m_parts.main_thread) {
    auto* window = &m_parts.window;
    connect(window, &TickervantageWindow::truth_shown, this, [this](const auto& truth) { m_truth = truth; });
    connect(window, &TickervantageWindow::reading_applied, this, &Mender::look);
    connect(window, &TickervantageWindow::mending_wanted, this, &Mender::mend);
}

void Mender::look() {
    const PreferencesGeneral& general = m_parts.general;
    m_background.start_newest(
        m_parts.queue,
        [paths = InstalledPaths{general.config, general.chronyc, general.chronyd},
         is_demonstration = m_parts.administration == nullptr,
         &machine = m_parts.machine] { return look_for_mending(paths, is_demonstration, machine); },
        [this](const MendingFacts& facts) {
            m_facts = facts;
            m_parts.window.show_mending_facts(facts);
        });
}

void Mender::mend(Mending what) {
    if (m_parts.administration == nullptr) {
        Q_EMIT demonstration_left(); // the one thing that is offered there
        return;
    }
    switch (what) {
    case Mending::none:
    case Mending::explain: // the window does
        return;
    case Mending::install:
        return m_parts.administration->ask_to_install();
    case Mending::use_distribution:
        if (m_facts.distribution)
            m_parts.administration->ask_to_use(*m_facts.distribution);
        return;
    case Mending::start:
        return m_parts.administration->run({AdminJob::start}, [this](const JobResult& result) { tell(result); });
    case Mending::turn_on_logging:
        return ask_for_logging();
    case Mending::open_logs:
        return open_logs();
    }
}

void Mender::ask_for_logging() {
    const std::string path = m_parts.general.config;
    m_asking.start(
        m_parts.queue, [path, &machine = m_parts.machine] { return machine.read_file(path); },
        [this, path](const std::optional<std::string>& text) {
            if (!text) {
                Q_EMIT complained(in_words(failed(FailureCode::cannot_read, {path}).value()));
                return;
            }
            const double cost = logged_bytes_a_day(intervals_of(m_truth.get()));
            show_question(&m_parts.window, logging_question(from_std(path), cost),
                          m_asking.if_alive([this, changed = with_logging(*text)](std::size_t button) {
                              if (button == 0)
                                  turn_on_logging(changed);
                          }));
        });
}

// Logs that nobody may read are of no use to this program.
void Mender::turn_on_logging(const std::string& configuration) {
    m_parts.administration->run({.job = AdminJob::install_config, .configuration = configuration},
                                m_asking.if_alive([this](const JobResult& result) {
                                    if (result.outcome)
                                        open_logs();
                                    else
                                        tell(result);
                                }));
}

void Mender::open_logs() {
    m_parts.administration->run({AdminJob::log_permission},
                                m_asking.if_alive([this](const JobResult& result) { tell(result); }));
}

void Mender::tell(const JobResult& result) {
    if (is_untold_failure(result.outcome))
        Q_EMIT complained(in_words(result.outcome.error()));
}

} // namespace tickervantage
