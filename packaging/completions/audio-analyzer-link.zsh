#compdef audio-analyzer-link
# Completion of audio-analyzer-link for zsh. Options are read from the program's own help.

_audio-analyzer-link() {
    local -a options
    if [[ $words[CURRENT] == -* ]]; then
        options=(${(f)"$($words[1] --help 2>/dev/null |
            sed -nE 's/^  (-[a-z],)?(--[a-z-]+)( [^ ]+)*  +(.*)/\2:\4/p')"})
        _describe -o option options
    else
        _files
    fi
}

_audio-analyzer-link "$@"
