#!/bin/bash
# complete.sh PROGRAM: the scripts ask the program for what a user of the shell means.
set -eu
program=$1
fail() { echo "$*" >&2; exit 1; }
# shellcheck disable=SC1090
source <("$program" print bash)
COMP_WORDS=("$program" check --job "my job.json" --format j) COMP_CWORD=5
_tovarek "$program"
[ "${COMPREPLY[*]}" = "$(printf 'json\njunit')" ] || [ "${COMPREPLY[*]}" = "json junit" ] || fail "bash: ${COMPREPLY[*]}"
COMP_WORDS=("$program" dump "") COMP_CWORD=2
_tovarek "$program"
[ ${#COMPREPLY[@]} = 0 ] || fail "bash takes ${COMPREPLY[*]} where a file belongs"
options=$("$program" print words check -)
grep -q $'^--fix\t.' <<<"$options" || fail "no option --fix"
! grep -v $'^--[A-Za-z-]*\t.' <<<"$options" || fail "an option without its help in one line"
export PATH=${program%/*}:$PATH
if command -v zsh >/dev/null; then
  zsh -f -c 'words=("$1" catalog s) CURRENT=3; _describe() { print -r -- "$found"; }; eval "$("$1" print zsh)"' - "$program" |
    grep -q '^show:show one' || fail zsh
fi
if command -v fish >/dev/null; then
  fish -N -c "$("$program" print fish); complete -C 'tovarek catalog s'" | grep -q '^show.show one' || fail fish
fi
"$program" print man | { ! command -v groff >/dev/null || groff -man -ww -z -Tutf8 2>&1; } | { ! grep .; }
