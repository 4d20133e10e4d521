#!/bin/bash
# Tests the archive tool from outside: archive_test.sh PROGRAM
#
# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: The Tavimo developers
set -u
tool=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
failures=0

# expect CODE COMMAND...: runs it, its output in the file out, and compares the exit code.
expect() {
    local code=$1 got
    shift
    "$@" >out 2>err
    got=$?
    if [ "$got" -ne "$code" ]; then
        echo "exit code $got instead of $code: $*"
        cat err
        failures=$((failures + 1))
    fi
}

says() { # TEXT...: in what the last command wrote
    local text
    for text; do
        grep -qF -- "$text" out err || { echo "not said: $text"; cat out err; failures=$((failures + 1)); }
    done
}

mkdir -p in/xpm/b in/txt
printf 'text' >in/txt/a.txt
printf '' >in/txt/empty
head -c 200000 /dev/urandom >in/xpm/b/large
printf 'x' >in/xpm/a-b # '-' sorts before '/'

expect 0 "$tool" pack in one.dar
expect 0 "$tool" pack in one.dar # written over
cp -r in copy
expect 0 "$tool" pack copy/ two.dar
expect 0 cmp one.dar two.dar # the same order whatever the folder's
expect 0 "$tool" list one.dar
says 'txt/a.txt    text       4  1 line' '4 entries, 200005 bytes'
expect 0 "$tool" list -q one.dar 'txt/*' # a pattern
expect 0 test "$(wc -l <out)" -eq 3
expect 0 "$tool" extract one.dar out-folder/deep
expect 0 diff -r in out-folder/deep

# Failures say why, and leave what was there.
expect 1 "$tool" pack none two.dar
expect 1 "$tool" pack in in/self.dar
expect 1 "$tool" pack in nowhere/two.dar
expect 0 cmp one.dar two.dar
expect 1 "$tool" list none.dar
expect 1 "$tool" list in
for size in 0 3 4 30 $(($(stat -c %s one.dar) - 1)); do
    head -c "$size" one.dar >cut.dar
    expect 1 "$tool" extract cut.dar cut-folder
done
expect 1 test -e cut-folder

# Names that lead outside: one entry, one byte; the name's bytes have their high bit flipped.
evil() {
    local name=$1 length=${#1}
    {
        printf "\\0\\0\\0\\x$(printf %02x $((length + 16)))\\0\\0\\0\\x$(printf %02x "$length")"
        printf '%s' "$name" | LC_ALL=C tr '\000-\177' '\200-\377'
        printf '\0\0\0\0\0\0\0\1!'
    } >evil.dar
}
for name in ../up /tmp/root a/../../up .. a//b ./a; do
    evil "$name"
    expect 0 "$tool" list evil.dar
    expect 1 "$tool" extract evil.dar jail
done
expect 1 test -e up -o -e jail
mkdir jail && ln -s .. jail/link
evil link/up
expect 1 "$tool" extract evil.dar jail
expect 1 test -e up
evil plain
expect 0 "$tool" extract evil.dar jail
expect 0 test -f jail/plain

# Pictures: PNG on the way out and in, and back to the same bytes.
xpm() { # WIDTH COLOUR: one row, the last pixel transparent
    mkdir -p "$(dirname "$3")"
    local row
    row=$(printf '%*s' "$(($1 - 1))" '' | tr ' ' '.')
    printf '/* XPM */\nstatic char *picture[] = {\n"%s 20 2 1",\n". c #%s",\n"  c #EA008A",\n' "$1" "$2" >"$3"
    for _ in {1..19}; do printf '"%s ",\n' "$row"; done >>"$3"
    printf '"%s "};\n' "$row" >>"$3"
}
xpm 60 FF9E00 pictures/xpm/dialog/001.xpm
xpm 60 319E4A pictures/xpm/dialog/002.xpm
expect 0 "$tool" pack pictures drawn.dar
expect 0 "$tool" extract drawn.dar png
expect 0 test -f png/xpm/dialog/001.png
expect 0 "$tool" pack png p.dar
expect 1 "$tool" diff drawn.dar p.dar
says '~ xpm/dialog/001.xpm: the same picture, written differently'
expect 0 "$tool" extract p.dar png
expect 0 "$tool" pack png p2.dar
expect 0 cmp p.dar p2.dar
cp p2.dar p3.dar
xpm 60 319E4A other/xpm/dialog/001.xpm
expect 0 "$tool" replace p2.dar other
expect 1 "$tool" diff p.dar p2.dar
says '~ xpm/dialog/001.xpm: 1180 pixels of 1200 changed'
expect 0 "$tool" replace -o p4.dar p2.dar xpm/dialog/001.xpm png/xpm/dialog/001.png
expect 0 "$tool" diff p.dar p4.dar

# What is refused, and that the archive stays as it is.
expect 1 "$tool" replace p3.dar xpm/dialog/010.xpm png/xpm/dialog/001.png
says 'none: the game never asks for this name; the series in this folder has 9 pictures'
xpm 61 FF9E00 wide/xpm/dialog/002.xpm
expect 1 "$tool" replace p3.dar wide
says '61x20; needed 60x20, the size of xpm/dialog/001.xpm'
xpm 60 EF008C pink/xpm/dialog/001.xpm
expect 0 "$tool" pack pink k.dar
expect 0 "$tool" extract k.dar pink-png
expect 1 "$tool" pack pink-png k2.dar
says '001.png: the pixel 1 from the left and 1 from the top is #EF008C' 'make the pixel transparent'
expect 1 "$tool" replace p3.dar xpm/dialog/001.xpm
expect 0 cmp p3.dar p.dar
expect 1 test -e k2.dar
expect 1 "$tool" check p.dar
says 'xpm/bg/001.xpm: found nothing; needed a picture, 800x600: the background' 'faults'

for usage in "" "pack in" "list" "check a b" "extract one.dar" "unpack a b" "list --no-such-option"; do
    # shellcheck disable=SC2086
    expect 2 "$tool" $usage
done
expect 0 "$tool" --help
says Usage
if compgen -G '*.part*' >left; then
    echo "drafts were left behind: $(cat left)"
    failures=$((failures + 1))
fi
[ "$failures" -eq 0 ] && echo "archive tool: all as expected"
exit "$((failures > 0))"
