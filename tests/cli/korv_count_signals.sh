#!/usr/bin/env bash
# Signals and korv-count: the first one stops and lists, a second one ends the program at once.
#     korv_count_signals.sh KORV_COUNT
# Nothing here goes by time: each step waits for what the program shows.
set -u
program=$1
. "$(dirname "$0")/process_checks.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
mkdir temporary
export TMPDIR=$work/temporary

# until_true COMMAND...: comes back when the command succeeds, or reports that it never does.
until_true() {
  local left=1200
  until "$@" 2> /dev/null; do
    left=$((left - 1))
    [ $left -gt 0 ] || { fault "never came true: $*"; return; }
    sleep 0.05
  done
}
# catches PID NUMBER: whether the process handles the signal.
catches() {
  ((0x$(sed -n 's/^SigCgt:[[:space:]]*//p' "/proc/$1/status") >> ($2 - 1) & 1))
}
# has_ended PID: whether the process is gone, or waits only to be asked for its status.
has_ended() {
  [ ! -e "/proc/$1" ] || grep -q '^State:[[:space:]]*Z' "/proc/$1/status"
}
# A pipe holds 64 KB: when more than that is written into it, the program has read the rest.
awk 'BEGIN { for (i = 0; i < 9000; i++) printf "the cat w%d sat. the cat w%d sat. ", i, i }' | tr 0123456789 abcdefghij > text
write_text() {
  timeout 120 cat text >&3 || fault 'nobody read the text'
}
no_temporary_files() {
  [ -z "$(ls -A temporary)" ] || fault "$1: in the temporary folder lies $(ls -A temporary)"
  [ -z "$(find . -name '.korv*')" ] || fault "$1: $(find . -name '.korv*') was left"
}

mkfifo typed shown
for first in INT TERM; do
  # The first signal comes while standard input is read; then the report fills a pipe that nobody empties.
  "$program" - --min-words 2 --min-frequency 1 --layout tabs <typed >shown 2>err &
  pid=$!
  exec 3<>typed 4<>shown
  write_text
  kill -$first $pid
  IFS= read -r line <&4
  case $line in
    'There are '*) ;;
    *) fault "after $first the report begins with '$line'" ;;
  esac
  # The second one ends it in the signal's own way.
  kill -TERM $pid
  until_true has_ended $pid
  wait $pid
  got=$?
  [ $got -eq 143 ] || fault "$first and TERM ended with $got: $(cat err)"
  exec 3>&- 4>&-
done

# One stop alone lists what was read, and tells how much that is.
"$program" - --min-words 2 <typed >out 2>err &
pid=$!
exec 3<>typed
write_text
kill -INT $pid
until_true has_ended $pid
wait $pid
got=$?
[ $got -eq 130 ] || fault "INT ended with $got: $(cat err)"
exec 3>&-
grep -q '^Stopped: the report covers the first [0-9,]* words' err || fault "nothing tells what the report covers: $(cat err)"
grep -qE '^[0-9,]+ words read, ' err || fault "nothing tells what was read: $(cat err)"

# A stop reaches a program that waits for a pipe under a name of its own.
"$program" typed --min-words 2 >out 2>err &
pid=$!
exec 3<>typed
write_text
kill -TERM $pid
until_true has_ended $pid
wait $pid
got=$?
[ $got -eq 130 ] || fault "TERM on a pipe ended with $got: $(cat err)"
exec 3>&-

# SIGQUIT ends it at once; a report that was there stays as it was.
echo old > report.txt
ulimit -c 0
"$program" - -o report.txt --force <typed >out 2>err &
pid=$!
exec 3<>typed
write_text
until_true catches $pid 3
kill -QUIT $pid
until_true has_ended $pid
wait $pid
got=$?
[ $got -eq 131 ] || fault "QUIT ended with $got: $(cat err)"
exec 3>&-
[ "$(cat report.txt)" = old ] || fault 'QUIT changed the report'
[ ! -s err ] || fault "QUIT said: $(cat err)"
no_temporary_files QUIT

# A report that outgrows its limit is a failed write.
(
  ulimit -f 8
  exec "$program" text --min-words 2 --min-frequency 1 -o report.txt --force >out 2>err
)
got=$?
[ $got -eq 1 ] || fault "a report that is too large ended with $got"
[ -s err ] || fault 'a report that is too large was not told of'
[ "$(cat report.txt)" = old ] || fault 'a report that is too large replaced the old one'
no_temporary_files 'a report that is too large'
(
  ulimit -f 8
  exec "$program" text --min-words 2 --min-frequency 1 >large 2>err
)
got=$?
[ $got -eq 1 ] || fault "standard output that is too large ended with $got"
grep -q 'Standard output cannot be written.' err || fault "standard output that is too large: $(cat err)"

# A reader that goes away ends it in silence, also where the caller ignores the signal.
for disposition in '' "trap '' PIPE;"; do
  bash -c "$disposition"' "$0" text --min-words 2 --min-frequency 1 2>err | head -n 1 >out; echo ${PIPESTATUS[0]} >got' "$program"
  [ "$(cat got)" -eq 141 ] || fault "a reader that goes away ended it with $(cat got)"
  [ ! -s err ] || fault "a reader that goes away made it say: $(cat err)"
done

finish
