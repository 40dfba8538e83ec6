// A unit of the user's systemd, by systemctl. Source: systemctl(1), is-enabled, enable, disable.
#pragma once

#include "base/execute.h"
#include "base/user_service.h"

#include <string>
#include <vector>

namespace tickervantage {

class UserUnit : public UserService {
public:
    // "tickervantage-history.service"; the executor outlives it.
    UserUnit(Execute& execute, std::string unit) : m_execute(execute), m_unit(std::move(unit)) {}

    [[nodiscard]] Result<bool> is_on() const override;
    [[nodiscard]] Result<> turn(bool on) const override;

private:
    [[nodiscard]] ExecuteResult systemctl(std::vector<std::string> words) const;

    Execute& m_execute;
    std::string m_unit;
};

} // namespace tickervantage
