# What bash offers behind some words: one candidate a line. Arguments: completion file, words.
source "$1"
shift
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
"$(complete -p "$1" | sed -E 's/.*-F ([^ ]+) .*/\1/')"
printf '%s\n' "${COMPREPLY[@]}"
