#compdef beat-monitor
# Completion of beat-monitor for zsh. Options are read from the program's own help.

_beat-monitor() {
    local -a options
    if [[ $words[CURRENT] == -* ]]; then
        options=(${(f)"$(QT_QPA_PLATFORM=offscreen $words[1] --help 2>/dev/null |
            sed -nE 's/^  (-[a-z],)?(--[a-z-]+)( [^ ]+)*  +(.*)/\2:\4/p')"})
        _describe -o option options
    else
        _files
    fi
}

_beat-monitor "$@"
