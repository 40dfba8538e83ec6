#include "bench/daemon.h"

#include "linux/posix_execute.h"

#include <cstdio>
#include <cstdlib>

namespace tickervantage::bench {
namespace {

void require(int result, const std::string& sentence) {
    if (result == 0)
        return;
    std::fprintf(stderr, "%s\n", sentence.c_str());
    std::exit(1);
}

} // namespace

Daemon::Daemon(const std::string& temporary)
    : m_chronyc(TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyc"), m_chronyd(TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyd") {
    std::string sentence;
    require(m_demonstration.start(m_chronyd, temporary + "demonstration", sentence), sentence);
}

void Daemon::wait_until_synchronised() const {
    PosixExecute execute;
    std::string sentence;
    require(m_demonstration.wait_until_synchronised(execute, m_chronyc, std::chrono::seconds(20), sentence), sentence);
}

} // namespace tickervantage::bench
