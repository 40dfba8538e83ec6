// The three images of the daemon's state. Main thread.
#pragma once

#include "chrony/status/status_values.h"
#include "gui/main/sign_image.h"

namespace tickervantage {

class StatusImage : public SignImage {
    Q_OBJECT

public:
    explicit StatusImage(chronydStatus status, QWidget* parent = nullptr);
};

// The state in words.
[[nodiscard]] QString status_words(chronydStatus status);

} // namespace tickervantage
