#include "chrony/services/chrony_services.h"

namespace tickervantage {
namespace {

using Lines = std::vector<std::string>;

// What none of them needs.
Lines closed_lines() {
    return {"LockPersonality=yes",
            "MemoryDenyWriteExecute=yes",
            "NoNewPrivileges=yes",
            "PrivateMounts=yes",
            "PrivateTmp=yes",
            "ProtectControlGroups=yes",
            "ProtectHome=yes",
            "ProtectHostname=yes",
            "ProtectKernelLogs=yes",
            "ProtectKernelModules=yes",
            "ProtectKernelTunables=yes",
            "ProtectProc=invisible",
            "ProcSubset=pid",
            "RestrictNamespaces=yes",
            "RestrictSUIDSGID=yes",
            "SystemCallArchitectures=native"};
}

Lines joined(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

// Folders of logs and of the daemon's state are the configuration's choice, so what programs and settings lie in is
// closed, and the rest is open. Clocks are devices; whatever else is one is not. The daemon itself gives up root, and
// lists the system calls that it may make.
Lines daemon_sandbox() {
    return joined(closed_lines(),
                  {"CapabilityBoundingSet=CAP_CHOWN CAP_DAC_OVERRIDE CAP_DAC_READ_SEARCH CAP_FOWNER",
                   "CapabilityBoundingSet=CAP_NET_ADMIN CAP_NET_BIND_SERVICE CAP_NET_RAW CAP_SETGID CAP_SETUID",
                   "CapabilityBoundingSet=CAP_SYS_NICE CAP_SYS_RESOURCE CAP_SYS_TIME", "DeviceAllow=char-pps rw",
                   "DeviceAllow=char-ptp rw", "DeviceAllow=char-rtc rw", "DevicePolicy=closed", "ProtectSystem=full",
                   "RestrictAddressFamilies=AF_INET AF_INET6 AF_NETLINK AF_UNIX",
                   "SystemCallFilter=~@cpu-emulation @debug @module @mount @obsolete @raw-io @reboot @swap"});
}

// The script becomes the owner of the logs, and asks chronyd through its socket.
Lines rotation_sandbox() {
    return joined(closed_lines(), {"CapabilityBoundingSet=CAP_CHOWN CAP_DAC_OVERRIDE CAP_FOWNER CAP_SETGID CAP_SETUID",
                                   "PrivateDevices=yes", "PrivateNetwork=yes", "ProtectClock=yes",
                                   "ProtectSystem=strict", "RestrictAddressFamilies=AF_INET AF_INET6 AF_UNIX",
                                   "RestrictRealtime=yes", "SystemCallFilter=@system-service"});
}

// chronyc makes a socket beside chronyd's, in a folder of chronyd's own.
Lines wake_sandbox() {
    return joined(closed_lines(),
                  {"CapabilityBoundingSet=CAP_DAC_OVERRIDE", "PrivateDevices=yes", "PrivateNetwork=yes",
                   "ProtectClock=yes", "ProtectSystem=strict", "RestrictAddressFamilies=AF_INET AF_INET6 AF_UNIX",
                   "RestrictRealtime=yes", "SystemCallFilter=@system-service"});
}

} // namespace

const std::vector<std::string>& other_time_services() {
    static const std::vector<std::string> units{
        "chrony.service",  "chronyd.service",  "ntpsec.service",  "ntp.service",        "ntpd.service",
        "ntpd-rs.service", "openntpd.service", "htpdate.service", "timemaster.service", "systemd-timesyncd.service"};
    return units;
}

ServiceDescription daemon_service(const std::string& chronyd, const std::string& configuration, bool adjusts_clock,
                                  bool filters_calls) {
    ServiceDescription service;
    service.label = daemon_label;
    service.temporary = "chronyd";
    service.words = "chrony, which keeps the clock right";
    service.program = chronyd;
    service.arguments = {chronyd, "-n", "-f", configuration};
    if (!adjusts_clock)
        service.arguments.emplace_back("-x");
    if (filters_calls)
        service.unit_arguments = {"-F", "1"};
    service.keep_alive = true;
    service.nice = -20;
    service.conflicts = other_time_services();
    service.unit_lines = {"After=network.target", "Wants=time-sync.target", "Before=time-sync.target"};
    service.sandbox = daemon_sandbox();
    return service;
}

ServiceDescription rotation_service(const std::string& script, const std::string& chronyc,
                                    const std::string& log_folder) {
    ServiceDescription service;
    service.label = rotation_label;
    service.property_list = "org.chrony-project.chronyc"; // where installations have always had it
    service.temporary = "chronylogrotate";
    service.words = "Daily rotation of chrony's logs";
    service.arguments = {"/bin/sh", script, chronyc, log_folder};
    service.daily = DailyTime{.hour = 4, .minute = 5};
    service.sandbox = rotation_sandbox();
    service.written_folders = {"/run"};
    if (!log_folder.empty())
        service.written_folders.push_back(log_folder);
    return service;
}

ServiceDescription wake_service(const std::string& chronywake, const std::vector<std::string>& options) {
    ServiceDescription service;
    service.label = wake_label;
    service.temporary = "chronywake";
    service.words = "Corrects the clock after a sleep";
    service.program = chronywake;
    service.arguments = {chronywake};
    service.arguments.insert(service.arguments.end(), options.begin(), options.end());
    service.keep_alive = true;
    service.sandbox = wake_sandbox();
    service.written_folders = {"/run"};
    return service;
}

} // namespace tickervantage
