#include "app/demonstration_start.h"

#include "chrony/demonstration/demonstration.h"
#include "history/recording.h"
#include "linux/posix_user_files.h"
#include "studies/freqtemp/freqtemp_session.h"
#include "studies/freqtemp/recorded_temperatures.h"

#include <malloc.h>

#include <cstdio>

namespace tickervantage {
namespace {

void keep_past(const std::string& data, std::int64_t begun) {
    PosixUserFiles files;
    for (const auto& kept : {keep_recording(data + "/history.sqlite", recorded_day(begun)),
                             keep_recorded_temperatures(files, scatter_map_path(data), begun)})
        if (!kept) // there is less to see then
            std::fprintf(stderr, "tickervantage: %s\n", english(kept.error()).c_str());
}

} // namespace

Readiness bring_up(Demonstration& demonstration, const std::string& data) {
    // A day of readings goes through memory. Its large blocks would teach malloc to keep blocks of their size, and all
    // of it would stay with the program.
    constexpr int large_block = 1 << 20;
    (void)::mallopt(M_MMAP_THRESHOLD, large_block); // NOLINT(concurrency-mt-unsafe): a number, set under malloc's lock
    return std::async(std::launch::async, [&demonstration, data] {
        keep_past(data, demonstration.begun());
        (void)::malloc_trim(0);
        return demonstration.await_start();
    });
}

} // namespace tickervantage
