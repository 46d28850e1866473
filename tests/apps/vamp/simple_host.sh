#!/usr/bin/env bash
# The beats that the SDK's own host gets from the plugin are those of "audio-analyzer analyze", to the
# sample, and the plugin prints nothing.
#
#   simple_host.sh ANALYZER DEMO VAMP_PATH WORK
set -euo pipefail
analyzer=$1 demo=$2 work=$4
export VAMP_PATH=$3
fail() { echo "FAIL: $*" >&2; exit 1; }

mkdir -p "$work"
cd "$work"
for rate in 44100 48000; do
    "$demo" --rate $rate demo.wav
    vamp-simple-host -s audio-analyzer-vamp:beat-tracker:beats demo.wav -o plugin.txt 2>messages ||
        { cat messages; fail "the host failed"; }
    "$analyzer" analyze --quiet --format csv demo.wav >program.csv

    # "56321: 3" and "1.277120,3" both become "56321 3".
    sed -E 's/^ *([0-9]+): ?(.*)$/\1 \2/; s/ $//' plugin.txt >plugin.beats
    awk -F, -v rate=$rate '/^[0-9]/ { printf "%.0f %s\n", $1 * rate, $2 }' program.csv >program.beats
    [ "$(wc -l <program.beats)" -gt 100 ] || fail "the program found next to no beats"
    grep -q ' 1$' program.beats || fail "the program found no bar"
    # Times in the CSV have microseconds, a twentieth of a sample.
    diff program.beats plugin.beats || fail "the beats differ at $rate Hz"

    # The host comments on its own work; nothing else may be there.
    if grep -vE '^$|vamp-simple-host|^Reading file|^Running plugin|^Using block size|^Plugin accepts|^Sound file|^Output is|^Output sample type|^Done|%' <(tr '\r' '\n' <messages | sed 's/^ *//'); then
        fail "the plugin printed something"
    fi
done
echo "$(wc -l <program.beats) beats are the same"
