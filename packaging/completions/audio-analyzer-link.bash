# Completion of audio-analyzer-link for bash. Options are read from the program's own help.

_audio_analyzer_link() {
    COMPREPLY=()
    [[ ${COMP_WORDS[COMP_CWORD]} == -* ]] || return
    mapfile -t COMPREPLY < <(compgen -W "$("${COMP_WORDS[0]}" --help 2>/dev/null |
        grep -oE '^  (-[a-z],)?--[a-z-]+' | sed 's/.*--/--/')" -- "${COMP_WORDS[COMP_CWORD]}")
}

complete -o bashdefault -o default -F _audio_analyzer_link audio-analyzer-link
