# Completion of audio-analyzer for fish. Commands and options are read from the program's own help.

function __audio_analyzer_commands
    audio-analyzer --help 2>/dev/null |
        string replace -rf '^  ([a-z]+)  +(\S.*)' '$1\t$2'
end

function __audio_analyzer_options
    audio-analyzer $argv --help 2>/dev/null |
        string replace -rf '^  (?:-[a-z],)?(--[a-z0-9-]+)(?: \S+)*  +(.*)' '$1\t$2'
end

# The first column of a list, whose first two characters are a mark.
function __audio_analyzer_names
    audio-analyzer $argv 2>/dev/null | string sub -s 3 | string replace -r '  .*' ''
end

function __audio_analyzer_after
    set -l words (commandline -opc)
    test (count $words) -ge 2; and contains -- $words[-1] $argv
end

set -l known analyze listen devices outputs profiles config evaluate
complete -c audio-analyzer -n __fish_use_subcommand -f -a '(__audio_analyzer_commands)'
complete -c audio-analyzer -n 'string match -q -- "-*" (commandline -ct); and __fish_use_subcommand' \
    -f -a '(__audio_analyzer_options)'
for command in $known
    complete -c audio-analyzer -f -a "(__audio_analyzer_options $command)" \
        -n "__fish_seen_subcommand_from $command; and string match -q -- '-*' (commandline -ct)"
end
complete -c audio-analyzer -n '__audio_analyzer_after --profile' -f -a '(__audio_analyzer_names profiles list)'
complete -c audio-analyzer -n '__fish_seen_subcommand_from profiles; and __audio_analyzer_after edit remove select' \
    -f -a '(__audio_analyzer_names profiles list)'
complete -c audio-analyzer -n '__audio_analyzer_after --output' -f -a '(__audio_analyzer_names outputs list)'
complete -c audio-analyzer -f -a '(__audio_analyzer_names outputs list)' \
    -n '__fish_seen_subcommand_from outputs; and __audio_analyzer_after edit remove enable disable test'
complete -c audio-analyzer -n '__fish_seen_subcommand_from analyze; and __audio_analyzer_after -f --format' \
    -f -a 'beats labels csv svl tempo json ndjson'
complete -c audio-analyzer -n '__fish_seen_subcommand_from listen; and __audio_analyzer_after -f --format' \
    -f -a 'text beats ndjson'
complete -c audio-analyzer -n '__fish_seen_subcommand_from evaluate; and __audio_analyzer_after -f --format' \
    -f -a 'text json csv'
complete -c audio-analyzer -n '__audio_analyzer_after -d --device' -f -a '(__audio_analyzer_names devices)'
complete -c audio-analyzer -n '__audio_analyzer_after --threshold' -f -a auto
complete -c audio-analyzer -n '__audio_analyzer_after --tracker' -f -a 'automatic profile'
complete -c audio-analyzer -n '__audio_analyzer_after config' -f -a 'show set path reset'
complete -c audio-analyzer -n '__audio_analyzer_after outputs' \
    -f -a 'list add edit remove enable disable test'
complete -c audio-analyzer -n '__audio_analyzer_after profiles' -f -a 'list add edit remove select'
complete -c audio-analyzer -n '__audio_analyzer_after set' \
    -f -a '(audio-analyzer config show 2>/dev/null | string replace -r " .*" "")'
