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
expect 2 'there is no option --min-word; did you mean --min-words?' --min-word 3 sample.txt
expect 1 'Input file does not exist.' none.txt
expect 1 'There is no text on standard input.' -
expect 1 'cannot be the same as the input file' sample.txt -o ./sample.txt --force
cmp -s sample.txt "$data/sample.txt" || fault 'the input changed'

# On a terminal the help is as wide as that is.
if command -v script >script.log; then
  for columns in 64 100; do
    COLUMNS=$columns script -qc "$program --help" script.log | tr -d '\r' >help
    widest=$(awk '{ if (length($0) > most) most = length($0) } END { print most }' help)
    [ "$widest" -le "$columns" ] && [ "$widest" -ge $((columns - 8)) ] ||
      fault "in $columns columns the help has $widest"
  done
fi
rm -f script.log help

# Beside the program lie the common words and the texts.
expect 0 '' sample.txt --common-words fr --quiet
expect 0 "'#11: Phrase, files that contain it' is available" sample.txt --format 11

# A link is the file that it leads to; so is a second name.
ln -s sample.txt link.txt
expect 1 'cannot be the same as the input file' sample.txt -o link.txt --force
ln sample.txt second.txt
expect 1 'cannot be the same as the input file' sample.txt -o second.txt --force
cmp -s sample.txt "$data/sample.txt" || fault 'the input changed through a link'
"$program" - -o sample.txt --force <sample.txt 2>err && fault 'the file behind standard input was replaced'
grep -q 'cannot be the same as the input file' err || fault 'the file behind standard input was not known'

"$program" - second.txt -o sample.txt --force <sample.txt 2>err && fault 'standard input among files was replaced'
grep -q 'cannot be the same as the input file' err || fault 'standard input among files was not known'

# Several files, however they are spelled, count once each; so does a folder that a link leads to.
mkdir -p texts/sub
cp sample.txt texts/a.txt
printf 'The big cat sat. The big cat ran.\n' >texts/sub/b.txt
ln -s texts to-texts
expect 0 '3 files UTF-8, 1 file ASCII' sample.txt texts/a.txt ./texts/../sample.txt "$PWD/sample.txt" texts/sub second.txt to-texts/a.txt
grep -q '^4 files (in 3 folders) were scanned.' out || fault "files were not counted once each: $(head -n 1 out)"
find texts -type f -print0 | sort -z | "$program" --files0-from - --layout tabs 2>err | tail -n +3 >fromList
"$program" texts --subfolders --layout tabs 2>err | tail -n +2 >fromFolder
cmp -s fromList fromFolder || fault "a list of the files of a folder is not that folder: $(diff fromList fromFolder)"
cat texts/sub/b.txt | "$program" sample.txt - --words 3 2>err | grep -q '2  the big cat' ||
  fault 'standard input among files was not counted'
expect 1 'None of the files could be counted.' none.txt nowhere/none.txt
rm -r texts to-texts fromList fromFolder

# Reports go into pipes and devices, and a full one is a failure.
"$program" sample.txt | head -n 1 | grep -q '^There are' || fault 'nothing came through a pipe'
"$program" - <sample.txt >fromInput || fault 'standard input was not counted'
"$program" sample.txt >fromFile
cmp -s fromInput fromFile || fault 'standard input and file differ'
expect 0 '' sample.txt -o /dev/null
timeout 60 "$program" sample.txt --quiet --save-settings /dev/stdout -o /dev/null 2>err | head -n 1 | grep -q '^""' ||
  fault "settings did not come through a pipe: $(cat err)"
if [ -e /dev/full ]; then
  expect 1 'error # ' sample.txt -o /dev/full --quiet
  "$program" sample.txt >/dev/full 2>err && fault 'a full device was no failure'
  grep -q 'Standard output cannot be written.' err || fault 'a full device was not told of'
fi

# Tables that libraries write are files first, of which nothing is left. A build without these libraries says so.
mkdir temporary
for form in xlsx sqlite; do
  if grep -q "does not write" <("$program" sample.txt -o table.$form 2>&1); then continue; fi
  export TMPDIR=$work/temporary
  case $form in
    xlsx) magic=PK ;;
    sqlite) magic='SQLite format 3' ;;
  esac
  rm -f table.$form
  expect 0 '' sample.txt -o table.$form --quiet
  [ "$(head -c ${#magic} table.$form)" = "$magic" ] || fault "table.$form is no $form"
  cp table.$form "before $form"
  expect 1 'exists.  --force replaces it.' sample.txt -o table.$form
  expect 0 '' sample.txt -o table.$form --force --quiet
  "$program" sample.txt -o /dev/stdout --output-format $form --quiet 2>err | head -c ${#magic} | grep -q "$magic" ||
    fault "no $form came through a pipe"
  if [ -e /dev/full ]; then
    expect 1 'error # 61' sample.txt -o /dev/full --output-format $form --quiet
  fi
  cp table.$form "before $form"
  (
    ulimit -f 4
    trap '' XFSZ
    expect 1 'At ListWords error # ' sample.txt -o table.$form --force --quiet
    exit $faults
  ) || faults=$((faults + 1))
  cmp -s table.$form "before $form" || fault "a full disk changed table.$form"
  [ -z "$(ls temporary)" ] || fault "temporary files are left: $(ls temporary)"
  unset TMPDIR
done
rm -r temporary table.* before*

# A pipe as input has no size. Its other end must be there before the program looks, or it is empty; so this
# script opens it first, here and below, and keeps it to itself. The pipe cannot hold all of these lines: when they
# are written, the program is reading.
yes 'the big cat sat. the big cat ran.' | head -n 6000 >lines
mkfifo pipe
exec 3<>pipe
"$program" pipe --min-words 2 >fromPipe 3>&- &
pid=$!
feed lines
exec 3>&-
ended $pid || fault 'a named pipe was not counted'
"$program" lines --min-words 2 >fromLines
cmp -s fromPipe fromLines || fault 'pipe and file differ'

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
# A program that is reading heeds signals.
mkfifo typed
signals=(INT TERM HUP)
if ((0x$(sed -n 's/^SigIgn:[[:space:]]*//p' /proc/$$/status) & 1)); then
  echo 'SIGHUP is ignored here, so it is not tried'
  signals=(INT TERM)
fi
for signal in "${signals[@]}"; do
  exec 3<>typed
  "$program" - --min-words 2 <typed >out 2>err 3>&- &
  pid=$!
  feed lines
  kill -$signal $pid
  ended $pid
  got=$?
  [ $got -eq 130 ] || fault "the signal $signal ended with $got"
  exec 3>&-
  grep -q 'the big cat' out || fault "the signal $signal lost what had been read"
done

# Ctrl-C in the middle of a large file: a whole report of its beginning, or none.
whole_or_none() {
  [ ! -e report.txt ] || head -n 1 report.txt | grep -q '^File: typed' || fault 'a stopped run left half a report'
  [ "$(ls -A | grep -vcE '^(typed|out|err|pipe|lines|part|from[A-Za-z]*)$|\.txt$')" -eq 0 ] ||
    fault "a stopped run left $(ls -A)"
}
for _ in $(seq 200); do cat sample.txt; done >part
for parts in 1 3 6; do
  rm -f report.txt
  exec 3<>typed
  "$program" typed -o report.txt --quiet 2>err 3>&- &
  pid=$!
  for _ in $(seq $parts); do feed part; done
  kill -INT $pid
  # A file is read on until a stop is seen, which is when there is something to read.
  yes 'the big cat sat.' >&3 2>yes.txt &
  writer=$!
  exec 3>&-
  ended $pid
  got=$?
  kill $writer 2>/dev/null
  [ $got -eq 130 ] || fault "a stopped run ended with $got: $(cat err)"
  whole_or_none
done

# And when all has been read, while it is counted or listed.
rm -f report.txt
exec 3<>typed
"$program" typed -o report.txt --quiet 2>err 3>&- &
pid=$!
for _ in 1 2 3; do feed part; done
exec 3>&-
kill -INT $pid
ended $pid
got=$?
case $got in
  0 | 130) whole_or_none ;;
  *) fault "a run stopped at its end ended with $got: $(cat err)" ;;
esac

finish
