// A text of the user that several windows and programs save, such as a list in a file.
//
// Who saves says which text the new one was made from; what is on the disk and is neither that nor what this object
// wrote last is somebody else's, and is kept. Every function waits for the disk: on a queue, one call at a time.
#pragma once

#include "base/user_files.h"

#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

class SharedText {
public:
    virtual ~SharedText() = default;

    // What is no text in UTF-8 is unfit too.
    [[nodiscard]] virtual FileReading read() = 0;

    // `made_from` is what read() gave, none when it gave nothing. The name of the copy of what somebody else had saved
    // there, empty when there was no such thing. After a failure what was there is still there.
    [[nodiscard]] virtual Result<std::string> replace(std::string_view text,
                                                      const std::optional<std::string>& made_from) = 0;
};

} // namespace tickervantage
