// Any bytes as a file of points for chronyd's temperature compensation: what passes is what the C library reads line by
// line, as chronyd does, in ascending order; what does not pass is refused in one sentence.
#include "chrony/configuration/tempcomp_points.h"
#include "fuzz/require.h"

#include <cmath>
#include <cstdio>
#include <sstream>

using namespace tickervantage;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const auto points = read_tempcomp_points(text, "f");
    if (!points) {
        const std::string sentence = english(points.error());
        require(sentence.ends_with('.') && sentence.find('%') == std::string::npos);
        return 0;
    }
    require(points->size() >= 2);
    std::istringstream lines(text);
    std::string line;
    for (std::size_t at = 0; at < points->size(); ++at) {
        const TempcompPoint& point = (*points)[at];
        double temperature = 0;
        double compensation = 0;
        require(std::getline(lines, line) && line.size() < 511);
        require(std::sscanf(line.c_str(), "%lf %lf", &temperature, &compensation) == 2);
        require(temperature == point.temperature && compensation == point.compensation);
        require(std::abs(point.compensation) <= largest_compensation);
        require(at == 0 || point.temperature > (*points)[at - 1].temperature);
    }
    require(!std::getline(lines, line));
    return 0;
}
