// All failures, each with its words; included more than once, so without a guard. A place further down in the program
// adds to its own section. Codes go over the bus by name: a name that was published keeps its meaning.

/* TRANSLATOR failures
   What the program says of its work, in alerts and in status lines. %1 to %9 stand for paths, numbers and the words of
   chrony or of the system; %c stands for another of these sentences, without its full stop; where there is none, ": %c"
   goes with it. Sentences that begin in lower case follow a colon. */

// anything
TV_FAILURE(others_words, "%1") // for said_by_others
TV_FAILURE(system_error, "%1") // the number of an errno, shown as the system's words for it

// files
TV_FAILURE(cannot_read, TV_TEXT("failures", "Cannot read %1: %c."))
TV_FAILURE(cannot_write, TV_TEXT("failures", "Cannot write %1: %c."))
TV_FAILURE(cannot_rename, TV_TEXT("failures", "Cannot rename %1: %c."))
TV_FAILURE(cannot_lock, TV_TEXT("failures", "Cannot lock %1: %c."))
TV_FAILURE(cannot_make_folder, TV_TEXT("failures", "Cannot make the folder %1: %c."))
TV_FAILURE(cannot_flush_folder, TV_TEXT("failures", "Cannot flush the folder of %1: %c."))
TV_FAILURE(is_folder, TV_TEXT("failures", "it is a folder"))
TV_FAILURE(is_no_ordinary_file, TV_TEXT("failures", "it is not an ordinary file"))
TV_FAILURE(is_larger_than, TV_TEXT("failures", "it is larger than %1 bytes"))

// running programs

// settings

// chrony's reports and logs

// the configuration of chrony

// the list of servers

// the studies: logs, points, pictures

// the client of the root helper, and its jobs
TV_FAILURE(nothing_done, TV_TEXT("failures", "Nothing was done.")) // for want of the rights: that was told
TV_FAILURE(job_under_way, TV_TEXT("failures", "Another administrative job is under way."))
TV_FAILURE(no_such_job, TV_TEXT("failures", "There is no such job."))
TV_FAILURE(cannot_prepare_files, TV_TEXT("failures", "The files to be installed cannot be written to %1."))
TV_FAILURE(distribution_installed,
           TV_TEXT("failures", "The preferences point to the distribution's chrony, which is installed already."))
TV_FAILURE(distribution_removes,
           TV_TEXT("failures",
                   "The preferences point to the distribution's chrony, which its package manager removes."))
TV_FAILURE(distribution_rotates,
           TV_TEXT("failures", "The logs of the distribution's chrony are rotated by the distribution."))
TV_FAILURE(not_installed_after_all, TV_TEXT("failures", "%1 was not installed."))
TV_FAILURE(no_chronywake, TV_TEXT("failures", "There is no chronywake in the folders of programs."))
TV_FAILURE(no_log_folder, TV_TEXT("failures", "The configuration names no folder of logs."))
TV_FAILURE(no_gps_daemon, TV_TEXT("failures", "There is no service of a GPS daemon on this machine."))
TV_FAILURE(no_configuration_to_install,
           TV_TEXT("failures", "There is no configuration to be installed: %1 cannot be read."))
TV_FAILURE(no_server_name, TV_TEXT("failures", "A server has a name or an address, without quotes or signs."))
TV_FAILURE(other_configuration_in_use,
           TV_TEXT("failures", "Nothing was changed: %1 reads %2, while the preferences name %3 as the configuration."))
TV_FAILURE(configuration_refused, TV_TEXT("failures", "chronyd refuses this configuration: %c."))
TV_FAILURE(configuration_not_checked,
           TV_TEXT("failures", "This configuration could not be checked and is not installed: %c."))
TV_FAILURE(configuration_not_installed, TV_TEXT("failures", "The configuration was not installed: %c."))
TV_FAILURE(configuration_without_daemon,
           TV_TEXT("failures", "The configuration is installed, but chronyd was not started: %c."))
TV_FAILURE(chronyd_ended_soon, TV_TEXT("failures", "chronyd ended soon after it was started with this configuration."))
TV_FAILURE(chronyd_ended_saying,
           TV_TEXT("failures", "chronyd ended soon after it was started with this configuration: %1."))
TV_FAILURE(no_former_configuration,
           TV_TEXT("failures", "There was no configuration before it that could be put back: chronyd does not run."))
TV_FAILURE(former_not_back, TV_TEXT("failures", "The former configuration did not come back: %c."))
TV_FAILURE(former_does_not_run,
           TV_TEXT("failures", "The former configuration is back, but chronyd does not run with it either: %c."))
TV_FAILURE(former_is_back, TV_TEXT("failures", "The former configuration is back, and chronyd runs with it again."))
TV_FAILURE(chrony_not_installed, TV_TEXT("failures", "chrony was not installed: %c."))
TV_FAILURE(chrony_not_removed, TV_TEXT("failures", "chrony was not removed as a whole: %c."))
TV_FAILURE(old_not_removed, TV_TEXT("failures", "The older installation was not removed as a whole: %c."))
TV_FAILURE(chronyd_not_started, TV_TEXT("failures", "chronyd was not started: %c."))
TV_FAILURE(chronyd_not_stopped, TV_TEXT("failures", "chronyd was not stopped: %c."))
TV_FAILURE(clock_treated_as_before, TV_TEXT("failures", "chronyd still treats the clock as before: %c."))
TV_FAILURE(chronywake_not_installed, TV_TEXT("failures", "chronywake was not installed: %c."))
TV_FAILURE(chronywake_not_removed, TV_TEXT("failures", "chronywake was not removed: %c."))
TV_FAILURE(chronywake_failed, TV_TEXT("failures", "chronywake did not correct the clock: %c."))
TV_FAILURE(logs_not_rotated, TV_TEXT("failures", "The logs were not rotated: %c."))
TV_FAILURE(log_not_readable, TV_TEXT("failures", "The tracking log was not made readable: %c."))
TV_FAILURE(gps_daemon_not_restarted, TV_TEXT("failures", "The GPS daemon was not restarted: %c."))
TV_FAILURE(clock_not_stepped, TV_TEXT("failures", "The clock was not stepped: %c."))
TV_FAILURE(clock_not_synchronised, TV_TEXT("failures", "The clock was not synchronised."))
TV_FAILURE(processes_not_listed, TV_TEXT("failures", "The processes could not be listed: %c."))
TV_FAILURE(helper_unreachable, TV_TEXT("failures", "The root helper cannot be reached: %c."))
TV_FAILURE(bus_silent, TV_TEXT("failures", "the system bus does not answer"))
TV_FAILURE(helper_not_installed, TV_TEXT("failures", "The root helper was not installed: %c."))
TV_FAILURE(helper_of_other_version,
           TV_TEXT("failures",
                   "The root helper is of another version: start this program again, or install its package again."))
TV_FAILURE(helper_missing,
           TV_TEXT("failures", "The root helper is missing: install the package of this program again."))
TV_FAILURE(helper_gave_no_authorisation, TV_TEXT("failures", "The root helper gave no authorisation."))
TV_FAILURE(no_helper_here, TV_TEXT("failures", "There is no root helper here."))

// the root helper
TV_FAILURE(authorisation_needed, TV_TEXT("failures", "This needs an administrator's authorisation."))
TV_FAILURE(authorisation_lapsed,
           TV_TEXT("failures", "The authorisation does not hold for this connection, or holds no longer."))
TV_FAILURE(authorisation_refused, TV_TEXT("failures", "The authorisation was not given."))
TV_FAILURE(caller_unknown, TV_TEXT("failures", "The helper cannot find out who asks."))
TV_FAILURE(refused_too_often,
           TV_TEXT("failures", "This user was refused too often: it may be asked for again in a minute."))
TV_FAILURE(asked_already, TV_TEXT("failures", "This user is being asked for a password already."))
TV_FAILURE(polkit_silent, TV_TEXT("failures", "The authorisation service (polkit) does not answer."))
TV_FAILURE(request_missing, TV_TEXT("failures", "The message holds no request."))

// the tools that the root helper runs

// chronywake

// tickerctl

// windows
TV_FAILURE(autostart_useless, TV_TEXT("failures", "The file in the autostart folder does not start the program."))
