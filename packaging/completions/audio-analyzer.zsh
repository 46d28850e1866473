#compdef audio-analyzer
# Completion of audio-analyzer for zsh. Commands and options are read from the program's own help.

_audio_analyzer_options() {
    local -a options
    options=(${(f)"$($words[1] $@ --help 2>/dev/null |
        sed -nE 's/^  (-[a-z],)?(--[a-z0-9-]+)( [^ ]+)*  +(.*)/\2:\4/p')"})
    _describe -o option options
}

_audio_analyzer_names() {
    local -a names
    names=(${(f)"$($words[1] $@ 2>/dev/null | sed 's/^..//; s/  .*//')"})
    compadd -a names
}

_audio-analyzer() {
    local previous=$words[CURRENT-1] command=$words[2]
    if ((CURRENT == 2)); then
        local -a commands
        commands=(${(f)"$($words[1] --help 2>/dev/null |
            sed -nE '/^Subcommands:/,/^$/s/^  ([a-z]+) +(.*)/\1:\2/p')"})
        _describe command commands
        [[ $words[CURRENT] == -* ]] && _audio_analyzer_options
        return
    fi
    if [[ $words[CURRENT] == -* ]]; then
        _audio_analyzer_options $command
        return
    fi
    case $command:$previous in
    *:--profile | profiles:(edit|remove|select)) _audio_analyzer_names profiles list ;;
    analyze:(-f|--format)) compadd beats labels csv svl tempo json ndjson ;;
    listen:(-f|--format)) compadd text beats ndjson ;;
    evaluate:(-f|--format)) compadd text json csv ;;
    listen:(-d|--device)) _audio_analyzer_names devices ;;
    outputs:(edit|remove|enable|disable|test) | listen:--output) _audio_analyzer_names outputs list ;;
    *:--threshold) compadd auto ;;
    *:--tracker) compadd automatic profile ;;
    config:set) compadd $(${words[1]} config show 2>/dev/null | sed 's/ .*//') ;;
    config:config) compadd show set path reset ;;
    outputs:outputs) compadd list add edit remove enable disable test ;;
    profiles:profiles) compadd list add edit remove select ;;
    *) _files ;;
    esac
}

_audio-analyzer "$@"
