# What the scripts that run korv-count as a process share; to be sourced. The caller defines `count`, which runs the
# program with its arguments, and ends with `finish`.

faults=0

fault() {
  echo "FAULT: $1" >&2
  faults=$((faults + 1))
}

# expect STATUS MESSAGE ARGUMENTS...: the exit status, and a text on standard error; an empty one stands for nothing but
# the line that ends a run.
expect() {
  local status=$1 message=$2 got
  shift 2
  count "$@" > out 2> err < /dev/null
  got=$?
  [ $got -eq "$status" ] || fault "'$*' ended with $got, not $status: $(cat err)"
  if [ -n "$message" ]; then
    grep -qF -- "$message" err || fault "'$*' did not say: $message"
  elif grep -vE '^[0-9,]+ words? read, ' err > /dev/null; then
    fault "'$*' said: $(cat err)"
  fi
}

# ended PID: waits for a job of this shell and has its exit status; 137 when it had to be killed.
ended() {
  local left=600
  while kill -0 "$1" 2> /dev/null; do
    left=$((left - 1))
    if [ $left -eq 0 ]; then
      fault "process $1 did not end within a minute"
      kill -KILL "$1"
    fi
    sleep 0.1
  done
  wait "$1"
}

# feed FILE: writes it to descriptor 3, a pipe. A pipe holds 64 KB, so whoever reads it has read the rest.
feed() {
  timeout 60 cat "$1" >&3 || fault "nobody read $1 within a minute"
}

finish() {
  [ $faults -eq 0 ] || exit 1
  echo 'no faults'
}
