#include "chrony/configuration/directives.h"

#include "base/text_lines.h"
#include "base/translatable.h"

#include <array>

namespace tickervantage {
namespace {

using enum DirectiveState;

/* TRANSLATOR directives
   configuration editor: what a directive of chrony.conf does, beside its name in the list of directives. */
constexpr auto directives = std::to_array<Directive>({
    {"acquisitionport", "port", TV_TEXT("directives", "UDP port that requests to servers are sent from")},
    {"allow", "[all] [subnet]", TV_TEXT("directives", "Clients that may ask this machine for the time")},
    {"authselectmode", "require|prefer|mix|ignore",
     TV_TEXT("directives", "How much sources without authentication count")},
    {"bindacqaddress", "address", TV_TEXT("directives", "Local address that requests to servers leave by")},
    {"bindacqdevice", "interface", TV_TEXT("directives", "Network interface that requests to servers leave by")},
    {"bindaddress", "address", TV_TEXT("directives", "Local address on which clients are served")},
    {"bindcmdaddress", "address|path", TV_TEXT("directives", "Local address or socket on which chronyc is answered")},
    {"bindcmddevice", "interface", TV_TEXT("directives", "Network interface on which chronyc is answered")},
    {"binddevice", "interface", TV_TEXT("directives", "Network interface on which clients are served")},
    {"broadcast", "interval address [port]",
     TV_TEXT("directives", "Sends the time to a broadcast address every so many seconds")},
    {"clientloglimit", "bytes", TV_TEXT("directives", "Most memory kept for remembering clients")},
    {"clockprecision", "seconds",
     TV_TEXT("directives", "Precision of the system clock, where the measured one is wrong")},
    {"cmdallow", "[all] [subnet]", TV_TEXT("directives", "Other machines from which chronyc may monitor this daemon")},
    {"cmddeny", "[all] [subnet]", TV_TEXT("directives", "Machines from which chronyc may not monitor this daemon")},
    {"cmdport", "port", TV_TEXT("directives", "UDP port on which chronyc is answered; 0 for none")},
    {"cmdratelimit", "[interval|burst|leak value]...",
     TV_TEXT("directives", "Limits how often chronyc is answered over the network")},
    {"combinelimit", "limit",
     TV_TEXT("directives", "How much worse than the best a source may be and still be combined with it")},
    {"commandkey", "id", TV_TEXT("directives", "No longer supported"), ignored},
    {"confdir", "folder...",
     TV_TEXT("directives", "Reads every *.conf file of these folders as part of the configuration")},
    {"corrtimeratio", "ratio", TV_TEXT("directives", "How slowly an offset is corrected, against the update interval")},
    {"deny", "[all] [subnet]", TV_TEXT("directives", "Clients that may not ask this machine for the time")},
    {"driftfile", "file", TV_TEXT("directives", "Remembers the clock's rate of gain or loss between runs")},
    {"dscp", "value", TV_TEXT("directives", "Marks the packets sent for the network's quality of service")},
    {"dumpdir", "folder", TV_TEXT("directives", "Where the measurements of the sources are kept between runs")},
    {"dumponexit", "", TV_TEXT("directives", "No longer needed: a dumpdir is enough")},
    {"fallbackdrift", "min max",
     TV_TEXT("directives", "Rates over long stretches, fallen back on when no source answers")},
    {"generatecommandkey", "", TV_TEXT("directives", "No longer supported"), ignored},
    {"hwclockfile", "file",
     TV_TEXT("directives", "Tells whether the real-time clock runs in local time, such as /etc/adjtime")},
    {"hwtimestamp", "interface|* [option]...", TV_TEXT("directives", "Uses time stamps made by the network card")},
    {"include", "pattern", TV_TEXT("directives", "Reads another file, or several, at this place")},
    {"initstepslew", "threshold [host]...",
     TV_TEXT("directives", "Steps the clock once at start; makestep is the newer way")},
    {"keyfile", "file", TV_TEXT("directives", "Keys for authenticating servers, peers and clients")},
    {"leapsecmode", "system|step|slew|ignore", TV_TEXT("directives", "How a leap second is put into the clock")},
    {"leapsectz", "timezone", TV_TEXT("directives", "Time zone that tells of leap seconds, usually right/UTC")},
    {"linux_freq_scale", "scale", TV_TEXT("directives", "No longer supported"), ignored},
    {"linux_hz", "hz", TV_TEXT("directives", "No longer supported"), ignored},
    {"local", "[stratum|orphan|distance value]...",
     TV_TEXT("directives", "Serves time even when it is not synchronised")},
    {"lock_all", "", TV_TEXT("directives", "Keeps the daemon in memory, so that swapping cannot delay it")},
    {"log", "kind...",
     TV_TEXT("directives", "What is logged: measurements, statistics, tracking, rtc, refclocks, tempcomp and others")},
    {"logbanner", "entries",
     TV_TEXT("directives", "Repeats the column headings of the logs every so many entries; 0 for never")},
    {"logchange", "seconds", TV_TEXT("directives", "Reports corrections larger than this to the system log")},
    {"logdir", "folder", TV_TEXT("directives", "Folder of the log files")},
    {"mailonchange", "address seconds", TV_TEXT("directives", "Sends mail when a correction is larger than this")},
    {"makestep", "threshold limit",
     TV_TEXT("directives", "Steps the clock when it is off by more than this, in the first updates")},
    {"manual", "", TV_TEXT("directives", "Lets chronyc set the time by hand")},
    {"maxchange", "offset start ignore",
     TV_TEXT("directives", "Gives up when the clock would have to be corrected by more than this")},
    {"maxclockerror", "ppm", TV_TEXT("directives", "How far the clock's rate may wander on its own between updates")},
    {"maxdistance", "seconds", TV_TEXT("directives", "Sources further away than this are not used")},
    {"maxdrift", "ppm", TV_TEXT("directives", "Largest rate error that the clock is believed to have")},
    {"maxjitter", "seconds", TV_TEXT("directives", "Sources that jitter more than this are not used")},
    {"maxntsconnections", "number", TV_TEXT("directives", "Most NTS connections served at once by one process")},
    {"maxsamples", "number", TV_TEXT("directives", "Most measurements kept for each source")},
    {"maxslewrate", "ppm", TV_TEXT("directives", "Fastest rate at which an offset is corrected")},
    {"maxupdateskew", "ppm", TV_TEXT("directives", "How uncertain an estimate of the rate may be and still be used")},
    {"minsamples", "number", TV_TEXT("directives", "Fewest measurements kept for each source")},
    {"minsources", "number", TV_TEXT("directives", "Sources that must agree before the clock is corrected")},
    {"nocerttimecheck", "updates",
     TV_TEXT("directives", "First updates during which the dates of certificates are not checked")},
    {"noclientlog", "", TV_TEXT("directives", "Does not remember who asked for the time")},
    {"nosystemcert", "", TV_TEXT("directives", "Does not trust the system's own certificates")},
    {"ntpsigndsocket", "folder", TV_TEXT("directives", "Socket of Samba, which signs answers to its clients")},
    {"ntscachedir", "folder", TV_TEXT("directives", "Older name of ntsdumpdir")},
    {"ntsdumpdir", "folder", TV_TEXT("directives", "Where NTS keys and cookies are kept between runs")},
    {"ntsntpserver", "host", TV_TEXT("directives", "NTP server that NTS clients are sent to")},
    {"ntsport", "port", TV_TEXT("directives", "TCP port on which NTS keys are handed out")},
    {"ntsprocesses", "number", TV_TEXT("directives", "Helper processes that hand out NTS keys")},
    {"ntsratelimit", "[interval|burst|leak value]...",
     TV_TEXT("directives", "Limits how often NTS keys are handed out to one address")},
    {"ntsrefresh", "seconds", TV_TEXT("directives", "How often keys are asked for anew from NTS servers")},
    {"ntsrotate", "seconds", TV_TEXT("directives", "How often the key of the server's own cookies is changed")},
    {"ntsservercert", "file", TV_TEXT("directives", "Certificate of this NTS server")},
    {"ntsserverkey", "file", TV_TEXT("directives", "Private key of this NTS server")},
    {"ntstrustedcerts", "[set] file|folder",
     TV_TEXT("directives", "Certificates trusted when NTS servers are checked")},
    {"peer", "host [option]...", TV_TEXT("directives", "Another machine with which time is exchanged both ways")},
    {"pidfile", "file", TV_TEXT("directives", "Where the running daemon writes its process number")},
    {"pool", "name [option]...",
     TV_TEXT("directives", "A name behind which several servers stand, such as pool.ntp.org")},
    {"port", "port", TV_TEXT("directives", "UDP port on which clients are served; 0 for none")},
    {"ptpport", "port",
     TV_TEXT("directives", "UDP port for NTP packets inside PTP messages, for hardware time stamps")},
    {"ratelimit", "[interval|burst|leak value]...", TV_TEXT("directives", "Limits how often one address is served")},
    {"refclock", "driver parameter [option]...",
     TV_TEXT("directives", "A receiver or clock attached to this machine: PPS, SHM, SOCK, PHC")},
    {"reselectdist", "seconds",
     TV_TEXT("directives", "How much better a source must be before it takes the place of another")},
    {"rtcautotrim", "seconds",
     TV_TEXT("directives", "Sets the real-time clock right when it is off by more than this")},
    {"rtcdevice", "device", TV_TEXT("directives", "The real-time clock's device, usually /dev/rtc")},
    {"rtcfile", "file", TV_TEXT("directives", "Remembers the real-time clock's rate between runs")},
    {"rtconutc", "", TV_TEXT("directives", "The real-time clock runs in UTC")},
    {"rtcsync", "",
     TV_TEXT("directives", "Lets the kernel copy the system time to the real-time clock every 11 minutes")},
    {"sched_priority", "priority", TV_TEXT("directives", "Real-time priority of the daemon, 0 to 100")},
    {"server", "host [option]...", TV_TEXT("directives", "One server that is asked for the time")},
    {"smoothtime", "max-freq max-wander [leaponly]",
     TV_TEXT("directives", "Spreads corrections over time for the clients served")},
    {"sourcedir", "folder...", TV_TEXT("directives", "Reads the sources in every *.sources file of these folders")},
    {"stratumweight", "seconds", TV_TEXT("directives", "How much each stratum counts when sources are compared")},
    {"tempcomp", "file interval ...",
     TV_TEXT("directives", "Corrects the rate by the reading of a temperature sensor")},
    {"user", "name", TV_TEXT("directives", "User that the daemon runs as once it has started")},
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
