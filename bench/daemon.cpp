#include "bench/daemon.h"

#include "linux/posix_execute.h"

#include <cstdio>
#include <cstdlib>

namespace tickervantage::bench {
namespace {

void require(const Result<>& done) {
    if (done)
        return;
    std::fprintf(stderr, "%s\n", english(done.error()).c_str());
    std::exit(1);
}

} // namespace

Daemon::Daemon(const std::string& temporary)
    : m_chronyc(TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyc"), m_chronyd(TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyd") {
    require(m_demonstration.start(m_chronyd, temporary + "demonstration"));
}

void Daemon::wait_until_synchronised() const {
    PosixExecute execute;
    require(m_demonstration.wait_until_synchronised(execute, m_chronyc, std::chrono::seconds(20)));
}

} // namespace tickervantage::bench
