#!/bin/bash
# Tests the launcher from outside with a stand-in for the game: launcher_test.sh TEMPLATE
#
# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: The Tavimo developers
set -u
work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT
mkdir -p "$work/shared" "$work/tmp"
failures=0
as=() # a command to run as somebody else

# Says where it is and what it finds there, plays for PLAY seconds or until it is told to end, saves, ends with END.
# Like the game it plays once at a time in a folder.
cat >"$work/game" <<'GAME'
#!/bin/bash
exec 7<../data
flock -n 7 || { echo "The game is already running" >&2; exit 1; }
case ${BREAK:-} in
log) echo "[$$]archive is damaged" >>errorlog.log; exit 255 ;;
error) echo "no display" >&2; exit 1 ;;
esac
[ -z "${PLAY:-}" ] || { trap 'kill $! 2>/dev/null' TERM; sleep "$PLAY" 7<&- & touch "$STARTED"; wait; }
echo "in:$PWD arguments:$#:$* archive:$(cat ../data/data.dar) scores:$(cat ../data/scores 2>/dev/null)"
[ "${BREAK:-}" = full ] || echo "of ${WHO:-Ann}" >../data/scores
exit "${END:-0}"
GAME
chmod +x "$work/game"
sed -e "s|@TAVIMO_PROGRAM@|$work/game|" -e "s|@TAVIMO_ARCHIVE@|$work/shared/data.dar|" "$1" >"$work/tavimo"
chmod +x "$work/tavimo"
echo one >"$work/shared/data.dar"
export TMPDIR=$work/tmp HOME=$work/home STARTED=$work/started
unset XDG_DATA_HOME

fail() {
    echo "$1; output:"
    cat "$work/out" "$work/err"
    failures=$((failures + 1))
}

# starts WHAT STATUS OUT ERR [ARGUMENT...]: one game; OUT and ERR are patterns that output and complaint must match.
starts() {
    local what=$1 status=$2 out=$3 err=$4 got
    shift 4
    "${as[@]}" "$work/tavimo" "$@" >"$work/out" 2>"$work/err"
    got=$?
    [ "$got" -eq "$status" ] || fail "$what: ended with $got, not $status"
    # shellcheck disable=SC2053
    [[ $(<"$work/out") == $out ]] || fail "$what: expected $out"
    # shellcheck disable=SC2053
    [[ $(<"$work/err") == $err ]] || fail "$what: expected the complaint $err"
    [ -z "$(ls "$work/tmp")" ] || fail "$what: left something in the temporary folder"
}
kept='so this game'"'"'s scores will not be kept.'
own=$HOME/.local/share/tavimo


END=3 starts "first start" 3 "in:$own/bin arguments:2:a b c archive:one scores:" "*has failed" "a b" c
[ "$(stat -c %a "$own")" = 700 ] || fail "the folder is open to others"
mv "$HOME" "$work/moved home"
HOME="$work/moved home"
own=$HOME/.local/share/tavimo
rm "$work/shared/data.dar"
starts "no archive" 1 "" "*tavimo-data*"
echo two >"$work/shared/data.dar"
starts "moved and upgraded" 0 "in:$own/bin arguments:0: archive:two scores:of Ann" ""
ln -sfn /gone/data.dar "$own/data/data.dar"
starts "archive elsewhere" 0 "* archive:two *" ""
rm "$own/data/data.dar"
echo mine >"$own/data/data.dar"
starts "an archive of the player's own" 0 "* archive:mine *" ""

WHO=Bob XDG_DATA_HOME="$work/b o b" starts "another folder" 0 "in:$work/b o b/tavimo/bin * scores:" ""
WHO=Bob XDG_DATA_HOME="$work/b o b" starts "the same again" 0 "* scores:of Bob" ""
XDG_DATA_HOME='' starts "empty XDG_DATA_HOME" 0 "in:$own/bin *" ""

elsewhere="in:$work/tmp/tavimo.*/bin *"
END=4 XDG_DATA_HOME=relative starts "relative" 4 "$elsewhere scores:" "*not an absolute path*$kept*"
[ ! -e relative ] || fail "a relative folder was made"
XDG_DATA_HOME=$work/game starts "below a file" 0 "$elsewhere" "*cannot be written*$kept"
HOME='' starts "homeless" 0 "$elsewhere" "*no home folder*$kept"

# What is there but must not be written can still be looked at.
if [ "$(id -u)" -eq 0 ]; then
    as=(setpriv --reuid=65534 --regid=65534 --clear-groups)
    chmod 755 "$work"
    chmod 777 "$work/tmp"
    chmod -R go+rX "$HOME"
else
    chmod -R a-w "$HOME"
fi
starts "read-only" 0 "$elsewhere archive:two scores:of Ann" "*cannot be written*$kept"
as=()
chmod -R u+w "$HOME"

# begin NAME: a game in the background, underway when this returns; its process is in launcher.
begin() {
    rm -f "$STARTED"
    PLAY=60 WHO=$1 "$work/tavimo" >"$work/$1.out" 2>"$work/$1.err" &
    launcher=$!
    for ((tries = 0; tries < 500; ++tries)); do
        [ -e "$STARTED" ] && return
        sleep 0.02
    done
    fail "$1: the game does not start"
}

# end NAME SIGNAL PROCESS: ends it, and expects that it could save and its own status.
end() {
    kill "-$2" "$3"
    wait "$3"
    local got=$?
    [ "$got" -eq 5 ] || fail "$1, ended by $2: status $got"
}

# A failure is told, by the desktop too where standard error is no terminal; the window of a game that runs is raised.
mkdir "$work/desktop"
for program in notify-send wmctrl; do
    printf '#!/bin/sh\necho "%s $*" >>"$TOLD"\nexit "${RAISED:-0}"\n' $program >"$work/desktop/$program"
    chmod +x "$work/desktop/$program"
done
export TOLD=$work/told PATH=$work/desktop:$PATH
told() { # told WHAT PATTERN: what the desktop was asked for, which may take a moment
    for ((tries = 0; tries < 100; ++tries)); do
        # shellcheck disable=SC2053
        [[ $(cat "$TOLD" 2>/dev/null) == $2 ]] && break
        sleep 0.02
    done
    [ "$tries" -lt 100 ] || fail "$1: the desktop was told \"$(cat "$TOLD")\", not $2"
    rm -f "$TOLD"
}
BREAK=log END=255 starts "damaged archive" 255 "" "*has failed: archive is damaged"
told "damaged archive" "notify-send *archive is damaged"
BREAK=error starts "no display" 1 "" "*no display*"
told "no display" "notify-send *no display"
BREAK=full starts "full disk" 0 "in:*" "*could not be saved*"
told "full disk" "notify-send *could not be saved*"

export END=5
begin One
first=$launcher
END=0 starts "a second game, raised" 0 "" "*already running*"
told "a second game, raised" "wmctrl *tavimo"
RAISED=1 starts "a second game" 1 "" "*already running*"
told "a second game" "wmctrl *notify-send *already running."
end One TERM "$first"
begin Two
end Two HUP "$launcher"
[ "$(<"$own/data/scores")" = "of Two" ] || fail "a game ended by a signal did not save"
[ -z "$(ls "$work/tmp")" ] || fail "something was left in the temporary folder"
END=0 starts "after both" 0 "in:$own/bin * scores:of Two" ""

[ "$failures" -eq 0 ] && echo "launcher: all as expected"
exit "$((failures > 0))"
