// Requests that the root helper must refuse whoever sends them, with whatever authorisation.
#pragma once

#include <string>
#include <vector>

namespace tickervantage::testing {

// `tool` is a spelling of the support tool that is admitted.
inline std::vector<std::string> hostile_requests(const std::string& tool) {
    const std::string run = "EXECUTE \"" + tool + "\" ";
    const std::string conf = "/etc/chrony.d/chrony.conf";
    const std::string own = "\" \"root:wheel\" \"0644\"";
    std::vector<std::string> requests{
        // Not a request, or more than one.
        "", " ", "EXECUTE", "EXECUTE ", "EXECUTE  ", "execute rm -f /x", "QUIT ", " QUIT", "quit", "QUITEXECUTE",
        "QUIT\nEXECUTE /bin/id", "EXEC /bin/id", std::string("EXECUTE /usr/bin/pgrep -l -f chronyd\0x", 39),
        "EXECUTE /usr/bin/pgrep -l -f chronyd\n", "EXECUTE \x1b[2J", "EXECUTE \xff\xfe", "EXECUTE \xc2\x85",
        // Programs that are none of ours, and ours with other words.
        "EXECUTE /bin/sh", "EXECUTE /bin/id", "EXECUTE id", "EXECUTE sudo id", "EXECUTE \"/bin/sh\" stopchrony",
        "EXECUTE \"/bin/sh\" -c id", "EXECUTE /usr/bin/pgrep -l -f .", "EXECUTE /usr/bin/pgrep -F /etc/shadow chronyd",
        "EXECUTE /usr/bin/pgrep -l -f chronyd x", "EXECUTE /usr/local/bin/chronywake --chronyc /tmp/x",
        "EXECUTE /tmp/chronywake", "EXECUTE /usr/local/bin/../../tmp/chronywake", "EXECUTE LD_PRELOAD=/tmp/x.so id",
        "EXECUTE env LD_PRELOAD=/tmp/x.so /usr/local/bin/chronywake", "EXECUTE PATH=/tmp chmod 0755 /var/log/chrony",
        // The support tool's path and verbs.
        "EXECUTE \"" + tool + "x\" stopchrony", "EXECUTE \"" + tool + "/../sh\" stopchrony",
        "EXECUTE \"/" + tool + "\" stopchrony", "EXECUTE " + tool + " stopchrony", "EXECUTE \"" + tool + "\"stopchrony",
        "EXECUTE \"" + tool + " stopchrony", "EXECUTE \"chronysupport\" stopchrony", run, run + " stopchrony",
        run + "\"stopchrony\"", run + "stopchrony ", run + "stopchrony now", run + "stopchrony; id",
        run + "stopchrony && id", run + "stopchrony | id", run + "stopchrony `id`", run + "stopchrony $(id)",
        run + "stopchrony\tid", run + "format", run + "STOPCHRONY", run + "startchrony --root=/tmp",
        run + "restoreformer \"/etc/passwd\"", run + "restoreformer " + conf, run + "--help",
        // Installing: other places, owners, modes, shapes.
        run + "installitem", run + "installitem \"/x\" \"/etc/passwd" + own,
        run + "installitem \"/x\" \"/etc/chrony.d/../passwd" + own, run + "installitem \"/x\" \"/etc/chrony.d" + own,
        run + "installitem \"/x\" \"//etc/chrony.d/chrony.conf" + own,
        run + "installitem \"/x\" \"/etc/chrony.d/chrony.conf/" + own,
        run + "installitem \"/x\" \"/etc/systemd/system/evil.service" + own,
        run + "installitem \"/x\" \"/etc/systemd/system/org.chrony-project.chronyd.service.d/x.conf" + own,
        run + "installitem \"/x\" \"/etc/cron.d/x" + own, run + "installitem \"/x\" \"/root/.ssh/authorized_keys" + own,
        run + "installitem \"/x\" \"/usr/bin/chronyc\" \"root:wheel\" \"0755\"",
        run + "installitem \"/x\" \"/usr/sbin/chronyd\" \"root:wheel\" \"0755\"",
        run + "installitem \"x\" \"" + conf + own, run + "installitem \"/a/../x\" \"" + conf + own,
        run + "installitem \"\" \"" + conf + own, run + "installitem \"/\" \"" + conf + own,
        run + "installitem \"/x\" \"\" \"root:wheel\" \"0644\"", run + "installitem \"/x\" \"" + conf + "\"",
        run + "installitem \"/x\" \"" + conf + own + " \"more\"", run + "installitem /x " + conf + " root:wheel 0644",
        run + "installitem \"/x\" \"" + conf + "\" \"root:root\" \"0644\"",
        run + "installitem \"/x\" \"" + conf + "\" \"1000:1000\" \"0644\"",
        run + "installitem \"/x\" \"" + conf + "\" \"root:wheel\" \"0666\"",
        run + "installitem \"/x\" \"" + conf + "\" \"root:wheel\" \"4755\"",
        run + "installitem \"/x\" \"" + conf + "\" \"root:wheel\" \"0755\"",
        run + "installitem \"/x\" \"/usr/local/bin/chronyc\" \"root:wheel\" \"4755\"",
        run + "installitem \"/x\"\"" + conf + own, run + "installitem \"/x\"  \"" + conf + own,
        run + "installitem \"/x\" \"" + conf + "\n/etc/passwd" + own,
        // Removing and making folders.
        run + "removeitem \"/etc/passwd\"", run + "removeitem \"" + conf + "\"", run + "removeitem \"/\"",
        run + "removeitem \"/usr/bin/chronyc\"", run + "removeitem \"/usr/local/bin/../../bin/sh\"",
        run + "removeitem \"/run/chrony/../systemd/private.sock\"", run + "removeitem \"/run/chrony/a/b.sock\"",
        run + "removeitem \"127.0.0.1\"", run + "removeitem /usr/local/bin/chronyc", run + "removeitem \"*\"",
        run + "removeitem \"/usr/local/bin/chronyc\" \"/etc/passwd\"", run + "createdirectory \"\" \"/etc/cron.d\"",
        run + "createdirectory \"\" \"/root/.ssh\"", run + "createdirectory \"/etc\" \"/etc/chrony.d\"",
        run + "createdirectory \"\" \"/etc/chrony.d/../x\"", run + "createdirectory /etc/chrony.d/..",
        run + "createdirectory /tmp/x", run + "createdirectory /var/log/chrony/x",
        run + "createdirectory var/log/chrony", run + "createdirectory \"/var/log/chrony\"", run + "createdirectory",
        // Users, the clock, the logs.
        run + "adduser root:x", run + "adduser -o", run + "adduser --uid=0", run + "adduser a b", run + "adduser \"x\"",
        run + "adduser Root", run + "adduser root", run + "adduser chrony2", run + "adduser daemon",
        run + "adduser $(id)", run + "adduser " + std::string(33, 'a'), run + "steptime", run + "steptime 0",
        run + "steptime nan", run + "steptime inf", run + "steptime 1e300", run + "steptime 1;id",
        run + "steptime \"1\"", run + "steptime 1 2", run + "steptime 0x10", run + "steptime +1", run + "rotatelogs",
        run + "rotatelogs \"/tmp/x.sh\" \"/var/log/chrony\"",
        run + "rotatelogs \"/usr/local/bin/chronylogrotate.sh\" \"/etc\"",
        run + "rotatelogs \"/usr/local/bin/chronylogrotate.sh\" \"/var/log/chrony/../../etc\"",
        // The service managers, rm and chmod.
        "EXECUTE /bin/launchctl", "EXECUTE /bin/launchctl bootout system /Library/LaunchDaemons/com.evil.plist",
        "EXECUTE /bin/launchctl bootstrap user /Library/LaunchDaemons/org.chrony-project.chronyd.plist",
        "EXECUTE /bin/launchctl load /Library/LaunchDaemons/org.chrony-project.chronyd.plist",
        "EXECUTE /bin/launchctl bootstrap system /tmp/org.chrony-project.chronyd.plist", "EXECUTE /bin/systemctl",
        "EXECUTE /bin/systemctl start evil.service", "EXECUTE /bin/systemctl stop sshd.service",
        "EXECUTE /bin/systemctl poweroff",
        "EXECUTE /bin/systemctl enable --now /tmp/org.chrony-project.chronyd.service",
        "EXECUTE /bin/systemctl edit org.chrony-project.chronyd.service",
        "EXECUTE /bin/systemctl disable --now chrony.service", "EXECUTE /bin/systemctl --root=/ daemon-reload",
        "EXECUTE systemctl daemon-reload", "EXECUTE rm -rf /", "EXECUTE rm -f", "EXECUTE rm -f /etc/passwd",
        "EXECUTE rm -f /Library/LaunchDaemons/*.plist", "EXECUTE rm -f /Library/LaunchDaemons/../../etc/passwd",
        "EXECUTE rm -f /Library/LaunchDaemons/org.tuxfamily.chronyd.plist /etc/passwd",
        "EXECUTE rm -f /Library/LaunchDaemons/net.brisklane.gpsdstart.plist", "EXECUTE chmod 4755 /var/log/chrony",
        "EXECUTE chmod 0755 /etc/shadow", "EXECUTE chmod 0755 /etc/tracking.log",
        "EXECUTE chmod 0755 /var/log/chrony/../../../etc/tracking.log", "EXECUTE chmod 0755 /var/log/chrony/x",
        "EXECUTE chmod 0755 /run/chrony", "EXECUTE chmod 0755 //var/run//chrony/",
        // What looks like a shell's line.
        "EXECUTE /bin/sh -c 'id' 2>&1", "EXECUTE /bin/sh -c '/usr/bin/chronyc shutdown' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc' 2>&1", "EXECUTE /bin/sh -c '/usr/bin/chronyc clients'",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc clients' 2>&1 x",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc clients'; id 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc clients; id' 2>&1", "EXECUTE /bin/sh -c '/tmp/chronyc clients' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc -h /tmp/s clients' 2>&1",
        "EXECUTE /bin/sh -c 'id' '/usr/bin/chronyc clients' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc ntpdata -h' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc serverstats x' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc ntpdata a b' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc ntpdata $(id)' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc ntpdata ' 2>&1", "EXECUTE /bin/sh -c '/usr/bin/chronyc -n ntpdata' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc  -n  ntpdata' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc ntpdata " + std::string(254, 'h') + "' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc -n -c -m selectdata authdata ntpdata serverstats' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc -n -c -m \"selectdata -a\" \"authdata -a\" ntpdata serverstats ' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc -n -c -m \"selectdata -a\" \"authdata -a\" ntpdata shutdown' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc -n -c -m \"selectdata -a\" \"makestep\" ntpdata serverstats' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc -n -c -m \"selectdata -a\" \"authdata -a\" ntpdata serverstats quit' "
        "2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc -h /tmp/s -n -c -m \"selectdata -a\" \"authdata -a\" ntpdata "
        "serverstats' 2>&1",
        "EXECUTE /bin/sh -c '/tmp/chronyc -n -c -m \"selectdata -a\" \"authdata -a\" ntpdata serverstats' 2>&1",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd -n -c -m \"selectdata -a\" \"authdata -a\" ntpdata serverstats' 2>&1",
        "EXECUTE /bin/sh -c '/usr/bin/chronyc -n -c -m \"selectdata -a\" \"authdata -a\" ntpdata serverstats' 2>/x",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd' 2>&1", "EXECUTE /bin/sh -c '/usr/sbin/chronyd -t 30 -q' 2>&1",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd -t 0 -q \"server h iburst\"' 2>&1",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd -t 121 -q \"server h iburst\"' 2>&1",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd -t -1 -q \"server h iburst\"' 2>&1",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd -t 1e1 -q \"server h iburst\"' 2>&1",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd -t 30 -q \"server  iburst\"' 2>&1",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd -t 30 -q \"include /etc/shadow\"' 2>&1",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd -t 30 -q \"server h iburst\" \"user root\"' 2>&1",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd -t 30 -q \"server h;id iburst\"' 2>&1",
        "EXECUTE /bin/sh -c '/usr/sbin/chronyd -t 30 -f /tmp/x \"server h iburst\"' 2>&1",
        "EXECUTE /bin/sh -c '/tmp/chronyd -t 30 -q \"server h iburst\"' 2>&1"};
    requests.push_back(run + "installitem \"/" + std::string(5000, 'a') + "\" \"" + conf + own); // overlong
    return requests;
}

} // namespace tickervantage::testing
