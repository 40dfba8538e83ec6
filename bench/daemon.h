// The demonstration daemon that the benchmarks ask, and the programs they ask it with.
#pragma once

#include "chrony/demonstration/demonstration.h"

#include <string>
#include <vector>

namespace tickervantage::bench {

class Daemon {
public:
    // Ends the benchmark when the daemon cannot be started. Before there are threads or windows.
    explicit Daemon(const std::string& temporary);

    void wait_until_synchronised() const;

    [[nodiscard]] const std::string& chronyc() const { return m_chronyc; }
    [[nodiscard]] const std::string& chronyd() const { return m_chronyd; }
    [[nodiscard]] std::vector<std::string> chronyc_arguments() const { return {"-h", m_demonstration.socket()}; }

private:
    Demonstration m_demonstration;
    std::string m_chronyc;
    std::string m_chronyd;
};

} // namespace tickervantage::bench
