#!/bin/sh
# NoMemory.sh EMPTY WORK PROGRAM ARGUMENTS...: the program in address spaces from the smallest one that EMPTY runs in,
# in steps of 64 KiB, up to the first one that it succeeds in. In all others it must end with error 7 and status 1, but
# where the system's loader finds no room for the program itself, which is larger than EMPTY.
empty=$1 work=$2
shift 2
mkdir -p "$work"

# in_space KIB COMMAND...: the status of the command; what it prints is in the work folder.
in_space() {
    (ulimit -v "$1"; shift; exec "$@") >"$work/out" 2>"$work/error"
}

space=1024
until in_space $space "$empty"; do space=$((space + 64)); done
failures=0
until in_space $space "$@"; do
    status=$?
    space=$((space + 64))
    if [ $status -eq 127 ] && grep -Eq 'error while loading shared libraries|cannot allocate TLS' "$work/error"; then
        continue
    fi
    if [ $status -ne 1 ] || [ -s "$work/out" ] || ! head -n 1 "$work/error" | grep -q '^tovarek: error 7 outOfMemory: '; then
        echo "in $((space - 64)) KiB: status $status"
        cat "$work/out" "$work/error"
        exit 1
    fi
    failures=$((failures + 1))
done
echo "failed $failures times, succeeded in $space KiB"
[ $failures -gt 0 ]
