// Files that one run of the program keeps for the next, in case it ends suddenly.
//
// Each run has a folder of its own below the one given, for the user alone, made with its first file and locked while
// the run lives. The kernel gives the lock back however the run ends; what lies in an unlocked folder was left behind,
// and belongs from then on to the run that took the lock. Files are replaced in one step. These functions wait for the
// disk; one thread.
#pragma once

#include "linux/small_file.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

class KeptFiles {
public:
    explicit KeptFiles(std::string folder) : m_folder(std::move(folder)) {}
    ~KeptFiles(); // leaves the files, but no empty folder
    KeptFiles(const KeptFiles&) = delete;
    KeptFiles& operator=(const KeptFiles&) = delete;

    // A name is that of a file without folders.
    [[nodiscard]] Result<> keep(const std::string& name, std::string_view bytes);
    void drop(const std::string& name);

    // Tells of each file of runs that have ended, oldest first. A file that cannot be read stays where it is.
    void visit_left(const std::function<void(const std::string& path, std::string bytes)>& visit);

    // Of a file that was left behind: makes it one of this run's, or removes it.
    [[nodiscard]] Result<> adopt(const std::string& path, const std::string& name);
    void remove(const std::string& path);

private:
    struct Taken {
        std::string folder;
        FileLock lock;
    };

    [[nodiscard]] Result<> make_own();
    [[nodiscard]] Result<> keep_once(const std::string& name, std::string_view bytes);
    [[nodiscard]] bool take(const std::string& folder);
    [[nodiscard]] std::string path_of(const std::string& name) const { return m_own + "/" + name; }

    std::string m_folder;
    std::string m_own; // empty: nothing was kept yet
    FileLock m_lock;   // of the own folder
    std::vector<Taken> m_taken;
};

} // namespace tickervantage
