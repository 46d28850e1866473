# Completion of beat-monitor for bash. Options are read from the program's own help.

_beat_monitor() {
    COMPREPLY=()
    [[ ${COMP_WORDS[COMP_CWORD]} == -* ]] || return
    mapfile -t COMPREPLY < <(compgen -W "$(QT_QPA_PLATFORM=offscreen "${COMP_WORDS[0]}" --help 2>/dev/null |
        grep -oE '^  (-[a-z],)?--[a-z-]+' | sed 's/.*--/--/')" -- "${COMP_WORDS[COMP_CWORD]}")
}

complete -o bashdefault -o default -F _beat_monitor beat-monitor
