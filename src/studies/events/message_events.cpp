#include "studies/events/message_events.h"

#include "base/number_text.h"
#include "chrony/log/tracking_line.h"
#include "studies/events/event_words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tickervantage {

using event_words::say;

namespace {

std::string_view take_until(std::string_view& text, char end) {
    const auto length = std::min(text.find(end), text.size());
    const auto part = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return part;
}

// ".123", which is passed over.
void drop_fraction(std::string_view& text) {
    if (!text.starts_with('.'))
        return;
    text.remove_prefix(1);
    text.remove_prefix(std::min(text.find_first_not_of("0123456789"), text.size()));
}

// "+0100" and "+01:00" as seconds.
std::optional<int> zone_in(std::string_view text) {
    const bool has_colon = text.size() == 6 && text[3] == ':';
    if (text.size() != 5 && !has_colon)
        return std::nullopt;
    const auto hours = number_from_text<unsigned>(text.substr(1, 2));
    const auto minutes = number_from_text<unsigned>(text.substr(has_colon ? 4 : 3));
    if (!hours || !minutes || *hours > 23 || *minutes > 59 || (text[0] != '+' && text[0] != '-'))
        return std::nullopt;
    const int seconds = static_cast<int>(*hours * 3600 + *minutes * 60);
    return text[0] == '-' ? -seconds : seconds;
}

// "host chronyd[812]: " goes; what is left is the message.
std::string_view take_writer(std::string_view& text) {
    (void)take_until(text, ' ');
    const auto end = text.find(": ");
    if (end == std::string_view::npos)
        return {};
    auto writer = text.substr(0, end);
    text.remove_prefix(end + 2);
    return writer.substr(0, writer.find('['));
}

// How a message begins, and what it is. None: chronyd says so in passing.
struct Beginning {
    std::string_view text;
    std::optional<EventKind> kind;
};

constexpr std::array beginnings{
    Beginning{"chronyd version ", EventKind::start},
    Beginning{"chronyd exiting", EventKind::stop},
    Beginning{"System clock was stepped by ", EventKind::step},
    Beginning{"System's initial offset : ", EventKind::step},
    Beginning{"Selected source ", EventKind::source},
    Beginning{"Can't synchronise: no majority", EventKind::no_majority},
    Beginning{"Can't synchronise: ", EventKind::lost},
    Beginning{"No suitable source for synchronisation", EventKind::lost},
    Beginning{"Detected falseticker ", EventKind::falseticker}, // of later versions
    Beginning{"Backward time jump detected!", EventKind::backwards},
    Beginning{"Forward time jump detected!", EventKind::suspend},
    Beginning{"System clock status ", EventKind::leap},
    Beginning{"System clock was stepped for leap second", EventKind::leap},
    Beginning{"Adjusting system clock for leap second", EventKind::leap},
    Beginning{"Frequency ", std::nullopt},
    Beginning{"Initial frequency ", std::nullopt},
    Beginning{"Using ", std::nullopt},
    Beginning{"Loaded ", std::nullopt},
    Beginning{"Enabled ", std::nullopt},
    Beginning{"Disabled ", std::nullopt},
    Beginning{"Running with root privileges", std::nullopt},
    Beginning{"System clock TAI offset set to ", std::nullopt},
};

// The first number behind the text's beginning.
std::optional<double> number_behind(std::string_view text, std::string_view beginning) {
    text.remove_prefix(beginning.size());
    return number_from_text<double>(take_until(text, ' '));
}

Sentence in_chronyds_words(std::string_view text) {
    return say("%1", {std::string(text)});
}

// "Selected source 192.0.2.1 (ntp.example.net)", "Can't synchronise: no selectable sources"
void tell_source(ClockEvent& event, std::string_view text) {
    event.source = take_until(text, ' ');
    event.sentence =
        event.kind == EventKind::source
            ? say(TV_TEXT("clock_events", "chronyd chose %1 to follow."), {event.source})
            : say(TV_TEXT("clock_events", "%1 disagreed with the other sources and was not believed."), {event.source});
}

void tell_step(ClockEvent& event, std::string_view text, std::string_view beginning) {
    event.value = number_behind(text, beginning);
    // "… 0.123456 seconds fast of true (step)": it was stepped back by as much
    const bool is_initial = beginning.starts_with("System's");
    if (is_initial && text.find(" fast ") != std::string_view::npos && event.value)
        event.value = -*event.value;
    if (is_initial && !text.ends_with("(step)"))
        event.kind = EventKind::other;
    else if (event.value)
        event.sentence =
            say(TV_TEXT("clock_events", "chronyd stepped the clock by %1."), {quantity::signed_seconds(*event.value)});
    if (event.kind == EventKind::other)
        event.value.reset();
}

void tell_leap(ClockEvent& event, std::string_view text) {
    if (text.find("insert") != std::string_view::npos)
        event.value = 1;
    if (text.find("delete") != std::string_view::npos)
        event.value = -1;
}

void put_into_words(ClockEvent& event, std::string_view text, std::string_view beginning) {
    switch (event.kind) {
    case EventKind::start:
        event.sentence = say(TV_TEXT("clock_events", "chronyd was started."));
        break;
    case EventKind::stop:
        event.sentence = say(TV_TEXT("clock_events", "chronyd ended."));
        break;
    case EventKind::source:
    case EventKind::falseticker:
        tell_source(event, text.substr(beginning.size()));
        break;
    case EventKind::no_majority:
        event.sentence = say(TV_TEXT("clock_events", "The sources disagreed without a majority: none was followed."));
        break;
    case EventKind::step:
        tell_step(event, text, beginning);
        break;
    case EventKind::suspend:
        event.sentence = say(TV_TEXT("clock_events", "Time jumped forward: the machine slept, or its clock was set."));
        break;
    case EventKind::backwards:
        event.sentence = say(TV_TEXT("clock_events", "Time jumped backward: the clock was set."));
        break;
    case EventKind::leap:
        tell_leap(event, text);
        break;
    default:
        break;
    }
}

} // namespace

std::optional<LoggedMessage> message_in(std::string_view line) {
    constexpr std::size_t date = 10;
    constexpr std::size_t moment = 19; // "2026-11-22T01:04:33"
    if (line.size() <= moment || line[date] != 'T')
        return std::nullopt;
    const auto second = log_time(line.substr(0, date), line.substr(date + 1, moment - date - 1));
    auto rest = line.substr(moment);
    drop_fraction(rest);
    const auto zone = take_until(rest, ' ');
    const bool is_own = zone == "Z"; // as chronyd itself writes
    const auto ahead = is_own ? std::optional(0) : zone_in(zone);
    if (!second || !ahead)
        return std::nullopt;
    const auto writer = is_own ? std::string_view("chronyd") : take_writer(rest);
    return LoggedMessage{static_cast<double>(*second - *ahead), writer, rest};
}

bool MessageEvents::add_line(std::string_view line, const EventPlace& place) {
    if (line.starts_with("-- ")) { // journalctl's own
        if (line.starts_with("-- Boot ") || line.starts_with("-- Reboot"))
            note_boot();
        return true;
    }
    const auto message = message_in(line);
    if (message)
        add(*message, place);
    return message.has_value();
}

void MessageEvents::add(const LoggedMessage& message, const EventPlace& place) {
    if (std::exchange(m_has_booted, false))
        m_events.push_back({.time = message.time,
                            .kind = EventKind::reboot,
                            .sentence = say(TV_TEXT("clock_events", "The machine was started.")),
                            .place = place});
    if (message.writer == "chronyd")
        add_of_chronyd(message, place);
    else if (message.text.starts_with("PM: suspend entry") || message.text.starts_with("Entering sleep state"))
        note_sleep(message, place);
}

// The kernel and systemd both tell it.
void MessageEvents::note_sleep(const LoggedMessage& message, const EventPlace& place) {
    constexpr double same = 10; // s
    const auto before = std::exchange(m_slept, message.time);
    if (!before || std::abs(message.time - *before) > same)
        m_events.push_back({.time = message.time,
                            .kind = EventKind::suspend,
                            .sentence = say(TV_TEXT("clock_events", "The machine went to sleep.")),
                            .place = place});
}

void MessageEvents::add_of_chronyd(const LoggedMessage& message, const EventPlace& place) {
    const auto* const found =
        std::ranges::find_if(beginnings, [&](const Beginning& one) { return message.text.starts_with(one.text); });
    if (message.text.empty() || (found != beginnings.end() && !found->kind))
        return;
    ClockEvent event{.time = message.time,
                     .kind = found == beginnings.end() ? EventKind::other : *found->kind,
                     .sentence = in_chronyds_words(message.text),
                     .place = place};
    if (found != beginnings.end())
        put_into_words(event, message.text, found->text);
    m_events.push_back(std::move(event));
}

void JournalEvents::add(const LoggedMessage& message, const std::string& boot) {
    if (!m_boot.empty() && m_boot != boot)
        m_messages.note_boot();
    m_boot = boot;
    m_messages.add(message, {});
}

void JournalEvents::append_to(std::vector<ClockEvent>& events) const {
    events.insert(events.end(), m_messages.events().begin(), m_messages.events().end());
}

} // namespace tickervantage
