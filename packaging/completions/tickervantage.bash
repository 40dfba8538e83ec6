# Completions of tickervantage and tickerctl for bash. What is offered is read from the programs' own help, so that it
# is what the installed version knows.

# The names in one section of a command's help: _tickervantage_names Options|Subcommands COMMAND...
_tickervantage_names() {
    "${@:2}" --help 2>/dev/null | awk -v section="$1:" '
        /^[A-Z]/ { within = $1 == section }
        within && /^  [^ ]/ { count = split($1, names, ","); for (i = 1; i <= count; ++i) print names[i] }'
}

# What an option or a command takes, where that is a word of a list.
_tickervantage_values() {
    case $1 in
        --series) echo offset rem_cor rms_offset ;;
        --meter) echo systemtime lastoffset rmsoffset rootdelay rootdispersion frequency ;;
        --kind) echo tracking measurements rawmeasurements statistics selection refclocks tempcomp rtc ;;
        --services) echo systemd launchd ;;
        "settings get" | "settings set") tickerctl settings list 2>/dev/null | awk '{ print $1 }' ;;
        report) echo tracking sources sourcestats activity authdata ntpdata selectdata clients serverstats rtcdata smoothing manual ;;
    esac
}

_tickervantage() {
    local current=$2 previous=$3 command=("$1") words subcommands word
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ $word == [a-z]* ]] || continue
        subcommands=$(_tickervantage_names Subcommands "${command[@]}")
        [[ $'\n'$subcommands$'\n' != *$'\n'"$word"$'\n'* ]] || command+=("$word")
    done
    case $current in
        -*) words=$(_tickervantage_names Options "${command[@]}") ;;
        *)
            words=$(_tickervantage_values "$previous")
            [[ $words ]] || words=$(_tickervantage_names Subcommands "${command[@]}")
            [[ $words ]] || words=$(_tickervantage_values "${command[*]:1}")
            ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

# Where there is no word to offer, a file may be meant.
complete -o default -F _tickervantage tickervantage tickerctl
