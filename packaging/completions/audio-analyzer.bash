# Completion of audio-analyzer for bash. Commands and options are read from the program's own help.

_audio_analyzer_reply() {
    local IFS=$'\n' word
    COMPREPLY=()
    for word in $(compgen -W "$1" -- "$2"); do
        COMPREPLY+=("$(printf '%q' "$word")")
    done
}

_audio_analyzer() {
    local program=${COMP_WORDS[0]} command=${COMP_WORDS[1]} IFS=$'\n'
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local help options

    if ((COMP_CWORD == 1)); then
        help=$("$program" --help 2>/dev/null)
        _audio_analyzer_reply "$(
            sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p' <<<"$help"
            grep -oE '^  (-[a-z],)?--[a-z0-9-]+' <<<"$help" | sed 's/.*--/--/'
        )" "$current"
        return
    fi

    case $command:$previous in
    *:--profile | profiles:edit | profiles:remove | profiles:select)
        options=$("$program" profiles list 2>/dev/null | sed 's/^..//; s/  .*//')
        ;;
    analyze:-f | analyze:--format) options=$'beats\nlabels\ncsv\nsvl\ntempo\njson\nndjson' ;;
    listen:-f | listen:--format) options=$'text\nbeats\nndjson' ;;
    evaluate:-f | evaluate:--format) options=$'text\njson\ncsv' ;;
    listen:-d | listen:--device)
        options=$("$program" devices 2>/dev/null | sed 's/^..//; s/  .*//')
        ;;
    outputs:edit | outputs:remove | outputs:enable | outputs:disable | outputs:test | listen:--output)
        options=$("$program" outputs list 2>/dev/null | sed 's/^..//; s/  .*//')
        ;;
    *:--threshold) options=auto ;;
    *:--tracker) options=$'automatic\nprofile' ;;
    config:set) options=$("$program" config show 2>/dev/null | sed 's/ .*//') ;;
    config:config) options=$'show\nset\npath\nreset' ;;
    outputs:outputs) options=$'list\nadd\nedit\nremove\nenable\ndisable\ntest' ;;
    profiles:profiles) options=$'list\nadd\nedit\nremove\nselect' ;;
    esac
    [[ $current == -* || -z $options ]] &&
        options+=$'\n'$("$program" "$command" --help 2>/dev/null |
            grep -oE '^  (-[a-z],)?--[a-z0-9-]+' | sed 's/.*--/--/')
    [[ $current == -* || -n ${options%%$'\n'*} ]] && _audio_analyzer_reply "$options" "$current"
}

# File names where nothing else fits.
complete -o bashdefault -o default -F _audio_analyzer audio-analyzer
