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
mv out listing
expect 0 diff listing - <<'LIST'
         4 txt/a.txt
         0 txt/empty
         1 xpm/a-b
    200000 xpm/b/large
LIST
expect 0 "$tool" extract one.dar out-folder/deep
expect 0 diff -r in out-folder/deep
mkdir empty
expect 0 "$tool" pack empty empty.dar
expect 0 "$tool" list empty.dar

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

for usage in "" "pack in" "list" "list a b" "extract one.dar" "unpack a b"; do
    # shellcheck disable=SC2086
    expect 2 "$tool" $usage
done
expect 0 "$tool" --help
mv out help
expect 0 grep -q Usage help
if compgen -G '*.part*' >left; then
    echo "drafts were left behind: $(cat left)"
    failures=$((failures + 1))
fi
[ "$failures" -eq 0 ] && echo "archive tool: all as expected"
exit "$((failures > 0))"
