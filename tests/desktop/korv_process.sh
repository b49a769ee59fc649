#!/usr/bin/env bash
# What the desktop program answers in a terminal, where there is no display: korv_process.sh PROGRAM VERSION
set -u
program=$1
version=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset DISPLAY WAYLAND_DISPLAY
export QT_QPA_PLATFORM=there_is_no_such_platform
faults=0

# check NAME STATUS OUT ERR ARGUMENT...: the exit status, and what begins standard output and error ("" is empty).
check() {
  local name=$1 status=$2 out=$3 err=$4
  shift 4
  "$program" "$@" > "$scratch/out" 2> "$scratch/err"
  local got=$?
  local ok=1
  [ "$got" = "$status" ] || ok=0
  for stream in out err; do
    local expected=${!stream}
    local first
    first=$(head -n 1 "$scratch/$stream")
    [ "$first" = "$expected" ] || ok=0
  done
  if [ "$ok" = 0 ]; then
    faults=$((faults + 1))
    echo "FAILED: $name: status $got, out: $(cat "$scratch/out"), err: $(cat "$scratch/err")"
  fi
}

usage='Usage: korv [FILE | FOLDER]...'
check 'help' 0 "$usage" '' --help
check 'help, short' 0 "$usage" '' -h
check 'help beside a file' 0 "$usage" '' a.txt --help
check 'version' 0 "korv $version" '' --version
check 'an option that is none' 2 '' 'korv: There is no option --quiet.' --quiet
check 'an option of the toolkit' 2 '' 'korv: There is no option -style.' -style Fusion
if "$program" --help > /dev/full 2> /dev/null; then
  faults=$((faults + 1))
  echo 'FAILED: help that cannot be written'
fi
[ "$faults" = 0 ]
