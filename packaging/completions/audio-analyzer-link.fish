# Completion of audio-analyzer-link for fish. Options are read from the program's own help.

complete -c audio-analyzer-link -n 'string match -q -- "-*" (commandline -ct)' \
    -f -a "(audio-analyzer-link --help 2>/dev/null |
        string replace -rf '^  (?:-[a-z],)?(--[a-z-]+)(?: \S+)*  +(.*)' '\$1\t\$2')"
