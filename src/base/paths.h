// Where the program's own files lie. Worked out once at start; a plain record afterwards.
#pragma once

#include <string>

namespace tickervantage {

struct Paths {
    std::string bundle;    // the application bundle, without a slash at its end
    std::string settings;  // the settings file
    std::string data_home; // the application-support folder; the program's own folder "Tickervantage" lies in it
    std::string state;     // the folder of the program's own log
    std::string temporary; // a private folder, WITH a slash at its end: file names are appended as they are

    [[nodiscard]] std::string bundle_program(const std::string& name) const {
        return bundle + "/Contents/MacOS/" + name;
    }
    [[nodiscard]] std::string bundle_resource(const std::string& name) const {
        return bundle + "/Contents/Resources/" + name;
    }
};

} // namespace tickervantage
