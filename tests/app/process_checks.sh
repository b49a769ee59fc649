# What the scripts that run korv-count as a process share; to be sourced. The caller defines `count`, which runs the
# program with its arguments, and ends with `finish`.

faults=0

fault() {
  echo "FAULT: $1" >&2
  faults=$((faults + 1))
}

# expect STATUS MESSAGE ARGUMENTS...: the exit status, and a text on standard error.
expect() {
  local status=$1 message=$2 got
  shift 2
  count "$@" > out 2> err < /dev/null
  got=$?
  [ $got -eq "$status" ] || fault "'$*' ended with $got, not $status: $(cat err)"
  if [ -n "$message" ]; then
    grep -qF -- "$message" err || fault "'$*' did not say: $message"
  elif [ -s err ]; then
    fault "'$*' said: $(cat err)"
  fi
}

finish() {
  [ $faults -eq 0 ] || exit 1
  echo 'no faults'
}
