// Any bytes as a desktop file: what is accepted has a name and a program, and no code for a file is left in it.
#include "fuzz/require.h"
#include "linux/desktop_applications.h"

using namespace tickervantage;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const auto application = parse_desktop_file(text, "/usr/share/applications/one.desktop");
    if (!application)
        return 0;
    require(!application->name.empty());
    require(!application->argv.empty() && !application->argv.front().empty());
    require(application->argv.front().find('=') == std::string::npos);
    return 0;
}
