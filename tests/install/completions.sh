#!/usr/bin/env bash
# Asks the installed completions of bash, zsh and fish what they offer.
#
#   completions.sh PREFIX
set -euo pipefail
prefix=$1
here=$(cd "$(dirname "$0")" && pwd)
export PATH=$prefix/bin:$PATH HOME=$prefix QT_QPA_PLATFORM=offscreen
cd "$prefix/share"
failed=0

completion_of() {  # shell, program
    case $1 in
    bash) echo "bash-completion/completions/$2" ;;
    zsh) echo "zsh/site-functions/_$2" ;;
    fish) echo "fish/vendor_completions.d/$2.fish" ;;
    esac
}

# expect "offers, in any order" word...: in every shell; the last word is the one being completed.
expect() {
    local wanted=$1 shell got
    shift
    for shell in bash zsh fish; do
        got=$("$shell" "$here/completions.$shell" "$(completion_of "$shell" "$1")" "$@")
        if [ "$(sort <<<"$got")" != "$(tr ' ' '\n' <<<"$wanted" | sort)" ]; then
            echo "FAIL: $shell offers behind \"$*\": $(tr '\n' ' ' <<<"$got"), and not: $wanted"
            failed=1
        fi
    done
}

options_of() {
    "$@" --help | grep -oE '^ +(-[a-zA-Z],)?--[a-z0-9-]+' | sed 's/.*--/--/' | tr '\n' ' ' | sed 's/ $//'
}

formats_of() {
    audio-analyzer "$1" --help | sed -nE 's/^ *-f,--format NAME +([^(]*:)? *([^(]*[^( ]).*/\2/p' | sed 's/, / /g'
}

commands=$(audio-analyzer --help | sed -nE '/^Subcommands:/,/^$/s/^ +([a-z]+) .*/\1/p')
[ "$(wc -l <<<"$commands")" -ge 5 ] || { echo "FAIL: the help lists no commands"; exit 1; }

expect "analyze" audio-analyzer an
expect "$(options_of audio-analyzer)" audio-analyzer --
for command in $commands; do
    expect "$(options_of audio-analyzer "$command")" audio-analyzer "$command" --
done
expect "--stop-duration --stop-threshold" audio-analyzer analyze --quiet --st
expect "Electro Hardcore Slow" audio-analyzer analyze --profile ""
expect "automatic profile" audio-analyzer listen --tracker ""
expect "Slow" audio-analyzer profiles edit S
expect "$(formats_of analyze)" audio-analyzer analyze song.flac -f ""
expect "$(formats_of listen)" audio-analyzer listen --format ""
expect "$(formats_of evaluate)" audio-analyzer evaluate --format ""
expect "show set path reset" audio-analyzer config ""
expect "stop-duration stop-threshold" audio-analyzer config set st
expect "list add edit remove select" audio-analyzer profiles ""
expect "list add edit remove enable disable test" audio-analyzer outputs ""
audio-analyzer outputs add visuals osc 127.0.0.1:9000
audio-analyzer outputs add lights osc 127.0.0.1:9001
expect "visuals lights" audio-analyzer outputs test ""
expect "visuals" audio-analyzer listen --output v
audio-analyzer outputs remove lights
audio-analyzer outputs remove visuals
for program in beat-monitor audio-analyzer-link; do
    if [ -x "$prefix/bin/$program" ]; then
        expect "$(options_of "$program")" "$program" --
    fi
done
exit $failed
