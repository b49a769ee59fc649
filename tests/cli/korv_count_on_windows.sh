#!/usr/bin/env bash
# Runs korv-count for Windows as a process, for what only a process shows there: exit statuses, line ends, names,
# encodings, devices, Ctrl-C.
#     korv_count_on_windows.sh RUNNER KORV_COUNT DATA
set -u
runner=$1
program=$2
data=$3
. "$(dirname "$0")/process_checks.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
cp "$data/sample.txt" sample.txt
count() {
  "$runner" "$program" "$@"
}

expect 0 '' sample.txt
grep -q 'for the time being' out || fault 'the report lacks its first phrase'
grep -q $'\r' out && fault 'standard output has carriage returns'
cp out fromFile
expect 0 '' --version
expect 2 'a file, a folder or - is needed'
expect 2 'Try: korv-count --help' sample.txt --nonsense
expect 1 'Input file does not exist.' none.txt
expect 1 'There is no text on standard input.' -
cmp -s sample.txt "$data/sample.txt" || fault 'the input changed'

# Beside the program lie the common words and the texts.
expect 0 '' sample.txt --common-words fr --quiet
expect 0 "'#11: Phrase, files that contain it' is available" sample.txt --format 11

# One file has many names: other letters, the other separator, a drive, a second entry in the folder.
here="Z:${PWD//\//\\}"
expect 0 '' "$here\\sample.txt"
cmp -s out fromFile || fault 'a path with a drive is another file'
ln sample.txt second.txt
for name in SAMPLE.TXT './sample.txt' '.\sample.txt' "$here\\sample.txt" "$PWD/sample.txt" second.txt; do
  expect 1 'cannot be the same as the input file' sample.txt -o "$name" --force
done
cmp -s sample.txt "$data/sample.txt" || fault 'the input changed under another name'

# Several files; nobody but the program replaces a pattern here, and other letters are the same file.
mkdir texts
cp sample.txt texts/a.txt
cp sample.txt texts/b.txt
expect 0 '3 files ' sample.txt 'texts\*.txt' 'texts\A.TXT' 'TEXTS/b.txt'
expect 0 '2 files ' 'texts\*.txt'

# A report file has the line ends and the code page of the system; what that lacks is a question mark.
printf 'Größe zählt hier. Größe zählt hier. Жизнь идёт мимо. Жизнь идёт мимо.' > umlauts.txt
expect 0 '' umlauts.txt --min-words 2 -o report.txt
[ "$(grep -c . report.txt)" -eq "$(grep -c $'\r$' report.txt)" ] || fault 'a line of a report file ends in LF alone'
LC_ALL=C grep -qP '\tgr\xf6\xdfe z\xe4hlt hier\t' report.txt || fault "a report file is not in the system's code page"
LC_ALL=C grep -qP '\t\?{5} \?{4} \?{4}\t' report.txt || fault 'letters that the code page lacks are no question marks'
expect 0 '' umlauts.txt --min-words 2
grep -q 'größe zählt hier' out && grep -q 'жизнь идёт мимо' out || fault 'standard output is not UTF-8'

# Standard input and pipes.
count - < sample.txt > fromInput || fault 'standard input was not counted'
cmp -s fromInput fromFile || fault 'standard input and file differ'
cat sample.txt | count - | cat > fromPipe
cmp -s fromPipe fromFile || fault 'a pipe and a file differ'
count sample.txt | head -n 1 | grep -q '^There are' || fault 'nothing came through a pipe'

# The device that takes everything is replaced by nothing.
expect 0 '' sample.txt -o NUL
[ ! -e NUL ] && [ ! -e nul ] || fault 'a device became a file'

# Names in any script, and longer than 260 characters.
for name in 'größe ß' 'Жизнь' '語' '😀' "$(printf 'a\xcc\x88')"; do
  mkdir "$name"
  cp sample.txt "$name/$name.txt"
  expect 0 '' "$name/$name.txt" -o "$name.report"
  [ -s "$name.report" ] || fault "there is no report $name.report"
  expect 0 '' "$name" --format 11
  grep -qF "{Folder}\\$name.txt" out || fault "a folder $name is not abbreviated: $(cat out)"
done
part=$(printf 'long%.0s' {1..25})
long=$part/$part/$part/$part
mkdir -p "$long"
cp sample.txt "$long/sample.txt"
expect 0 '' "$long/sample.txt"
cmp -s out fromFile || fault 'a file with a long path is read otherwise'
expect 0 '' sample.txt -o "$long/report.txt"
expect 0 '' sample.txt -o "$long/report.txt" --force
[ -s "$long/report.txt" ] && [ "$(ls "$long" | wc -l)" -eq 2 ] || fault "beside a long path lies $(ls "$long")"
cp sample.txt "$part"
expect 0 '' "$part" --subfolders --list-files
grep -qF "\\$part\\sample.txt" out || fault 'a folder of long paths is not listed'

# A report that cannot be replaced stays as it is.
echo old > kept.txt
chmod a-w kept.txt
expect 1 'must first be closed' sample.txt -o kept.txt --force
[ "$(cat kept.txt)" = old ] || fault 'a write-protected report was replaced'

# Recycle bins are never entered.
mkdir -p 'root/$RECYCLE.BIN/S-1-5' root/sub
cp sample.txt root/a.txt
cp sample.txt root/sub
cp sample.txt 'root/$RECYCLE.BIN/S-1-5'
expect 0 '' root --subfolders --list-files
[ "$(cat out)" = "{Folder} = root
{Folder}\\a.txt
{Folder}\\sub\\sample.txt" ] || fault "a recycle bin was entered: $(cat out)"

# Ctrl-C ends standard input, and what came before it is listed.
mkfifo typed
"$runner" "$program" - --min-words 2 < typed > out 2> err &
pid=$!
exec 3> typed
printf 'the big cat sat. the big cat ran. ' >&3
sleep 3
kill -INT $pid
sleep 0.5
exec 3>&-
wait $pid
got=$?
[ $got -eq 130 ] || fault "Ctrl-C ended with $got"
grep -q 'the big cat' out || fault "Ctrl-C lost what had been read"

finish
