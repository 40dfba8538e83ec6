#include "settings/suppressible_alert.h"

#include "settings/warning_register.h"

#include <utility>

namespace tickervantage {

bool show_unless_suppressed(WarningRegister& warnings, const ShowAlert& show, const Alert& alert,
                            std::function<void(std::size_t button)> pressed) {
    if (warnings.contains(alert.identifier))
        return false;
    show(alert, [&warnings, identifier = alert.identifier, pressed = std::move(pressed)](AlertAnswer answer) {
        pressed(answer.button);
        if (answer.suppress)
            warnings.register_warning(identifier);
    });
    return true;
}

} // namespace tickervantage
