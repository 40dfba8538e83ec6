# shellcheck shell=bash
# What the scripts beside this file share; they source it in the machine.

# "%p" and a tab come first in the lists of files that are compared.
readonly listed='%p\t%m %u:%g %l\n'

# A file that comes or goes below while they are listed is no failure.
listed_in() { { find "$@" 2>/dev/null || true; } | sort; } # FOLDER... EXPRESSION

# Whoever works on the machine below changes its files meanwhile, and they shine through. What this machine changed itself
# lies in a layer of its own: only that counts in the differences of two lists, which are printed, and are a failure.
same_but_for_others() { # BEFORE AFTER
    local found sign path rest
    found=$(diff "$1" "$2" | grep '^[<>]' | while IFS=$'\t' read -r path rest; do
        sign=${path:0:2} path=${path:2}
        [[ ! -e /own-changes$path && ! -L /own-changes$path ]] || printf '%s%s\t%s\n' "$sign" "$path" "$rest"
    done) || true
    [[ -z $found ]] || { printf '%s\n' "$found" >&2 && return 1; }
}
