# Completion of beat-monitor for fish. Options are read from the program's own help.

complete -c beat-monitor -n 'string match -q -- "-*" (commandline -ct)' \
    -f -a "(QT_QPA_PLATFORM=offscreen beat-monitor --help 2>/dev/null |
        string replace -rf '^  (?:-[a-z],)?(--[a-z-]+)(?: \S+)*  +(.*)' '\$1\t\$2')"
