# What zsh offers behind some words: one candidate a line. Arguments: completion file, words. The functions
# of zsh's own completion system are replaced by ones that print.
offer() {
    local word
    for word in "$@"; do [[ $word == ${words[CURRENT]}* ]] && print -r -- "$word"; done
}
compadd() { if [[ $1 == -a ]]; then offer "${(@P)2}"; else offer "$@"; fi }
_describe() {
    local list=${@[-1]}
    offer "${(@)${(@P)list}%%:*}"
}
_files() { : }
file=$1
words=("${@:2}")
CURRENT=$#words
set --
source $file
true
