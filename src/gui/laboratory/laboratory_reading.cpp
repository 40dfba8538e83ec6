// What the laboratory looks at is read, and read again.
#include "gui/laboratory/laboratory_window.h"
#include "gui/laboratory/laboratory_words.h"
#include "qt/in_words.h"
#include "studies/laboratory/stored_clock.h"

#include <QComboBox>
#include <QLabel>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

constexpr int longest_rest = 15; // min

// Until a hundredth more is there: less would not be seen. Where there is nothing yet, something may come at any time.
int rest_of(const LaboratoryData* data) {
    constexpr double share = 0.01;
    constexpr double minute = 60;
    if (data == nullptr)
        return 1;
    const auto& records = data->clock.records;
    const auto seconds = static_cast<double>(records.back().time - records.front().time);
    return static_cast<int>(std::clamp(seconds * share / minute, 1.0, double{longest_rest}));
}

bool is_same(const FreeRunningClock& one, const FreeRunningClock& other) {
    return one.records.size() == other.records.size() && one.records.back().time == other.records.back().time;
}

} // namespace

struct LaboratoryWindow::Loaded {
    std::shared_ptr<LaboratoryData> data; // null: failed
    std::optional<Failure> failure;
};

void LaboratoryWindow::choose(std::size_t place, bool or_store) {
    m_source->setCurrentIndex(static_cast<int>(place));
    m_data.reset();
    //: laboratory: said while a log is read
    m_origins->setText(tr("Reading…"));
    read(place, [this, place, or_store](const Loaded& loaded) { take(loaded, place, or_store); });
}

template <typename Then>
void LaboratoryWindow::read(std::size_t place, Then then) {
    m_minutes_to_rest = longest_rest; // unless what is read says otherwise
    m_background.start_newest(
        *m_parts.queue,
        [&files = m_parts.files, chosen = m_places.at(place)] {
            auto clock = chosen.is_store ? read_stored_clock(chosen.path) : read_free_running_clock(files, chosen.path);
            if (!clock)
                return Loaded{nullptr, clock.error()};
            auto read = std::make_shared<LaboratoryData>();
            read->phase = phase_of(*clock);
            read->clock = std::move(*clock);
            read->name = chosen.name;
            return Loaded{std::move(read), std::nullopt};
        },
        std::move(then));
}

void LaboratoryWindow::follow() {
    if (!isVisible() || isMinimized() || m_places.empty() || --m_minutes_to_rest > 0)
        return;
    const auto place = static_cast<std::size_t>(m_source->currentIndex());
    if (!m_data && m_places.at(place).is_store)
        return choose(0, true); // the log may have begun
    read(place, [this](const Loaded& loaded) { take_more(loaded); });
}

// What cannot be read for once, as while it is rotated, leaves what is shown as it is.
void LaboratoryWindow::take_more(const Loaded& loaded) {
    m_minutes_to_rest = rest_of(loaded.data.get());
    if (!loaded.data || (m_data && is_same(loaded.data->clock, m_data->clock)))
        return;
    m_data = loaded.data;
    for (LaboratoryPage* page : m_pages)
        page->follow(m_data);
    show_origins();
}

void LaboratoryWindow::take(const Loaded& loaded, std::size_t place, bool or_store) {
    const bool has_other = place + 1 < m_places.size() && m_places.at(place + 1).is_store;
    if (!loaded.data && or_store && has_other) {
        say(in_words(*loaded.failure)); // why it is not the log
        return choose(place + 1, false);
    }
    const QString reason = loaded.data ? QString() : refusal_of(*loaded.failure, m_places.at(place));
    m_data = loaded.data;
    m_minutes_to_rest = rest_of(m_data.get());
    for (LaboratoryPage* page : m_pages)
        page->set_data(m_data, reason);
    if (m_data)
        show_origins();
    else
        m_origins->setText(reason.section(QLatin1Char('\n'), 0, 0));
}

void LaboratoryWindow::show_origins() {
    QString origins = origin_words(*m_data);
    if (m_places.at(static_cast<std::size_t>(m_source->currentIndex())).is_store)
        //: laboratory: below the pages, where readings are used and no log
        origins +=
            QLatin1Char(' ') + tr("Used are the whole readings of the last week; older ones are thinned to minutes and "
                                  "hours, which lose the single offsets.");
    m_origins->setText(origins);
}

QString LaboratoryWindow::refusal_of(const Failure& failure, const Place& place) const {
    QString text = in_words(failure);
    if (place.is_store)
        //: laboratory: what to do while there are no readings yet
        return text + QStringLiteral("\n\n") +
               tr("This program keeps a reading every few seconds: leave its main window open for a while, or choose "
                  "“Turn On "
                  "Logs…” to have chrony write a tracking log.");
    //: laboratory: what to do where a log cannot be read
    return text + QStringLiteral("\n\n") +
           tr("Choose “Turn On Logs…” to have chrony write one, or “Open Log…” for one from elsewhere.");
}

} // namespace tickervantage
