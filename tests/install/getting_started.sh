#!/usr/bin/env bash
# Follows the getting-started page literally: writes its files, runs its commands in their order, and wants
# something to be said by each that is there to say something.
#
#   getting_started.sh PAGE PREFIX BUILD WORK
#
# Building and installing were done by others: PREFIX stands in for ~/audioanalyzer, BUILD for build/release.
set -euo pipefail
page=$1 prefix=$2 build=$3 work=$4
fail() { echo "FAIL: $*" >&2; exit 1; }

rm -rf "$work"
mkdir -p "$work/home" "$work/build" "$work/lights"
cd "$work"
export HOME=$work/home PYTHONDONTWRITEBYTECODE=1
ln -s "$prefix" home/audioanalyzer
ln -s "$build" build/release

awk '/^```cmake$/ { on = 1; next } /^```$/ { on = 0 } on' "$page" >lights/CMakeLists.txt
awk '/^```c$/ { on = 1; next } /^```$/ { on = 0 } on' "$page" >beats.c
# The code between fences is indented as well, and no command.
awk '/^```/ { on = !on; next } !on && /^    [^ ]/ { print substr($0, 5) }' "$page" >all_commands
grep -Ev '^(script/bootstrap|cmake --preset|cmake --install)' all_commands >commands
[ "$(($(wc -l <all_commands) - $(wc -l <commands)))" -eq 3 ] || fail "building is said otherwise now"

# What a command has to print: a line per beat, more than 100 in a minute at 128 BPM, or anything.
least_lines_of() {
    case $1 in
    *' analyze song'* | ./beats* | python3* | *vamp-simple-host*) echo 100 ;;
    export* | cp* | cc* | *audio-analyzer-demo*) echo 0 ;;
    *) echo 1 ;;
    esac
}

while read -r command <&3; do
    echo "$ $command"
    status=0
    eval "$command" >output 2>errors || status=$?
    [ "$status" -eq 0 ] || { cat errors; fail "exit status $status"; }
    lines=$(wc -l <output)
    [ "$lines" -ge "$(least_lines_of "$command")" ] || { cat errors; fail "it prints $lines lines"; }
done 3<commands
[ -x lights/build/lights ] || fail "no program was built"
echo "$(wc -l <commands) commands"
