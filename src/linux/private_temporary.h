// A temporary folder that only this user and this run of the program uses.
//
// Made in $XDG_RUNTIME_DIR where that is the user's own folder, else in /tmp, with mode 0700. File names are appended
// to TMPDIR as it stands by those who read it, hence its slash at the end; and in a private folder nobody else can lay
// a link under a name that the program is about to write.
//
// Make one early in main, before there are threads (it changes the environment) and before anything reads TMPDIR. It
// never fails: where no folder can be made, `problem` holds one sentence and the folder is /tmp/. The destructor
// removes the folder with all that is in it; links in it are removed, not followed. TMPDIR keeps its value then.
// A run that was killed leaves its folder behind: the next one removes it, recognised by the lock that nobody holds.
#pragma once

#include "linux/environment.h"
#include "linux/file_descriptor.h"

#include <string>

namespace tickervantage {

class PrivateTemporary {
public:
    explicit PrivateTemporary(const EnvironmentLookup& environment = process_environment,
                              const std::string& second_choice = "/tmp");
    ~PrivateTemporary();
    PrivateTemporary(const PrivateTemporary&) = delete;
    PrivateTemporary& operator=(const PrivateTemporary&) = delete;

    [[nodiscard]] const std::string& path() const { return m_path; } // WITH a slash at its end
    [[nodiscard]] const std::string& problem() const { return m_problem; }

private:
    [[nodiscard]] int make_in(const std::string& base);

    std::string m_path = "/tmp/";
    std::string m_problem;
    FileDescriptor m_lock; // held while the folder is in use; invalid: the folder is not ours
};

} // namespace tickervantage
