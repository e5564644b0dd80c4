#!/usr/bin/env bash
# How soon the player shows its first window with a 30,000-row playlist, and
# the memory it holds 3 s after its start, beside a bare Qt 6 program that
# shows the same rows in a QListView (the floor), measured side by side in
# one run; Audacious beside them where it can be installed.
#
# Each program starts under a private X server with no window manager; the
# clock runs from the fork to the X server's report of the first top-level
# window mapped. Rounds alternate between the programs; the median of the
# rounds is printed, with the ratio to the floor.
#
# Usage: bench/startup-cost.sh [-r rounds, 5 unless told]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD

rounds=5
while getopts "r:" option; do
  case $option in
    r) rounds=$OPTARG ;;
    *) sed -n '/^# Usage/p' "$0"; exit 2 ;;
  esac
done

scripts/install-deps
cmake --preset bench >/dev/null
cmake --build --preset bench --target yarvo-player yarvo-data first_map bare_list >/dev/null
bin=$root/build/bench/bin
tools=$root/build/bench/bench/startup
[ -x "$bin/yarvo-player" ] || { echo "no yarvo-player in $bin" >&2; exit 1; }

if ! command -v audacious >/dev/null; then
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo="sudo -n"
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends \
    audacious >/dev/null 2>&1 || true
fi

work=$(mktemp -d /tmp/yarvo-startup-cost.XXXXXX)
xserver=""
cleanup() {
  [ -n "$xserver" ] && kill "$xserver" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT
export HOME=$work XDG_RUNTIME_DIR=$work XDG_CONFIG_HOME=$work/config XDG_CACHE_HOME=$work/cache
export PULSE_SERVER=unix:$work/no-sound-server
mkdir -p "$XDG_CONFIG_HOME" "$XDG_CACHE_HOME"

exec 3>"$work/display"
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp >"$work/xvfb.log" 2>&1 &
xserver=$!
exec 3>&-
for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
export DISPLAY=:$(head -n 1 "$work/display")

# 30,000 paths; the files need not exist: titles are made from the names.
list=$work/plst.data
awk 'BEGIN { for (i = 0; i < 30000; i++)
  printf "/home/user/Music/Artist %d/Album %d/%d - A Song Title Of Some Length.mp3\r\n",
    i % 300, i % 40, i }' >"$list"
sed 's/\r$//' "$list" >"$work/list.m3u"

# A program folder of the player's own with that playlist and file-name titles.
player_folder() {
  rm -rf "$work/yarvo"
  cp -a "$bin" "$work/yarvo"
  mkdir -p "$work/yarvo/Data"
  cp "$list" "$work/yarvo/Data/plst.data"
}

declare -A times memory
run() {
  local name=$1; shift
  local figures
  figures=$("$tools/first_map" 3 "$@" 2>>"$work/errors") || { echo "$name did not map a window" >&2; return; }
  set -- $figures
  times[$name]+="$1 "
  memory[$name]+="$(($3 / 1024)) "
}

programs="floor yarvo"
have_audacious=0
command -v audacious >/dev/null && have_audacious=1 && programs="$programs audacious"
for _ in $(seq "$rounds"); do
  run floor "$tools/bare_list" "$list"
  player_folder
  run yarvo "$work/yarvo/yarvo-player"
  [ "$have_audacious" = 1 ] && run audacious audacious "$work/list.m3u"
done

median() { tr ' ' '\n' | grep -v '^$' | sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
floor_ms=$(echo "${times[floor]}" | median)
floor_mb=$(echo "${memory[floor]}" | median)
printf '\n%-28s %12s %8s %14s %10s\n' "30,000 rows, median of $rounds" "first map ms" "x floor" "PSS at 3 s MB" "- floor"
for name in $programs; do
  [ -n "${times[$name]:-}" ] || continue
  ms=$(echo "${times[$name]}" | median)
  mb=$(echo "${memory[$name]}" | median)
  printf '%-28s %12s %8s %14s %10s\n' "$name" "$ms" "$(awk -v a="$ms" -v b="$floor_ms" 'BEGIN { printf "%.2f", a / b }')" \
    "$mb" "$((mb - floor_mb))"
done
