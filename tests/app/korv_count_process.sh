#!/usr/bin/env bash
# Runs korv-count as a process, for what only a process shows: exit statuses, signals, pipes, full disks.
#     korv_count_process.sh KORV_COUNT DATA
set -u
program=$1
data=$2
. "$(dirname "$0")/process_checks.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
cp "$data/sample.txt" sample.txt
count() {
  "$program" "$@"
}

expect 0 '' sample.txt
grep -q 'for the time being' out || fault 'the report lacks its first phrase'
expect 0 '' --help
expect 0 '' --version
expect 2 'a file, a folder or - is needed'
expect 2 'Try: korv-count --help' sample.txt --nonsense
expect 1 'Input file does not exist.' none.txt
expect 1 'There is no text on the clipboard.' -
expect 1 'cannot be the same as the input file' sample.txt -o ./sample.txt --force
cmp -s sample.txt "$data/sample.txt" || fault 'the input changed'

# Beside the program lie the common words and the texts.
expect 0 '' sample.txt --common-words fr --quiet
expect 0 "'#11: Phrase, files that contain it' is available" sample.txt --format 11

# A link is the file that it leads to; so is a second name.
ln -s sample.txt link.txt
expect 1 'cannot be the same as the input file' sample.txt -o link.txt --force
ln sample.txt second.txt
expect 1 'cannot be the same as the input file' sample.txt -o second.txt --force
cmp -s sample.txt "$data/sample.txt" || fault 'the input changed through a link'

# Reports go into pipes and devices, and a full one is a failure.
"$program" sample.txt | head -n 1 | grep -q '^There are' || fault 'nothing came through a pipe'
"$program" - <sample.txt >fromInput || fault 'standard input was not counted'
"$program" sample.txt >fromFile
cmp -s fromInput fromFile || fault 'standard input and file differ'
expect 0 '' sample.txt -o /dev/null
if [ -e /dev/full ]; then
  expect 1 'error # ' sample.txt -o /dev/full --quiet
  "$program" sample.txt >/dev/full 2>err && fault 'a full device was no failure'
  grep -q 'Standard output cannot be written.' err || fault 'a full device was not told of'
fi

# A pipe as input has no size.
mkfifo pipe
cat sample.txt >pipe &
"$program" pipe >fromPipe || fault 'a named pipe was not counted'
cmp -s fromPipe fromFile || fault 'pipe and file differ'

# Names in any encoding.
cp sample.txt $'caf\xe9.txt'
expect 0 '' $'caf\xe9.txt' -o $'r\xe9port.txt'
[ -s $'r\xe9port.txt' ] || fault 'a report under an odd name is missing'
printf 'time\n' >$'w\xe9rds.txt'
expect 0 '' sample.txt --ignore-file $'w\xe9rds.txt' --ignore-mode exclude-with
grep -q 'for the time being' out && fault 'words to ignore under an odd name were not read'
mkdir $'t\xe9xts'
cp sample.txt $'t\xe9xts'
expect 0 '' $'t\xe9xts' --format 11
grep -q '{Folder}/sample.txt' out || fault 'a folder under an odd name is not abbreviated'
rm -r $'t\xe9xts'

# Ctrl-C ends standard input, and what came before it is listed.
# So does the request to end, or else temporary files would stay behind.
mkfifo typed
for signal in INT TERM HUP; do
  "$program" - --min-words 2 <typed >out 2>err &
  pid=$!
  exec 3>typed
  printf 'the big cat sat. the big cat ran. ' >&3
  sleep 0.5
  kill -$signal $pid
  wait $pid
  got=$?
  [ $got -eq 130 ] || fault "the signal $signal ended with $got"
  exec 3>&-
  grep -q 'the big cat' out || fault "the signal $signal lost what had been read"
done

# Ctrl-C in the middle of a large file: a whole report of its beginning, or none.
for _ in $(seq 60); do cat sample.txt; done >one
for _ in $(seq 20); do cat one; done >large.txt
for wait in 0.02 0.1 0.3; do
  rm -f report.txt
  "$program" large.txt -o report.txt --quiet 2>err &
  pid=$!
  sleep $wait
  kill -INT $pid 2>/dev/null
  wait $pid
  got=$?
  case $got in
    0 | 130) [ ! -e report.txt ] || head -n 1 report.txt | grep -q '^File: large.txt' ||
      fault 'a stopped run left half a report' ;;
    *) fault "a stopped run ended with $got: $(cat err)" ;;
  esac
  [ "$(ls -A | grep -vcE '^(sample|link|second|large|report)\.txt$|^(out|err|one|pipe|typed|from.*)$|\.txt$')" -eq 0 ] ||
    fault "a stopped run left $(ls -A)"
done

finish
