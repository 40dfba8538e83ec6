#include "settings/warning_register.h"

#include "settings/settings_keys.h"

#include <utility>

namespace tickervantage {

void WarningRegister::load() {
    for (auto& identifier : m_settings.loadStringArray(settings::IgnoreWarnings.key))
        m_register.insert(std::move(identifier));
}

bool WarningRegister::contains(std::string_view identifier) const {
    return m_register.contains(identifier);
}

void WarningRegister::register_warning(const std::string& identifier) {
    if (m_register.insert(identifier).second)
        save();
}

void WarningRegister::resetWarnings() {
    m_register.clear();
    save();
}

void WarningRegister::save() {
    m_settings.saveStringArray(settings::IgnoreWarnings.key, {m_register.begin(), m_register.end()});
}

bool show_unless_suppressed(WarningRegister& warnings, AlertPresenter& presenter, const Alert& alert,
                            ButtonPressed pressed) {
    if (warnings.contains(alert.identifier))
        return false;
    presenter.show(alert, [&warnings, identifier = alert.identifier, pressed = std::move(pressed)](AlertAnswer answer) {
        pressed(answer.button);
        if (answer.suppress)
            warnings.register_warning(identifier);
    });
    return true;
}

} // namespace tickervantage
