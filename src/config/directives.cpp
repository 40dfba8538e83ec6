#include "config/directives.h"

#include "platform/text_lines.h"

#include <array>

namespace tickervantage {
namespace {

using enum DirectiveState;

constexpr auto directives = std::to_array<Directive>({
    {"acquisitionport", "port", "UDP port that requests to servers are sent from"},
    {"allow", "[all] [subnet]", "Clients that may ask this machine for the time"},
    {"authselectmode", "require|prefer|mix|ignore", "How much sources without authentication count"},
    {"bindacqaddress", "address", "Local address that requests to servers leave by"},
    {"bindacqdevice", "interface", "Network interface that requests to servers leave by"},
    {"bindaddress", "address", "Local address on which clients are served"},
    {"bindcmdaddress", "address|path", "Local address or socket on which chronyc is answered"},
    {"bindcmddevice", "interface", "Network interface on which chronyc is answered"},
    {"binddevice", "interface", "Network interface on which clients are served"},
    {"broadcast", "interval address [port]", "Sends the time to a broadcast address every so many seconds"},
    {"clientloglimit", "bytes", "Most memory kept for remembering clients"},
    {"clockprecision", "seconds", "Precision of the system clock, where the measured one is wrong"},
    {"cmdallow", "[all] [subnet]", "Other machines from which chronyc may monitor this daemon"},
    {"cmddeny", "[all] [subnet]", "Machines from which chronyc may not monitor this daemon"},
    {"cmdport", "port", "UDP port on which chronyc is answered; 0 for none"},
    {"cmdratelimit", "[interval|burst|leak value]...", "Limits how often chronyc is answered over the network"},
    {"combinelimit", "limit", "How much worse than the best a source may be and still be combined with it"},
    {"commandkey", "id", "No longer supported", ignored},
    {"confdir", "folder...", "Reads every *.conf file of these folders as part of the configuration"},
    {"corrtimeratio", "ratio", "How slowly an offset is corrected, against the update interval"},
    {"deny", "[all] [subnet]", "Clients that may not ask this machine for the time"},
    {"driftfile", "file", "Remembers the clock's rate of gain or loss between runs"},
    {"dscp", "value", "Marks the packets sent for the network's quality of service"},
    {"dumpdir", "folder", "Where the measurements of the sources are kept between runs"},
    {"dumponexit", "", "No longer needed: a dumpdir is enough"},
    {"fallbackdrift", "min max", "Rates over long stretches, fallen back on when no source answers"},
    {"generatecommandkey", "", "No longer supported", ignored},
    {"hwclockfile", "file", "Tells whether the real-time clock runs in local time, such as /etc/adjtime"},
    {"hwtimestamp", "interface|* [option]...", "Uses time stamps made by the network card"},
    {"include", "pattern", "Reads another file, or several, at this place"},
    {"initstepslew", "threshold [host]...", "Steps the clock once at start; makestep is the newer way"},
    {"keyfile", "file", "Keys for authenticating servers, peers and clients"},
    {"leapsecmode", "system|step|slew|ignore", "How a leap second is put into the clock"},
    {"leapsectz", "timezone", "Time zone that tells of leap seconds, usually right/UTC"},
    {"linux_freq_scale", "scale", "No longer supported", ignored},
    {"linux_hz", "hz", "No longer supported", ignored},
    {"local", "[stratum|orphan|distance value]...", "Serves time even when it is not synchronised"},
    {"lock_all", "", "Keeps the daemon in memory, so that swapping cannot delay it"},
    {"log", "kind...", "What is logged: measurements, statistics, tracking, rtc, refclocks, tempcomp and others"},
    {"logbanner", "entries", "Repeats the column headings of the logs every so many entries; 0 for never"},
    {"logchange", "seconds", "Reports corrections larger than this to the system log"},
    {"logdir", "folder", "Folder of the log files"},
    {"mailonchange", "address seconds", "Sends mail when a correction is larger than this"},
    {"makestep", "threshold limit", "Steps the clock when it is off by more than this, in the first updates"},
    {"manual", "", "Lets chronyc set the time by hand"},
    {"maxchange", "offset start ignore", "Gives up when the clock would have to be corrected by more than this"},
    {"maxclockerror", "ppm", "How far the clock's rate may wander on its own between updates"},
    {"maxdistance", "seconds", "Sources further away than this are not used"},
    {"maxdrift", "ppm", "Largest rate error that the clock is believed to have"},
    {"maxjitter", "seconds", "Sources that jitter more than this are not used"},
    {"maxntsconnections", "number", "Most NTS connections served at once by one process"},
    {"maxsamples", "number", "Most measurements kept for each source"},
    {"maxslewrate", "ppm", "Fastest rate at which an offset is corrected"},
    {"maxupdateskew", "ppm", "How uncertain an estimate of the rate may be and still be used"},
    {"minsamples", "number", "Fewest measurements kept for each source"},
    {"minsources", "number", "Sources that must agree before the clock is corrected"},
    {"nocerttimecheck", "updates", "First updates during which the dates of certificates are not checked"},
    {"noclientlog", "", "Does not remember who asked for the time"},
    {"nosystemcert", "", "Does not trust the system's own certificates"},
    {"ntpsigndsocket", "folder", "Socket of Samba, which signs answers to its clients"},
    {"ntscachedir", "folder", "Older name of ntsdumpdir"},
    {"ntsdumpdir", "folder", "Where NTS keys and cookies are kept between runs"},
    {"ntsntpserver", "host", "NTP server that NTS clients are sent to"},
    {"ntsport", "port", "TCP port on which NTS keys are handed out"},
    {"ntsprocesses", "number", "Helper processes that hand out NTS keys"},
    {"ntsratelimit", "[interval|burst|leak value]...", "Limits how often NTS keys are handed out to one address"},
    {"ntsrefresh", "seconds", "How often keys are asked for anew from NTS servers"},
    {"ntsrotate", "seconds", "How often the key of the server's own cookies is changed"},
    {"ntsservercert", "file", "Certificate of this NTS server"},
    {"ntsserverkey", "file", "Private key of this NTS server"},
    {"ntstrustedcerts", "[set] file|folder", "Certificates trusted when NTS servers are checked"},
    {"peer", "host [option]...", "Another machine with which time is exchanged both ways"},
    {"pidfile", "file", "Where the running daemon writes its process number"},
    {"pool", "name [option]...", "A name behind which several servers stand, such as pool.ntp.org"},
    {"port", "port", "UDP port on which clients are served; 0 for none"},
    {"ptpport", "port", "UDP port for NTP packets inside PTP messages, for hardware time stamps"},
    {"ratelimit", "[interval|burst|leak value]...", "Limits how often one address is served"},
    {"refclock", "driver parameter [option]...", "A receiver or clock attached to this machine: PPS, SHM, SOCK, PHC"},
    {"reselectdist", "seconds", "How much better a source must be before it takes the place of another"},
    {"rtcautotrim", "seconds", "Sets the real-time clock right when it is off by more than this"},
    {"rtcdevice", "device", "The real-time clock's device, usually /dev/rtc"},
    {"rtcfile", "file", "Remembers the real-time clock's rate between runs"},
    {"rtconutc", "", "The real-time clock runs in UTC"},
    {"rtcsync", "", "Lets the kernel copy the system time to the real-time clock every 11 minutes"},
    {"sched_priority", "priority", "Real-time priority of the daemon, 0 to 100"},
    {"server", "host [option]...", "One server that is asked for the time"},
    {"smoothtime", "max-freq max-wander [leaponly]", "Spreads corrections over time for the clients served"},
    {"sourcedir", "folder...", "Reads the sources in every *.sources file of these folders"},
    {"stratumweight", "seconds", "How much each stratum counts when sources are compared"},
    {"tempcomp", "file interval ...", "Corrects the rate by the reading of a temperature sensor"},
    {"user", "name", "User that the daemon runs as once it has started"},
});

char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// The name, which is in small letters, against a word of the text. Every line of a long text comes here.
bool is_same(std::string_view name, std::string_view word) {
    if (name.size() != word.size())
        return false;
    for (std::size_t i = 0; i < name.size(); ++i)
        if (name[i] != lower(word[i]))
            return false;
    return true;
}

} // namespace

std::span<const Directive> all_directives() {
    return directives;
}

const Directive* find_directive(std::string_view name) {
    for (const auto& one : directives)
        if (is_same(one.name, name))
            return &one;
    return nullptr;
}

bool opens_comment(char first) {
    return first == '!' || first == ';' || first == '#' || first == '%';
}

LineParts parts_of_line(std::string_view line) {
    const std::string_view text = trimmed(line);
    if (text.empty())
        return {};
    const auto start = static_cast<std::size_t>(text.data() - line.data());
    if (opens_comment(text.front()))
        return {LineKind::comment, start, text.size(), nullptr};
    const std::string_view name = text.substr(0, text.find_first_of(" \t\v\f\r"));
    const Directive* directive = find_directive(name);
    return {directive ? LineKind::directive : LineKind::unknown, start, name.size(), directive};
}

} // namespace tickervantage
