// Any bytes as the command line of a chronyd, and as what pgrep lists: nothing crashes, and an -x that stands alone as
// a word in front is always seen.
#include "chrony/reports/running_check.h"
#include "fuzz/require.h"

using namespace tickervantage;

namespace {

class Answers : public Execute {
public:
    explicit Answers(std::string output) : m_output(std::move(output)) {}
    [[nodiscard]] ExecuteResult run(const ExecuteRequest&) override {
        return {.outcome = ExecuteOutcome::exited, .exit_status = 0, .output = m_output, .failure = {}};
    }

private:
    std::string m_output;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    (void)forbids_adjustment(text);
    require(forbids_adjustment("chronyd -x " + text));
    Answers execute(text);
    RunningCheck check(execute, "/nonexistent/pidfile", "/nonexistent/proc");
    const auto first = check.check();
    require(check.check() == first);
    return 0;
}
