#include "privileged/privileged_actions.h"

namespace tickervantage {

bool PrivilegedActions::action_in_progress() const {
    const std::lock_guard lock(m_mutex);
    return m_installer_busy;
}

void PrivilegedActions::set_action_in_progress(bool in_progress) {
    const std::lock_guard lock(m_mutex);
    m_installer_busy = in_progress;
}

} // namespace tickervantage
