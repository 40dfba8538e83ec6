#!/bin/sh
# Rotates chrony's logs: chronylogrotate.sh CHRONYC LOGDIR
#
# Every log that has something in it becomes LOG.1, what was LOG.1 becomes LOG.2, and so on; the oldest goes, and all
# but the latest are compressed where gzip is there. Then chronyd is told to open new files. It can be run again
# wherever it was interrupted. Run as root it works as the owner of the folder: names in a folder that somebody else
# can write to are not for root to follow.
set -eu
umask 022

keep=7

fail() {
    echo "chronylogrotate: $1" >&2
    exit 1
}

[ $# -eq 2 ] || fail "needs two arguments: the path of chronyc and the folder of the logs"
chronyc=$1
folder=$2
[ -x "$chronyc" ] || fail "$chronyc is no program"
[ -d "$folder" ] || fail "$folder is no folder"

if [ "$(id -u)" -eq 0 ]; then
    owner=$(stat -c %u -- "$folder")
    group=$(stat -c %g -- "$folder")
    if [ "$owner" -ne 0 ]; then
        exec setpriv --reuid "$owner" --regid "$group" --clear-groups --no-new-privs -- \
            /bin/sh "$0" "$chronyc" "$folder"
    fi
    [ -z "$(find "$folder" -maxdepth 0 -perm /022)" ] || fail "others than root can write to $folder"
fi

# Makes room for LOG.1.
shift_older() {
    age=$keep
    rm -f -- "$1.$age" "$1.$age.gz"
    while [ "$age" -gt 1 ]; do
        older=$age
        age=$((age - 1))
        for ending in "" .gz; do
            if [ -f "$1.$age$ending" ]; then
                mv -fT -- "$1.$age$ending" "$1.$older$ending"
            fi
        done
    done
    if [ -f "$1.2" ] && command -v gzip >/dev/null; then
        gzip -f -- "$1.2" || true # a full disk must not stop the rotation
    fi
}

cd -- "$folder"
rotated=0
for log in *.log; do
    if [ -f "$log" ] && [ -s "$log" ] && [ ! -L "$log" ]; then
        shift_older "$log"
        mv -fT -- "$log" "$log.1"
        rotated=$((rotated + 1))
    fi
done
[ "$rotated" -gt 0 ] || exit 0
"$chronyc" cyclelogs >/dev/null || fail "chronyd could not be told to open new logs"
echo "$rotated logs rotated"
