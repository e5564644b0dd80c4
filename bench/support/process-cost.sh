# What a process costs, read from /proc: sourced by the whole-player
# benchmarks.
#
# CPU time is the sum over the threads of /proc/<pid>/task/*/schedstat
# (nanoseconds). When a thread alive at the start of a span has ended by its
# end, the process's utime + stime is taken instead if it is larger: it keeps
# the time of threads that ended, but counts in clock ticks of 10 ms, which
# alone would be too coarse for the quiet states (one tick in 30 s is 0.02 s a
# minute). Wake-ups are the voluntary context switches of the threads alive at
# the end of a span.

ticks_per_second=$(getconf CLK_TCK)

# "<cpu ns of live threads> <cpu ns from utime + stime> <voluntary switches>
#  <thread ids, comma separated>"
counts() {
  local pid=$1 ns=0 switches=0 task run rest fields tids=""
  for task in /proc/"$pid"/task/*; do
    read -r run rest <"$task/schedstat" 2>/dev/null || continue
    ns=$((ns + run))
    switches=$((switches + $(awk '/^voluntary_ctxt_switches/ {print $2}' "$task/status" 2>/dev/null || echo 0)))
    tids+=",${task##*/},"
  done
  fields=$(sed 's/.*) //' /proc/"$pid"/stat 2>/dev/null) || return 1
  set -- $fields
  echo "$ns $(((${12} + ${13}) * 1000000000 / ticks_per_second)) $switches $tids"
}

# CPU seconds a minute and wake-ups a second between two counts over `span` s.
rates() {
  local before=($1) after=($2) span=$3 ended=0 tid
  for tid in ${before[3]//,/ }; do
    [[ "${after[3]}" == *",$tid,"* ]] || ended=1
  done
  awk -v a="${after[0]}" -v b="${before[0]}" -v c="${after[1]}" -v d="${before[1]}" \
    -v s="${after[2]}" -v t="${before[2]}" -v span="$span" -v ended="$ended" 'BEGIN {
      live = (a - b) / 1e9; ticks = (c - d) / 1e9
      cpu = ended && ticks > live ? ticks : live
      printf "%.3f %.1f", cpu * 60 / span, (s - t) / span }'
}
