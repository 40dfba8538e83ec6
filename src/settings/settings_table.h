// Every key of the settings file: its kind, its default, what it means, and what it may be. Adding one here is enough
// for tickerctl to list, check and store it; a window loads and saves it as settings::KEY. Included more than once, so
// without a guard. Counts, indexes, seconds and factors as each line says.

// Main window
TV_SETTING(TextKey, chronyc_command, "tracking", "chronyc command whose output is shown")
TV_SETTING(IntegerKey, meter_view, 1,
           "quantity on the meter: 0 system time, 1 last offset, 2 RMS offset, 3 root delay, 4 root dispersion, "
           "5 frequency",
           0, 5, Limit::when_set)
TV_SETTING(BooleanKey, meter_error_bound, false, "the meter shows the error bound, whatever meter_view says")
TV_SETTING(BooleanKey, ip_address, false, "show numeric addresses instead of names")
TV_SETTING(BooleanKey, original_name, false, "show source names as the configuration has them")
TV_SETTING(IntegerKey, chronyc_interval, 10, "seconds between two refreshes", 1, 60)
TV_SETTING(TextKey, ntpdata_server, "", "server asked about by the ntpdata command")
TV_SETTING(FontKey, CHRONYC_Font, {}, "font of the command output: family, comma, size in points")
TV_SETTING(TextListKey, daemon_hosts, {}, "other machines whose chronyd the main window can show")

// Preferences, General
TV_SETTING(TextKey, file_config, "/etc/chrony.d/chrony.conf", "path of chrony's configuration", TextRule::absolute_path)
TV_SETTING(TextKey, file_chronyc, "/usr/local/bin/chronyc", "path of chronyc", TextRule::absolute_path)
TV_SETTING(TextKey, file_chronyd, "/usr/local/sbin/chronyd", "path of chronyd", TextRule::absolute_path)
TV_SETTING(TextKey, file_chronywake, "/usr/local/bin/chronywake", "path of chronywake", TextRule::absolute_path)
TV_SETTING(DoubleKey, make_thresh, 0.1, "after waking, step the clock when it is off by more than this many seconds", 0,
           1e6, Limit::when_set)
TV_SETTING(IntegerKey, make_limit, 3, "after waking, step in at most this many updates; -1 for any number", -1,
           1'000'000, Limit::when_set)
TV_SETTING(IntegerKey, burst_good, 4, "after waking, good measurements wanted from each source", 1, 1000,
           Limit::when_set)
TV_SETTING(IntegerKey, burst_max, 4, "after waking, largest number of measurements tried", 1, 1000, Limit::when_set)
TV_SETTING(TextKey, burst_netmask, "", "after waking, only sources in this mask/address; empty for all",
           TextRule::trimmed)
TV_SETTING(BooleanKey, launch_login, false, "start the program at login")
TV_SETTING(BooleanKey, adj_system, true, "let chronyd adjust the system clock")
TV_SETTING(BooleanKey, install_wake, true, "install chronywake")

// Preferences, Advanced
TV_SETTING(BooleanKey, restart_gpsd, false, "restart the GPS daemon together with chronyd")
TV_SETTING(BooleanKey, enable_frequency_win, false, "offer the frequency-temperature window")
TV_SETTING(BooleanKey, enable_spectrum_win, false, "offer the spectrum window")

// Synchronise
TV_SETTING(TextKey, sync_ntp_server, "pool.ntp.org", "server to synchronise with once")
TV_SETTING(IntegerKey, sync_timeout, 30, "seconds allowed for one synchronisation", 1, 120)
TV_SETTING(BooleanKey, sync_restart_chronyd, true, "start chronyd after a synchronisation")

// Tracking window. Vertical scale 3 draws one nanosecond a point, 0 one microsecond, -3 one millisecond, -6 one second;
// each step of a zoom doubles.
TV_SETTING(IntegerKey, tracking_dateTimeRange, 0,
           "time range: 0 the whole log, 2 to 8 the last 1, 2, 3, 4, 6, 12 or 24 hours", 0, 8, Limit::when_loaded, 1)
TV_SETTING(IntegerKey, tracking_use_logscale, 1, "logarithmic scale: 1 on, 0 off", 0, 1)
TV_SETTING(TextListKey, recent_logs, {}, "tracking logs opened last, the newest first")
TV_SETTING(DoubleKey, tracking_vZoom, 0, "vertical zoom, a power of two", -5, 5)
TV_SETTING(DoubleKey, tracking_hZoom, 0, "horizontal zoom, a power of two", -20, 5)
TV_SETTING(DoubleKey, tracking_vScale, 0, "vertical scale, a power of ten", -6, 3)
TV_SETTING(BooleanKey, tracking_offsetShow, true, "show the offset")
TV_SETTING(BooleanKey, tracking_meanOffsetShow, false, "show the mean offset")
TV_SETTING(BooleanKey, tracking_rmsOffsetShow, true, "show the RMS offset")
TV_SETTING(BooleanKey, tracking_sdOffsetShow, false, "show the offset's standard deviation")
TV_SETTING(BooleanKey, tracking_frequencyShow, true, "show the frequency")
TV_SETTING(BooleanKey, tracking_systemtimeShow, true, "show the remaining correction")
TV_SETTING(BooleanKey, tracking_mean_systemtimeShow, false, "show the mean remaining correction")
TV_SETTING(BooleanKey, tracking_rms_systemtimeShow, false, "show the RMS remaining correction")
TV_SETTING(BooleanKey, tracking_rootdispersionShow, false, "show the root dispersion")
// No colour reaches 4.5 : 1 in contrast on white and on a dark background, so each is drawn lighter or darker where it
// has to be (Canvas::readable). In either form people who see fewer colours tell any two of them apart.
TV_SETTING(ColorKey, tracking_offsetColor, rgb(0x0060FE), "colour of the offset")
TV_SETTING(ColorKey, tracking_meanOffsetColor, rgb(0x120783), "colour of the mean offset")
TV_SETTING(ColorKey, tracking_rmsOffsetColor, rgb(0x910E02), "colour of the RMS offset")
TV_SETTING(ColorKey, tracking_frequencyColor, rgb(0x45CF5B), "colour of the frequency")
TV_SETTING(ColorKey, tracking_systemtimeColor, rgb(0xE86C00), "colour of the remaining correction")
TV_SETTING(ColorKey, tracking_mean_systemtimeColor, rgb(0xFF17F7), "colour of the mean remaining correction")
TV_SETTING(ColorKey, tracking_rms_systemtimeColor, rgb(0xFDAFFF), "colour of the RMS remaining correction")
TV_SETTING(ColorKey, tracking_rootdispersionColor, rgb(0x5C1443), "colour of the root dispersion")

// Frequency-temperature window
TV_SETTING(BooleanKey, show_scatter_points, true, "show the measured points")
TV_SETTING(BooleanKey, show_mean_frequency, true, "show the fitted frequency")
TV_SETTING(BooleanKey, show_freq_bounds, true, "show the bounds of the fit")
TV_SETTING(BooleanKey, show_last_record, true, "show the latest point")
TV_SETTING(IntegerKey, max_samples, 2000, "largest number of points kept for a sensor", 1, 1'000'000)
TV_SETTING(IntegerKey, regression_order, 1, "degree of the fitted polynomial, less one", 0, 5)

// Spectrum window
TV_SETTING(DoubleKey, SPECTRUM_interval, 4, "seconds between two samples", 1e-3, 1e9, Limit::when_set)
TV_SETTING(DoubleKey, SPECTRUM_duration, 1024, "seconds analysed", 1e-3, 1e9, Limit::when_set)

// Configuration editor
TV_SETTING(TextListKey, recent_configurations, {}, "configurations opened or saved last, the newest first")

// Watching
TV_SETTING(BooleanKey, watch_tray, false,
           "an icon in the desktop's tray shows how the clock is, and watching goes on when the windows are closed")
TV_SETTING(BooleanKey, watch_notify, true, "an alarm is told by a notification of the desktop")
TV_SETTING(DoubleKey, watch_holdover, 3600, "alarm when no source has kept the clock right for so many seconds", 60,
           1e7)
TV_SETTING(DoubleKey, watch_bound, 0.05, "alarm when the clock can be off by more than so many seconds", 1e-7, 1e4)
TV_SETTING(IntegerKey, watch_sources, 2, "alarm when fewer sources than that are usable", 1, 9)
TV_SETTING(DoubleKey, watch_step, 0.1, "alarm when the clock was set by more than so many seconds", 1e-6, 1e6)
TV_SETTING(TextListKey, watch_raised, {}, "alarms that were raised when the program ended")
TV_SETTING(TextListKey, watch_quiet, {}, "alarms among them that are to be quiet until they are over")

// Alerts
TV_SETTING(TextListKey, IgnoreWarnings, {}, "alerts that are not to be shown again")
