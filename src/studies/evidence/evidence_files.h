// Evidence from the files of a log. Calls wait for the disk: on a queue.
#pragma once

#include "base/followed_file.h"
#include "studies/evidence/evidence_page.h"

#include <functional>
#include <string>
#include <vector>

namespace tickervantage {

struct EvidenceRead {
    Evidence evidence;
    std::vector<EvidenceFile> files;
    std::vector<Failure> remarks; // lines that were left out, each file once
};

// SHA-256 of a file, in hexadecimal.
using DigestOf = std::function<Result<std::string>(const std::string& path)>;

// Of the tracking logs among the files named, and in the folders named.
[[nodiscard]] Result<EvidenceRead> read_evidence(FollowedFiles& files, const std::vector<std::string>& paths,
                                                 const EvidenceQuestion& question, const DigestOf& digest_of);

// The command that gives the same answer again, fit for a shell.
[[nodiscard]] std::string evidence_command(const std::vector<std::string>& paths, const EvidenceQuestion& question);

} // namespace tickervantage
