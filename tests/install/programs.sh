#!/usr/bin/env bash
# Runs installed programs from a prefix that was moved, with their library found beside them.
#
#   programs.sh PREFIX SONG VERSION
set -euo pipefail
prefix=$1 song=$2 version=$3
unset LD_LIBRARY_PATH
fail() { echo "FAIL: $*" >&2; exit 1; }

for program in "$prefix"/bin/*; do
    [ -x "$program" ] || continue
    name=$(basename "$program")
    [ "$(QT_QPA_PLATFORM=offscreen "$program" --version | sed -n 1p)" = "$name $version" ] || fail "$name --version"
    ldd "$program" | grep "libAudioAnalyzer.so.* => $prefix/" >/dev/null ||
        fail "$name does not find the library beside it"
done

analyzer=$prefix/bin/audio-analyzer
tempo=$("$analyzer" analyze --format tempo "$song" | cut -f 2)
echo "tempo $tempo"
# The demo track was written at 128 BPM.
awk -v tempo="$tempo" 'BEGIN { exit !(tempo > 127.5 && tempo < 128.5) }' || fail "tempo $tempo"

# The settings stand beside the program.
[ "$("$analyzer" config path)" = "$prefix/bin/AudioAnalyzer.cfg" ] || fail "config path"
"$analyzer" config set stop-threshold 500
[ -f "$prefix/bin/AudioAnalyzer.cfg" ] || fail "the settings were not saved beside the program"
"$analyzer" config show | grep '^stop-threshold *500 ' >/dev/null || fail "the settings were not read"
rm "$prefix/bin/AudioAnalyzer.cfg"
