// A text of the user that several windows and programs save, such as a list in a file.
//
// Who saves says which text the new one was made from; what is on the disk and is neither that nor what this object
// wrote last is somebody else's, and is kept. Every function waits for the disk: on a queue, one call at a time.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

struct SharedTextReading {
    enum class Outcome : unsigned char {
        read,
        missing,
        unfit,      // nothing that we wrote: a folder, too large, no text in UTF-8
        unreadable, // permissions, a broken disk
    };
    Outcome outcome = Outcome::missing;
    std::string text;   // with `read`
    std::string reason; // with the last two: words that fit after a colon
};

class SharedText {
public:
    virtual ~SharedText() = default;

    [[nodiscard]] virtual SharedTextReading read() = 0;

    // `made_from` is what read() gave, none when it gave nothing. 0: the text stands on the disk; `kept_as` names the
    // copy of what somebody else had saved there, or is empty. -1 and one sentence: what was there is still there.
    [[nodiscard]] virtual int replace(std::string_view text, const std::optional<std::string>& made_from,
                                      std::string& kept_as, std::string& sentence) = 0;
};

} // namespace tickervantage
