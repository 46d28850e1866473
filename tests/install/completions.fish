# What fish offers behind some words: one candidate a line. Arguments: completion file, words.
source $argv[1]
complete -C "$argv[2..-1]" | string replace -r '\t.*' ''
true
