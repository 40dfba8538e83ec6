#include "cli/logs/follow_command.h"

#include "chrony/log/logreader.h"
#include "cli/json_text.h"
#include "cli/terminal.h"
#include "linux/serial_queue.h"

#include <atomic>
#include <ostream>
#include <utility>

namespace tickervantage {
namespace {

// A program without a window has no event loop: lines are printed from a queue.
class QueueAsMainThread : public MainThread {
public:
    void main_async(Work work) override { m_queue.async(std::move(work)); }

private:
    SerialQueue m_queue{"net.brisklane.tickerctl"};
};

void print(std::string_view line, bool last, FollowForm form, std::ostream& out) {
    if (form == FollowForm::json)
        out << json_text(Json{{"line", line}, {"last", last}}, -1);
    else
        out << line << '\n';
    if (last)
        out.flush();
}

} // namespace

int follow_log(const std::string& name, FollowedFiles& files, FollowForm form, std::ostream& out,
               const std::function<void()>& wait) {
    std::atomic<bool> is_read = true;
    {
        QueueAsMainThread main_thread;
        SerialQueue queue{std::string(LogReader::QUEUE_LABEL)};
        const auto on_line = [&](std::string_view line, bool last) {
            print(line, last, form, out);
        };
        const auto on_problem = [&](const std::optional<Failure>& problem) {
            is_read = !problem;
            if (problem)
                complain(english(*problem));
        };
        LogReader reader(name, files, queue, main_thread, {on_line, on_problem});
        reader.follow();
        wait();
    } // lines end here
    return is_read ? 0 : has_failed;
}

} // namespace tickervantage
