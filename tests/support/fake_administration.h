// A main window with what administers the machine behind it, and a machine of which the test says what lies on it.
#pragma once

#include "app/administration.h"
#include "gui/main/tickervantage_window.h"
#include "settings/warning_register.h"
#include "support/fake_job_machine.h"
#include "support/fake_main_window_parts.h"

#include <memory>

namespace tickervantage::testing {

struct FakeAdministration {
    FakeMainWindowParts fakes;
    ManualQueue jobs;
    OneJobQueue queues{jobs};
    FakeJobMachine machine;
    WarningRegister warnings{fakes.settings};
    PreferencesGeneral general = PreferencesGeneral::load(fakes.settings);
    PreferencesAdvanced advanced;
    std::unique_ptr<TickervantageWindow> window;
    std::unique_ptr<Administration> administration;

    explicit FakeAdministration(const PrivilegedReports& reports = {}) {
        fakes.actions = std::make_shared<PrivilegedActions>(fakes.channel, reports);
        window = std::make_unique<TickervantageWindow>(fakes.parts(), fakes.options());
        administration = std::make_unique<Administration>(AdministrationParts{.queues = queues,
                                                                              .machine = machine,
                                                                              .actions = fakes.actions,
                                                                              .main_thread = fakes.main_thread,
                                                                              .execute = fakes.execute,
                                                                              .settings = fakes.settings,
                                                                              .warnings = warnings,
                                                                              .general = general,
                                                                              .advanced = advanced,
                                                                              .paths = {},
                                                                              .window = *window});
    }
    void settle() {
        while (jobs.turn() || fakes.queue.turn() || fakes.reports.turn() || fakes.main_thread.turn()) {
        }
    }
};

} // namespace tickervantage::testing
