# shellcheck shell=bash
# What the scripts beside this file share; they source it.

tree=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)

say() { printf '%s\n' "$*"; }

die() {
    printf '%s\n' "$*" >&2
    exit 1
}

# The comment at the top of a script is its help.
show_help() { sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$1"; }

# Runs a command whose memory lies where it always lies, as the thread sanitizer wants it, if the machine allows that.
at_usual_places() {
    local fixed=(setarch "$(uname -m)" -R)
    "${fixed[@]}" true 2>/dev/null || fixed=()
    "${fixed[@]}" "$@"
}

# Where a preset builds: release in build/, the others in build-NAME/.
build_folder() {
    if [[ $1 == release ]]; then say "$tree/build"; else say "$tree/build-$1"; fi
}
