#include "watch/alarm_words.h"

#include "base/translatable.h"

#include <utility>

namespace tickervantage {
namespace {

/* TRANSLATOR alarms
   What is wrong with the clock, in a notification of the desktop and in a bar of the main window. %1 stands for a
   number with its unit. */
constexpr const char* context = "alarms";

Sentence say(const char* words, std::vector<SentenceValue> values = {}) {
    return {.context = context, .words = words, .values = std::move(values)};
}

} // namespace

Sentence alarm_sentence(const WatchRule& rule, const WatchObservation& seen) {
    const double value = seen[rule.quantity].value_or(rule.raise);
    switch (rule.quantity) {
    case WatchQuantity::available:
        return say(TV_TEXT("alarms", "chronyd does not answer: nothing keeps the clock right."));
    case WatchQuantity::holdover:
        return say(TV_TEXT("alarms", "No time source has kept the clock right for %1."), {quantity::duration(value)});
    case WatchQuantity::bound:
        return say(TV_TEXT("alarms", "The clock can be off by up to %1."), {quantity::seconds(value)});
    case WatchQuantity::no_majority:
        return say(TV_TEXT("alarms", "%1 time sources contradict each other, so none is used."),
                   {quantity::count(value)});
    case WatchQuantity::usable:
        return value < 1 ? say(TV_TEXT("alarms", "None of the time sources can be used."))
                         : say(TV_TEXT("alarms", "Only %1 of the time sources can be used: nothing would tell if it "
                                                 "were wrong."),
                               {quantity::count(value)});
    case WatchQuantity::step:
        break;
    }
    return say(TV_TEXT("alarms", "The clock was off by %1, and was set."), {quantity::seconds(value)});
}

Sentence rule_title(WatchQuantity quantity) {
    switch (quantity) {
    case WatchQuantity::available:
        return say(TV_TEXT("alarms", "chronyd does not answer"));
    case WatchQuantity::holdover:
        return say(TV_TEXT("alarms", "No time source for longer than"));
    case WatchQuantity::bound:
        return say(TV_TEXT("alarms", "The clock can be off by more than"));
    case WatchQuantity::no_majority:
        return say(TV_TEXT("alarms", "The time sources contradict each other"));
    case WatchQuantity::usable:
        return say(TV_TEXT("alarms", "Fewer usable time sources than"));
    case WatchQuantity::step:
        break;
    }
    return say(TV_TEXT("alarms", "The clock was set by more than"));
}

} // namespace tickervantage
