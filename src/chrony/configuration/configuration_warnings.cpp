#include "chrony/configuration/configuration_warnings.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "chrony/configuration/directives.h"
#include "chrony/configuration/local_host.h"
#include "chrony/configuration/server_list.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace tickervantage {
namespace {

using Kind = PathFacts::Kind;

constexpr std::string_view root = "root";
constexpr std::string_view usual_user = "_chrony"; // what distributions build chronyd for, when they have it

// What a path has to be. chronyd opens some files as root when it starts, others later as its own user.
enum class Need : unsigned char {
    file_or_pattern, // read as root; a pattern may match nothing
    read_by_root,
    read_by_user,
    file_or_folder, // read by the user
    device,
    folder,          // read by root
    folder_if_there, // likewise; chronyd goes on without it, and it may come and go, as DHCP's does
    made_folder,     // chronyd makes it, with its own rights, when the folder above is there
    folder_above,    // the file is written anew from time to time, as the user, by way of a second file beside it
    folder_above_of_root,
};

struct Rule {
    std::string_view directive;
    std::size_t argument; // counted from 0; `every`: all of them
    Need need;
};

constexpr std::size_t every = ~std::size_t{0};

constexpr auto rules = std::to_array<Rule>({
    {"include", 0, Need::file_or_pattern},
    {"confdir", every, Need::folder},
    {"sourcedir", every, Need::folder_if_there},
    {"keyfile", 0, Need::read_by_user},
    {"ntsservercert", 0, Need::read_by_user},
    {"ntsserverkey", 0, Need::read_by_user},
    {"hwclockfile", 0, Need::read_by_root},
    {"rtcdevice", 0, Need::device},
    {"tempcomp", 0, Need::read_by_user},
    {"logdir", 0, Need::made_folder},
    {"dumpdir", 0, Need::made_folder},
    {"ntsdumpdir", 0, Need::made_folder},
    {"ntscachedir", 0, Need::made_folder},
    {"driftfile", 0, Need::folder_above},
    {"rtcfile", 0, Need::folder_above},
    {"pidfile", 0, Need::folder_above_of_root},
});

bool is_path_word(std::string_view word) {
    return !word.empty() && word.front() == '/';
}

// chronyd works in the root folder once it has started.
std::string absolute(std::string_view path) {
    return is_path_word(path) ? std::string(path) : "/" + std::string(path);
}

std::string folder_above(const std::string& path) {
    const auto slash =
        path.find_last_not_of('/') == std::string::npos ? 0 : path.rfind('/', path.find_last_not_of('/'));
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

FailureCode is_not(Kind kind) {
    return kind == Kind::file     ? FailureCode::named_path_no_file
           : kind == Kind::device ? FailureCode::named_path_no_device
                                  : FailureCode::named_path_no_folder;
}

class Collector {
public:
    Collector(std::string_view text, const PathProbes& probes, std::string_view daemon_user)
        : m_probes(probes), m_user(daemon_user.empty() ? user_in(text) : daemon_user) {
        const bool usual_is_there = m_user != usual_user || probes.user_exists(m_user);
        m_user = usual_is_there ? m_user : std::string(root);
    }

    void take(std::size_t number, std::string_view line) {
        const LineParts parts = parts_of_line(line);
        if (parts.kind != LineKind::directive)
            return;
        m_line = number;
        m_directive = parts.directive->name;
        auto arguments = words(line);
        arguments.erase(arguments.begin());
        check(*parts.directive, arguments);
    }

    std::vector<ConfigurationWarning> warnings;

private:
    static std::string user_in(std::string_view text) {
        std::string user(usual_user);
        for (const auto line : non_empty_lines(text)) {
            const LineParts parts = parts_of_line(line);
            if (parts.kind != LineKind::directive || parts.directive->name != "user")
                continue;
            if (const auto all = words(line); all.size() > 1)
                user = all[1];
        }
        return user;
    }

    void check(const Directive& directive, const std::vector<std::string_view>& arguments) {
        if (directive.state == DirectiveState::ignored)
            warn(FailureCode::directive_without_effect);
        for (const auto& rule : rules)
            if (rule.directive == directive.name)
                apply(rule, arguments);
        if (directive.name == "server" || directive.name == "pool" || directive.name == "peer")
            check_polls(arguments);
        else if (directive.name == "refclock" && arguments.size() >= 2)
            check_refclock(arguments[0], arguments[1]);
        else if (directive.name == "ntstrustedcerts" && !arguments.empty())
            check_path(absolute(arguments.back()), Need::file_or_folder);
        else if (directive.name == "bindcmdaddress" && !arguments.empty() && is_path_word(arguments[0]) &&
                 arguments[0] != "/")
            check_path(folder_above(std::string(arguments[0])), Need::made_folder);
        else if (directive.name == "leapsectz" && !arguments.empty())
            check_path("/usr/share/zoneinfo/" + std::string(arguments[0]), Need::read_by_root);
        else if (directive.name == "user" && !arguments.empty() && !m_probes.user_exists(std::string(arguments[0])))
            warn(FailureCode::named_user_missing, {std::string(arguments[0])});
        else if (directive.name == "tempcomp" && arguments.size() == 3)
            check_path(absolute(arguments[2]), Need::read_by_user);
    }

    void apply(const Rule& rule, const std::vector<std::string_view>& arguments) {
        for (std::size_t i = 0; i < arguments.size(); ++i)
            if (rule.argument == every || rule.argument == i)
                check_path(absolute(arguments[i]), rule.need);
    }

    void check_polls(const std::vector<std::string_view>& arguments) {
        for (std::size_t i = 1; i + 1 < arguments.size(); ++i) {
            if (!is_word(arguments[i], "minpoll"))
                continue;
            const auto minpoll = poll_in(arguments[i + 1]);
            if (minpoll && asks_too_often(arguments[0], *minpoll))
                warn(FailureCode::polls_too_often, {std::to_string(*minpoll), std::string(arguments[0])});
        }
    }

    void check_refclock(std::string_view driver, std::string_view parameter) {
        const std::string path = absolute(parameter.substr(0, parameter.find(':')));
        if (driver == "PPS" || driver == "PHC")
            check_path(path, Need::device);
        else if (driver == "SOCK")
            check_path(path, Need::folder_above_of_root);
        else if (driver != "SHM")
            warn(FailureCode::named_driver_missing, {std::string(driver)});
    }

    void check_path(const std::string& path, Need need) {
        switch (need) {
        case Need::file_or_pattern:
            if (path.find_first_of("*?[") == std::string::npos)
                expect(path, root, Kind::file);
            return;
        case Need::read_by_root:
            return expect(path, root, Kind::file);
        case Need::read_by_user:
            return expect(path, m_user, Kind::file);
        case Need::file_or_folder:
            return expect(path, m_user, Kind::unknown);
        case Need::device:
            return expect(path, root, Kind::device);
        case Need::folder:
            return expect(path, root, Kind::folder);
        case Need::folder_if_there:
            if (m_probes.look(path, std::string(root)).kind != Kind::missing)
                expect(path, root, Kind::folder);
            return;
        case Need::made_folder:
            return expect_made_folder(path);
        case Need::folder_above:
            return expect_writable(folder_above(path), m_user);
        case Need::folder_above_of_root:
            return expect_writable(folder_above(path), root);
        }
    }

    void expect(const std::string& path, std::string_view user, Kind kind) {
        const PathFacts facts = m_probes.look(path, std::string(user));
        if (facts.kind == Kind::unknown)
            return;
        if (facts.kind == Kind::missing)
            warn(FailureCode::named_path_missing, {path});
        else if (kind != Kind::unknown && facts.kind != kind)
            warn(is_not(kind), {path});
        else if (!facts.readable)
            warn(FailureCode::daemon_cannot_read, {std::string(user), path});
    }

    void expect_made_folder(const std::string& path) {
        const PathFacts facts = m_probes.look(path, m_user);
        if (facts.kind == Kind::missing)
            return expect(folder_above(path), root, Kind::folder);
        expect_writable(path, m_user);
    }

    void expect_writable(const std::string& folder, std::string_view user) {
        expect(folder, root, Kind::folder);
        const PathFacts facts = m_probes.look(folder, std::string(user));
        if (facts.kind == Kind::folder && !facts.writable)
            warn(FailureCode::daemon_cannot_write, {std::string(user), folder});
    }

    // The directive is the first argument of each of these.
    void warn(FailureCode code, std::vector<std::string> arguments = {}) {
        arguments.emplace(arguments.begin(), m_directive);
        warnings.push_back({m_line, Failure{.code = code, .arguments = std::move(arguments)}});
    }

    const PathProbes& m_probes;
    std::string m_user;
    std::size_t m_line = 0;
    std::string_view m_directive;
};

} // namespace

std::vector<ConfigurationWarning> configuration_warnings(std::string_view text, const PathProbes& probes,
                                                         std::string_view daemon_user) {
    Collector collector(text, probes, daemon_user);
    std::size_t number = 0;
    for (std::size_t start = 0; start < text.size() && collector.warnings.size() < most_warnings;) {
        const auto end = std::min(text.find('\n', start), text.size());
        collector.take(++number, text.substr(start, end - start));
        start = end + 1;
    }
    return std::move(collector.warnings);
}

} // namespace tickervantage
