// Kept files in folders.
//
// Each run has a folder of its own below the one given, for the user alone, made with its first file and locked while
// the run lives. The kernel gives the lock back however the run ends; what lies in an unlocked folder was left behind,
// and belongs from then on to the run that took the lock. Files are replaced in one step.
#pragma once

#include "base/kept_files.h"
#include "linux/small_file.h"

namespace tickervantage {

class PosixKeptFiles : public KeptFiles {
public:
    explicit PosixKeptFiles(std::string folder) : m_folder(std::move(folder)) {}
    ~PosixKeptFiles() override; // leaves the files, but no empty folder
    PosixKeptFiles(const PosixKeptFiles&) = delete;
    PosixKeptFiles& operator=(const PosixKeptFiles&) = delete;

    [[nodiscard]] Result<> keep(const std::string& name, std::string_view bytes) override;
    void drop(const std::string& name) override;
    [[nodiscard]] std::vector<LeftFile> left_behind() override;
    [[nodiscard]] Result<> adopt(const std::string& path, const std::string& name) override;
    void remove(const std::string& path) override;

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
