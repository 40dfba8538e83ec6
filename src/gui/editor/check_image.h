// The image of a configuration's state on the Check button: each state has a shape and a word of its own besides its
// colour. Main thread.
#pragma once

#include <QIcon>
#include <QString>

namespace tickervantage {

enum class CheckImage : unsigned char {
    partially_available, // yellow: not checked since the last edit
    available,           // green
    unavailable,         // red
};

[[nodiscard]] QIcon icon_of(CheckImage image);
[[nodiscard]] QString words_of(CheckImage image);

} // namespace tickervantage
