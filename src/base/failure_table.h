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
TV_FAILURE(cannot_make_folder_in, TV_TEXT("failures", "Cannot make a folder in %1: %c."))
TV_FAILURE(cannot_remove, TV_TEXT("failures", "Cannot remove %1: %c."))
TV_FAILURE(no_such_file, TV_TEXT("failures", "There is no file \"%1\"."))
TV_FAILURE(file_unreadable, TV_TEXT("failures", "%1 cannot be read: %c."))
TV_FAILURE(no_edit_in, "%1 holds no edit that this version can read.")
TV_FAILURE(edit_not_kept, "An edit that is not saved could not be kept for the next run.")
TV_FAILURE(no_folder_to_keep_in, TV_TEXT("failures", "There is no folder to keep it in."))
TV_FAILURE(is_no_utf8, TV_TEXT("failures", "it is no text in UTF-8"))
TV_FAILURE(is_folder, TV_TEXT("failures", "it is a folder"))
TV_FAILURE(is_damaged, TV_TEXT("failures", "it is damaged"))
TV_FAILURE(cannot_be_read_again, TV_TEXT("failures", "it cannot be read again"))
TV_FAILURE(its_end_is_missing, TV_TEXT("failures", "its end is missing"))
TV_FAILURE(is_no_ordinary_file, TV_TEXT("failures", "it is not an ordinary file"))
TV_FAILURE(is_larger_than, TV_TEXT("failures", "it is larger than %1 bytes"))

// the history of the clock
TV_FAILURE(history_has_writer, TV_TEXT("failures", "Another program of this user keeps the history already."))
TV_FAILURE(history_is_newer,
           TV_TEXT("failures", "%1 is of a later version of this program: it is read, and nothing is added to it."))

TV_FAILURE(no_history_unit,
           TV_TEXT("failures", "The service that keeps it comes with the program's package, which is not installed."))
TV_FAILURE(no_user_services, TV_TEXT("failures", "Your session has no systemd that runs services of yours: %c."))
TV_FAILURE(unit_not_turned, TV_TEXT("failures", "The service that keeps the history could not be switched: %c."))

// running programs
TV_FAILURE(cannot_be_started, TV_TEXT("failures", "%1 cannot be started: %c."))
TV_FAILURE(did_not_end, TV_TEXT("failures", "%1 did not end within %2 s and was ended."))
TV_FAILURE(printed_too_much, TV_TEXT("failures", "%1 printed more than %2 KiB and was ended; the rest is missing."))
TV_FAILURE(ended_by_signal, TV_TEXT("failures", "%1 was ended by signal %2 (%3)."))
TV_FAILURE(ended_for_closing, TV_TEXT("failures", "%1 was ended because the program closes."))
TV_FAILURE(lines_left_out, TV_TEXT("failures", "only the first %1 lines are shown."))

// settings, as tickerctl sets them
TV_FAILURE(setting_takes, "%1 takes %c.")
TV_FAILURE(a_boolean, "true or false")
TV_FAILURE(an_integer, "a whole number from %1 to %2")
TV_FAILURE(an_integer_but, "a whole number from %1 to %2 other than %3")
TV_FAILURE(a_number, "a number from %1 to %2")
TV_FAILURE(an_absolute_path, "a path that starts with /")
TV_FAILURE(a_line_of_text, "one line of text in UTF-8")
TV_FAILURE(a_list_of_texts, "one line of texts in UTF-8, separated by commas")
TV_FAILURE(a_colour, "a colour as #rrggbb or #rrggbbaa")
TV_FAILURE(a_font, "a font as family, comma, size in points up to 1000")

// settings, as a file
TV_FAILURE(settings_damaged, TV_TEXT("failures", "The settings file %1 is damaged (%c)."))
TV_FAILURE(settings_kept_aside, TV_TEXT("failures", "%c. It is kept as %1."))
TV_FAILURE(settings_damaged_in_place, TV_TEXT("failures", "The settings file %1 is damaged."))
TV_FAILURE(settings_unreadable, TV_TEXT("failures", "The settings file %1 cannot be read (%c)."))
TV_FAILURE(defaults_used, TV_TEXT("failures", "%c. The defaults are used."))
TV_FAILURE(lines_are_no_settings, TV_TEXT("failures", "it has lines that are no settings"))
TV_FAILURE(no_scratch_file, TV_TEXT("failures", "there is no room for a temporary file"))
TV_FAILURE(value_does_not_read_back, TV_TEXT("failures", "a value does not read back"))
TV_FAILURE(settings_not_saved_in_time, TV_TEXT("failures", "The settings could not be saved in time."))

// chrony's reports and logs
TV_FAILURE(no_answer_from, TV_TEXT("failures", "%1 gave no answer: %c."))
TV_FAILURE(odd_report_line, TV_TEXT("failures", "A line of the report \"%1\" has %2 columns instead of %3: %4"))
TV_FAILURE(no_capture, TV_TEXT("failures", "This is no capture: it does not begin with \"# tickervantage capture 1\"."))
TV_FAILURE(no_capture_line, TV_TEXT("failures", "Line %1 of the capture belongs to no report."))

TV_FAILURE(no_log_in, TV_TEXT("failures", "There is no %2 log of chrony in %1."))
TV_FAILURE(journal_unreadable, TV_TEXT("failures", "The journal of this machine cannot be read: %c."))
TV_FAILURE(odd_log_lines, TV_TEXT("failures", "Lines of %1 that are no records of this log were left out: %2."))

// the configuration of chrony
TV_FAILURE(cannot_open_document, TV_TEXT("failures", "%1 cannot be opened."))
TV_FAILURE(document_is_no_utf8, TV_TEXT("failures", "It is no text in UTF-8."))
TV_FAILURE(line_has_zero, TV_TEXT("failures", "Line %1 holds a zero byte, which no configuration may."))
TV_FAILURE(text_cannot_be_written, TV_TEXT("failures", "The text holds a character that cannot be written (error %1)."))
TV_FAILURE(chronyd_too_slow,
           TV_TEXT("failures", "chronyd did not end in time, so the syntax is not known to be right."))
TV_FAILURE(chronyd_not_run, TV_TEXT("failures", "chronyd could not be run."))
TV_FAILURE(no_chronyd_to_check,
           TV_TEXT("failures", "chronyd was not found on this machine, so the syntax was not checked."))
TV_FAILURE(points_line_blank,
           TV_TEXT("failures", "Line %2 of %1 is blank, and chronyd ends where a file of points has a blank line."))
TV_FAILURE(points_line_remark,
           TV_TEXT("failures", "Line %2 of %1 is a remark, and chronyd ends where a file of points has a remark."))
TV_FAILURE(points_line_unreadable,
           TV_TEXT("failures", "Line %2 of %1 does not begin with a temperature and a compensation in numbers."))
TV_FAILURE(points_line_beyond_limit,
           TV_TEXT("failures", "Line %2 of %1 compensates by more than 10 ppm, which chronyd ignores."))
TV_FAILURE(points_line_equal,
           TV_TEXT("failures", "Line %2 of %1 has the same temperature as the line before, so that chronyd's "
                               "compensation would be infinite."))
TV_FAILURE(points_line_descending,
           TV_TEXT("failures",
                   "Line %2 of %1 has a lower temperature than the line before, and chronyd would compensate "
                   "wrongly."))
TV_FAILURE(points_too_few,
           TV_TEXT("failures", "%1 ends in line %2 with fewer than two points, and chronyd does not start with it."))
TV_FAILURE(points_in_degrees,
           TV_TEXT("failures", "%1 has temperatures in degrees, while the sensor gives thousandths of a degree."))
TV_FAILURE(directive_without_effect, TV_TEXT("failures", "%1 is no longer supported and has no effect."))
TV_FAILURE(directive_out_of_place,
           TV_TEXT("failures", "%1 has no effect in a file of a sourcedir, which holds server, pool and peer only."))
TV_FAILURE(named_user_missing, TV_TEXT("failures", "%1: there is no user %2, so chronyd would not start."))
TV_FAILURE(named_driver_missing,
           TV_TEXT("failures",
                   "%1: there is no driver %2 (PPS, SHM, SOCK and PHC there are), so chronyd would not start."))
TV_FAILURE(polls_too_often,
           TV_TEXT("failures", "%1: minpoll %2 asks %3 too often; outside the local network 6, a request every 64 "
                               "seconds, is the least."))
TV_FAILURE(named_path_missing, TV_TEXT("failures", "%1: %2 does not exist."))
TV_FAILURE(named_path_no_file, TV_TEXT("failures", "%1: %2 is no file."))
TV_FAILURE(named_path_no_device, TV_TEXT("failures", "%1: %2 is no device."))
TV_FAILURE(named_path_no_folder, TV_TEXT("failures", "%1: %2 is no folder."))
TV_FAILURE(daemon_cannot_read, TV_TEXT("failures", "%1: the user %2, as whom chronyd runs, cannot read %3."))
TV_FAILURE(daemon_cannot_write,
           TV_TEXT("failures", "%1: the user %2, as whom chronyd runs, cannot write in the folder %3."))

// the list of servers

// a demonstration; what happens at its start is for the terminal alone
TV_FAILURE(demonstration_runs, "The demonstration is running already.")
TV_FAILURE(demonstration_without_chronyd, "The demonstration needs chronyd, and %1 cannot be run: %c.")
TV_FAILURE(demonstration_without_name, "The demonstration needs a user name, and user %1 has none.")
TV_FAILURE(demonstration_without_folder, "The folder %1 for the demonstration cannot be made: %c.")
TV_FAILURE(demonstration_not_started, "The demonstration cannot be started: %c.")
TV_FAILURE(demonstration_too_slow, "The demonstration did not come up in time.")
TV_FAILURE(demonstration_has_ended, TV_TEXT("failures", "The demonstration has ended."))
TV_FAILURE(demonstration_keeps_former,
           TV_TEXT("failures",
                   "The demonstration's chronyd did not come up, and runs with the former configuration: %c."))
TV_FAILURE(demonstration_lost_former, TV_TEXT("failures", "The demonstration's chronyd does not run: %c."))
TV_FAILURE(demonstration_not_synchronised, "The demonstration was not synchronised within %1 s.")

// the studies: logs, points, pictures
TV_FAILURE(picture_not_written, TV_TEXT("failures", "The picture %1 could not be written: %c."))
TV_FAILURE(picture_of_no_kind, TV_TEXT("failures", "The picture %1 must end in .png, .svg or .pdf."))
TV_FAILURE(picture_too_large, TV_TEXT("failures", "A picture must be from 1 to %1 pixels wide and high."))
TV_FAILURE(picture_not_drawn, TV_TEXT("failures", "The picture %1 could not be drawn."))
TV_FAILURE(no_point_in, TV_TEXT("failures", "There is no point in %1: a line has temperature,frequency."))
TV_FAILURE(file_is_no_scatter_map, TV_TEXT("failures", "%1 is no scatter map."))
TV_FAILURE(no_json_at, TV_TEXT("failures", "There is no JSON at byte %1."))
TV_FAILURE(is_no_scatter_map, TV_TEXT("failures", "It is no object of sensors."))
TV_FAILURE(scatter_entry_unfit, TV_TEXT("failures", "The entry \"%1\" is not as it should be."))
TV_FAILURE(cannot_be_taken_in, TV_TEXT("failures", "It cannot be taken in: %c."))
TV_FAILURE(no_rich_text, TV_TEXT("failures", "it is not in the Rich Text Format"))
TV_FAILURE(ends_in_the_middle, TV_TEXT("failures", "it ends in the middle"))

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
TV_FAILURE(compensation_not_installed, TV_TEXT("failures", "The compensation was not installed: %c."))
TV_FAILURE(compensation_not_removed, TV_TEXT("failures", "The compensation was not taken back: %c."))
TV_FAILURE(compensation_elsewhere,
           TV_TEXT("failures", "%1 has a line \"tempcomp\" of its own; take it out there first."))
TV_FAILURE(compensation_not_ours,
           TV_TEXT("failures", "The configuration holds no compensation that was installed here."))
TV_FAILURE(compensation_without_temperature,
           TV_TEXT("failures", "chronyd cannot read the temperature with this configuration."))
TV_FAILURE(sensor_without_file,
           TV_TEXT("failures", "chronyd cannot read the sensor %1: the kernel has no file of its own for it."))
TV_FAILURE(compensation_needs_systemd, TV_TEXT("failures", "A compensation is installed where systemd starts chronyd."))
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
TV_FAILURE(command_not_admitted, TV_TEXT("failures", "This command is not one that the helper runs."))
TV_FAILURE(no_shell_line,
           TV_TEXT("failures", "A shell's line must be one command in single quotes, with its errors joined."))
TV_FAILURE(words_not_divided, TV_TEXT("failures", "The words of the command are not divided as they should be."))
TV_FAILURE(request_too_long, TV_TEXT("failures", "The request is too long."))
TV_FAILURE(request_unprintable, TV_TEXT("failures", "The request holds characters that cannot be printed."))
TV_FAILURE(no_request, TV_TEXT("failures", "A request is EXECUTE with a command, or QUIT."))
TV_FAILURE(no_plain_source, TV_TEXT("failures", "The file to be installed must be named by a plain absolute path."))
TV_FAILURE(no_installation_there, TV_TEXT("failures", "Nothing may be installed there."))
TV_FAILURE(install_takes_four, TV_TEXT("failures", "Installing takes four arguments in quotes."))
TV_FAILURE(other_owner_or_mode, TV_TEXT("failures", "What is installed there has another owner or mode."))
TV_FAILURE(remove_takes_one, TV_TEXT("failures", "Removing takes one path in quotes."))
TV_FAILURE(no_removal_there, TV_TEXT("failures", "Nothing may be removed there."))
TV_FAILURE(no_daemon_user, TV_TEXT("failures", "The helper adds only the users _chrony, chrony and ntp."))
TV_FAILURE(nothing_former_there, TV_TEXT("failures", "Only a configuration has a former one."))
TV_FAILURE(step_not_admitted, TV_TEXT("failures", "The clock is stepped by a number of seconds other than 0."))
TV_FAILURE(clock_not_switched, TV_TEXT("failures", "Adjusting the clock is switched on or off."))
TV_FAILURE(verb_takes_none, TV_TEXT("failures", "This verb takes no arguments."))
TV_FAILURE(other_tool, TV_TEXT("failures", "This is not the support tool that the helper was installed with."))
TV_FAILURE(verb_missing, TV_TEXT("failures", "The support tool needs a verb."))
TV_FAILURE(verb_unknown, TV_TEXT("failures", "The support tool has no such verb."))
TV_FAILURE(no_folder_there, TV_TEXT("failures", "No folder may be made there."))
TV_FAILURE(no_rotation_there, TV_TEXT("failures", "Logs are rotated by the installed script in chrony's log folder."))
TV_FAILURE(no_tracking_log, TV_TEXT("failures", "Only chrony's tracking log can be made readable."))
TV_FAILURE(service_not_managed, TV_TEXT("failures", "This is no service that the helper manages."))
TV_FAILURE(no_report, TV_TEXT("failures", "This is no report of chronyc that the helper runs."))
TV_FAILURE(no_synchronisation, TV_TEXT("failures", "A synchronisation takes one server, and 1 to 120 seconds."))
TV_FAILURE(program_not_listed, TV_TEXT("failures", "The helper runs a chronyc or chronyd of its own list only."))
TV_FAILURE(rule_needs_seconds,
           TV_TEXT("failures", "Line %1 of the helper's rules needs a number of seconds up to 86400."))
TV_FAILURE(rule_unknown,
           TV_TEXT("failures", "Line %1 of the helper's rules begins with a word that is none of theirs."))
TV_FAILURE(rule_needs_path, TV_TEXT("failures", "Line %1 of the helper's rules needs an absolute path without \"..\"."))
TV_FAILURE(unlike_definition, TV_TEXT("failures", "The file is not the service definition that belongs at %1."))
TV_FAILURE(configuration_is_no_text, TV_TEXT("failures", "The configuration is not a text."))
TV_FAILURE(line_too_long, TV_TEXT("failures", "Line %1 of the configuration is longer than chronyd reads."))
TV_FAILURE(line_unshowable, TV_TEXT("failures", "Line %1 of the configuration needs an authorisation of its own, but "
                                                "holds characters that a question cannot show safely."))
TV_FAILURE(configuration_unshowable,
           TV_TEXT("failures", "This configuration has more or longer unusual lines than a question can show."))
TV_FAILURE(chronyd_rejects, TV_TEXT("failures", "chronyd does not accept this configuration: %c."))
TV_FAILURE(chronyd_rejects_included,
           TV_TEXT("failures", "chronyd does not accept a file that this configuration includes: %c."))
TV_FAILURE(included_file_unreadable, TV_TEXT("failures", "a file that it includes is missing or cannot be read"))
TV_FAILURE(file_open_to_others, TV_TEXT("failures", "%1 can be changed by others than root, so it is not heeded."))
TV_FAILURE(too_much_waiting, TV_TEXT("failures", "Too many requests are waiting."))
TV_FAILURE(no_process, TV_TEXT("failures", "The helper cannot start a process."))
TV_FAILURE(command_ended_by_signal, TV_TEXT("failures", "The command was ended by signal %1."))
TV_FAILURE(command_too_slow, TV_TEXT("failures", "The command did not end within %1 s."))
TV_FAILURE(command_too_long, TV_TEXT("failures", "The command printed too much."))
TV_FAILURE(command_failed, TV_TEXT("failures", "The command ended with status %1."))
TV_FAILURE(source_is_no_file, TV_TEXT("failures", "What is to be installed is not an ordinary file."))
TV_FAILURE(source_of_others, TV_TEXT("failures", "The file to be installed belongs to somebody else."))
TV_FAILURE(source_with_names, TV_TEXT("failures", "The file to be installed has more than one name."))
TV_FAILURE(source_too_large, TV_TEXT("failures", "The file to be installed is too large."))
TV_FAILURE(source_not_opened, TV_TEXT("failures", "The file to be installed cannot be opened by its user."))
TV_FAILURE(source_not_read, TV_TEXT("failures", "The file to be installed could not be read in time."))
TV_FAILURE(program_missing, TV_TEXT("failures", "%1 is missing."))
TV_FAILURE(other_program,
           TV_TEXT("failures",
                   "The program is another one than the helper was installed with: install the helper again."))
TV_FAILURE(
    includes_itself,
    TV_TEXT("failures",
            "Line %1 of the configuration includes the configuration itself, and chronyd would not start with it."))
TV_FAILURE(line_unauthorised, TV_TEXT("failures", "Line %1 (%2) needs an authorisation of its own."))
TV_FAILURE(no_plain_sensor, TV_TEXT("failures", "This is no sensor that the helper lets chronyd read."))
TV_FAILURE(item_not_kept, TV_TEXT("failures", "The helper cannot keep the file to be installed."))
TV_FAILURE(program_not_roots, TV_TEXT("failures", "%1 is missing, or others than root can change it."))
TV_FAILURE(former_has_changed, TV_TEXT("failures", "The former configuration has changed meanwhile."))
TV_FAILURE(helper_of_package, TV_TEXT("failures", "The root helper belongs to the package tickervantage, which has put "
                                                  "it in place: a second one would hide it, and its updates."))
TV_FAILURE(program_not_started, TV_TEXT("failures", "%1 cannot be started: %c."))
// its own, for the journal and the terminal alone
TV_FAILURE(helper_not_set_up, "The helper cannot set itself up.")
TV_FAILURE(helper_without_bus, "The helper cannot reach the system bus.")
TV_FAILURE(helper_without_name,
           "The helper cannot take its name on the bus: another one runs, or its bus policy is not installed.")
TV_FAILURE(helper_keeps_name, "The helper cannot give its name back.")
TV_FAILURE(helper_lost_bus, "The helper lost the bus.")
TV_FAILURE(not_root, "This must run as root.")

// the tools that the root helper runs; what ends in a colon is followed by the last words of another program
TV_FAILURE(no_such_verb, TV_TEXT("failures", "There is no such verb with so many arguments."))
TV_FAILURE(first_argument_not_empty,
           TV_TEXT("failures", "The first argument of createdirectory stays empty when there are two."))
TV_FAILURE(neither_on_nor_off, TV_TEXT("failures", "adjustclock takes on or off."))
TV_FAILURE(unusable_path, TV_TEXT("failures", "%1 is not a path that can be used here."))
TV_FAILURE(cannot_reach, TV_TEXT("failures", "Cannot reach %1: %c."))
TV_FAILURE(way_open_to_others, TV_TEXT("failures", "The way to %1 leads through a folder that others can change."))
TV_FAILURE(way_through_link_of_others,
           TV_TEXT("failures", "The way to %1 leads through a symbolic link that others made."))
TV_FAILURE(no_folder_among_others, TV_TEXT("failures", "No folder for %1 is made where others can write."))
TV_FAILURE(folder_open_to_others, TV_TEXT("failures", "%1 stays as it is: others can write to its folder."))
TV_FAILURE(cannot_lock_folder, TV_TEXT("failures", "Cannot lock the folder of %1: %c."))
TV_FAILURE(no_such_owner, TV_TEXT("failures", "There is no owner %1 here."))
TV_FAILURE(no_mode_of_roots, TV_TEXT("failures", "%1 is no mode for a file that root installs."))
TV_FAILURE(cannot_install, TV_TEXT("failures", "Cannot install %1: %c."))
TV_FAILURE(no_ordinary_file_there, TV_TEXT("failures", "Something that is no ordinary file lies at %1."))
TV_FAILURE(cannot_keep_former, TV_TEXT("failures", "Cannot keep the former %1: %c."))
TV_FAILURE(cannot_replace, TV_TEXT("failures", "Cannot replace %1: %c."))
TV_FAILURE(cannot_restore_former, TV_TEXT("failures", "Cannot bring back the former %1: %c."))
TV_FAILURE(no_such_folder_owner, TV_TEXT("failures", "There is no user %1, to whom %2 would belong."))
TV_FAILURE(no_name_of_user, TV_TEXT("failures", "%1 is no name for a system user."))
TV_FAILURE(cannot_add_user, TV_TEXT("failures", "Cannot add the user %1:"))
TV_FAILURE(no_step, TV_TEXT("failures", "%1 is no number of seconds to step the clock by."))
TV_FAILURE(cannot_step_clock, TV_TEXT("failures", "Cannot step the clock: %c."))
TV_FAILURE(cannot_find_script, TV_TEXT("failures", "Cannot find the script %1: %c."))
TV_FAILURE(script_open_to_others, TV_TEXT("failures", "%1 is not run: others can change it."))
TV_FAILURE(cannot_find_log_folder, TV_TEXT("failures", "Cannot find the log folder %1: %c."))
TV_FAILURE(log_folder_open_to_others, TV_TEXT("failures", "Others can write to the log folder %1."))
TV_FAILURE(cannot_rotate_logs, TV_TEXT("failures", "Cannot rotate the logs in %1:"))
TV_FAILURE(cannot_ask_for_unit, TV_TEXT("failures", "Cannot ask for %1:"))
TV_FAILURE(cannot_start_unit, TV_TEXT("failures", "Cannot start %1:"))
TV_FAILURE(cannot_stop_unit, TV_TEXT("failures", "Cannot stop %1:"))
TV_FAILURE(cannot_restart_unit, TV_TEXT("failures", "Cannot restart %1:"))
TV_FAILURE(cannot_enable_unit, TV_TEXT("failures", "Cannot enable %1:"))
TV_FAILURE(cannot_disable_unit, TV_TEXT("failures", "Cannot disable %1:"))
TV_FAILURE(units_not_read_again, TV_TEXT("failures", "systemd cannot read its units again:"))
TV_FAILURE(unit_dies, TV_TEXT("failures", "%1 does not stay up:"))
TV_FAILURE(said_nothing, TV_TEXT("failures", "it said nothing."))
TV_FAILURE(ended_with_status, TV_TEXT("failures", "status %1."))
TV_FAILURE(no_chronyd_service, TV_TEXT("failures", "No service for chronyd is installed."))
TV_FAILURE(no_wake_service, TV_TEXT("failures", "The service of chronywake is not installed."))
TV_FAILURE(no_distribution_chrony, TV_TEXT("failures", "The distribution's chrony is not installed."))
TV_FAILURE(sensor_not_found, TV_TEXT("failures", "The sensor %2 of the chip %1 is not there, or gives no temperature."))
TV_FAILURE(unit_has_other_command, TV_TEXT("failures", "%1 does not start chronyd by a single command line."))

// chronywake, for the journal and the terminal alone
TV_FAILURE(no_wake_option, "There is no option %1.")
TV_FAILURE(wake_option_without_value, "%1 needs a value.")
TV_FAILURE(wake_option_with_bad_value, "%1 does not take the value %2.")
TV_FAILURE(cannot_listen, "Cannot listen on the system bus: %c.")
TV_FAILURE(chronyc_said_nothing, "chronyc ended with status %1 and said nothing.")

// temperature compensation
TV_FAILURE(compensation_without_times,
           TV_TEXT("failures", "%1 does not say when its points were read, so that days cannot be told apart."))
TV_FAILURE(which_sensor, "Which sensor? There are %1.")
TV_FAILURE(no_sensor_here, TV_TEXT("failures", "This machine has no temperature sensor."))
TV_FAILURE(no_such_sensor, "There is no sensor \"%1\"; there are %2.")
TV_FAILURE(compensation_without_history,
           TV_TEXT("failures", "The temperatures go back %1 days; a compensation needs 3 at least."))
TV_FAILURE(compensation_without_days,
           TV_TEXT("failures", "Only %1 days have enough temperatures; a compensation needs 3 at least."))
TV_FAILURE(compensation_without_range,
           TV_TEXT("failures", "The temperatures lie within %1 degrees; a compensation needs 5 at least."))
TV_FAILURE(compensation_too_large,
           TV_TEXT("failures", "The frequency changes by %1 ppm; a compensation can take out 18 at most."))
TV_FAILURE(compensation_without_gain,
           TV_TEXT("failures", "On days that it was not made of, the compensation would make the clock %1 to %2 times "
                               "steadier, so that a gain is not sure."))

// tickerctl
TV_FAILURE(log_without_record, "The tracking log %1 has no record.")
TV_FAILURE(log_of_one_record, "The tracking log %1 has fewer than two records.")
TV_FAILURE(line_is_no_number, TV_TEXT("failures", "Line %2 of %1 is no number."))
TV_FAILURE(too_few_numbers,
           TV_TEXT("failures", "%1 has too few numbers: three of phase or two of frequency are the least."))
TV_FAILURE(too_few_for_spectrum, TV_TEXT("failures", "A periodogram needs %1 values at the least."))
TV_FAILURE(nothing_varies, TV_TEXT("failures", "All values are the same: there is nothing to look for in them."))
TV_FAILURE(too_few_readings, TV_TEXT("failures", "This program has kept fewer than two readings of a clock that "
                                                 "follows a source."))
TV_FAILURE(tau_below_step, TV_TEXT("failures", "An averaging time of %1 s is shorter than the step of %2 s."))
TV_FAILURE(too_many_for_all,
           TV_TEXT("failures",
                   "Every averaging time is too much work for more than %1 values; choose octave or decade."))
TV_FAILURE(no_such_measure, "There is no measure \"%1\"; there are adev, oadev, mdev, tdev, hdev and mtie.")
TV_FAILURE(no_averaging_time, "Averaging times are octave, decade, all or seconds separated by commas, not \"%1\".")
TV_FAILURE(no_such_spectrum, "There is no spectrum of \"%1\"; there are offset, rem_cor and rms_offset.")
TV_FAILURE(spectrum_without_interval, "The interval between two samples must be more than 0 seconds.")
TV_FAILURE(spectrum_too_short, "The duration must be at least half an interval.")
TV_FAILURE(spectrum_too_long, "A spectrum has at most %1 samples: shorten the duration or lengthen the interval.")
TV_FAILURE(record_without_value, "The record of %1 UTC has no %2.")
TV_FAILURE(spectrum_too_large, "There is not enough memory for a spectrum of that many samples.")

// windows
TV_FAILURE(autostart_useless, TV_TEXT("failures", "The file in the autostart folder does not start the program."))
