# Completions of tickervantage and tickerctl for fish. What is offered is read from the programs' own help, so that it
# is what the installed version knows.

# The names in one section of a command's help, each with its text, which stands behind column 30 or in the
# next line: __tickervantage_names Options|Subcommands COMMAND...
function __tickervantage_names
    $argv[2..-1] --help 2>/dev/null | awk -v section="$argv[1]:" '
        function tell(i) { for (i = 1; i <= count; ++i) print names[i] "\t" text; count = 0 }
        /^[A-Z]/ { tell(); within = $1 == section }
        within && /^  [^ ]/ {
            tell()
            count = split($1, names, ",")
            text = substr($0, 30, 1) == " " ? substr($0, 31) : ""
            next
        }
        count && text == "" { text = substr($0, 31) }
        END { tell() }'
end

# The program and those of the words before the cursor that are its commands.
function __tickervantage_command
    set -l words (commandline -opc)
    set -l command $words[1]
    for word in $words[2..-1]
        string match -qr '^[a-z]' -- $word
        and __tickervantage_names Subcommands $command | string match -qr "^$word\t"
        and set -a command $word
    end
    printf '%s\n' $command
end

function __tickervantage_words
    set -l command (__tickervantage_command)
    if string match -q -- '-*' (commandline -ct)
        __tickervantage_names Options $command
        return
    end
    switch (commandline -opc)[-1]
        case --series
            printf '%s\n' offset rem_cor rms_offset
            return
        case --meter
            printf '%s\n' systemtime lastoffset rmsoffset rootdelay rootdispersion frequency
            return
        case --kind
            printf '%s\n' tracking measurements rawmeasurements statistics selection refclocks tempcomp rtc
            return
        case --services
            printf '%s\n' systemd launchd
            return
    end
    __tickervantage_names Subcommands $command
    switch "$command[2..-1]"
        case 'settings get' 'settings set'
            tickerctl settings list 2>/dev/null | string replace -r ' = .*?  # ' '\t'
        case report
            printf '%s\n' tracking sources sourcestats activity authdata ntpdata selectdata clients serverstats \
                rtcdata smoothing manual
    end
end

# Where there is no word to offer, a file may be meant.
for program in tickervantage tickerctl
    complete -c $program -n 'test -n "$(__tickervantage_words)"' -f -a '(__tickervantage_words)'
end
