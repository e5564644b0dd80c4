#!/usr/bin/env bash
# What a video costs in the player's window, beside mpv drawing the same file
# with its plain X11 output.
#
# A generated 640x360 H.264 video with an AAC tone plays under a private X
# server (Xvfb, with openbox) and a private PulseAudio server with one null
# sink: first in Yarvo Player's main window (given on the command line, so
# the mini window of a first start gives way to it), then in
# `mpv --vo=x11 --ao=pulse`. For each the script measures, over the same
# span, the CPU time of the process (seconds a minute, every thread) and its
# wake-ups a second, and prints the ratio of the two CPU figures.
#
# Usage: bench/video-cost.sh [-s seconds to measure, at least 20] [-p program folder]
#   -p  a folder that holds a built yarvo-player and its data (as
#       build/release/bin does); without it the release preset is built.
#
# How CPU time and wake-ups are read: bench/support/process-cost.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD

seconds=30
folder=""
while getopts "s:p:" option; do
  case $option in
    s) seconds=$OPTARG ;;
    p) folder=$(cd "$OPTARG" && pwd) ;;
    *) sed -n '/^# Usage/,/^#   -p/p' "$0"; exit 2 ;;
  esac
done
[ "$seconds" -ge 20 ] || { echo "at least 20 s" >&2; exit 2; }

if [ -z "$folder" ]; then
  scripts/install-deps
  cmake --preset release >/dev/null
  cmake --build --preset release --target yarvo-player yarvo-data >/dev/null
  folder=$root/build/release/bin
fi
[ -x "$folder/yarvo-player" ] || { echo "no yarvo-player in $folder" >&2; exit 1; }

work=$(mktemp -d /tmp/yarvo-video-cost.XXXXXX)
started=()
cleanup() {
  local pid
  for pid in "${started[@]}"; do kill "$pid" 2>/dev/null || true; done
  for pid in "${started[@]}"; do wait "$pid" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT

export HOME=$work XDG_RUNTIME_DIR=$work XDG_CONFIG_HOME=$work/config XDG_CACHE_HOME=$work/cache
export PULSE_RUNTIME_PATH=$work PULSE_STATE_PATH=$work PULSE_CONFIG_PATH=$work
export PULSE_SERVER=unix:$work/native
mkdir -p "$XDG_CONFIG_HOME" "$XDG_CACHE_HOME"

exec 3>"$work/display"
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp >"$work/xvfb.log" 2>&1 &
started+=($!)
exec 3>&-
for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
export DISPLAY=:$(head -n 1 "$work/display")
openbox >"$work/openbox.log" 2>&1 &
started+=($!)

pulseaudio -n --daemonize=no --exit-idle-time=-1 --system=false --disallow-exit \
  --use-pid-file=no --log-target=stderr \
  -L "module-null-sink sink_name=bench rate=44100" \
  -L "module-native-protocol-unix auth-anonymous=1 socket=$work/native" >"$work/pulse.log" 2>&1 &
started+=($!)
for _ in $(seq 50); do pactl info >/dev/null 2>&1 && break; sleep 0.1; done
pactl info >/dev/null || { echo "the private sound server did not start" >&2; exit 1; }

video=$work/pattern.mp4
ffmpeg -nostdin -hide_banner -loglevel error -y -f lavfi -i testsrc=size=640x360:rate=25 \
  -f lavfi -i sine=frequency=440:sample_rate=44100 -t $((seconds + 20)) \
  -c:v libx264 -pix_fmt yuv420p -c:a aac -shortest "$video"

. bench/support/process-cost.sh

# Prints "<cpu s a minute> <wake-ups a second>" of `pid` over the span.
measure() {
  local pid=$1 before after start span
  before=$(counts "$pid")
  start=$(date +%s.%N)
  sleep "$seconds"
  after=$(counts "$pid") || { echo "ended -"; return; }
  span=$(echo "$(date +%s.%N) - $start" | bc)
  rates "$before" "$after" "$span"
}

await_stream() {
  for _ in $(seq 150); do
    [ -n "$(pactl list short sink-inputs)" ] && return 0
    sleep 0.1
  done
  echo "no stream reached the sound server" >&2
  return 1
}

stop() {
  kill "$1" 2>/dev/null || true
  wait "$1" 2>/dev/null || true
}

mkdir -p "$work/yarvo"
cp -a "$folder"/. "$work/yarvo"/
"$work/yarvo/yarvo-player" "$video" >"$work/yarvo.log" 2>&1 &
player=$!
started+=("$player")
await_stream
sleep 3
yarvo=($(measure "$player"))
stop "$player"
while [ -n "$(pactl list short sink-inputs)" ]; do sleep 0.1; done

mpv --no-config --really-quiet --vo=x11 --ao=pulse --geometry=640x360 "$video" >"$work/mpv.log" 2>&1 &
peer=$!
started+=("$peer")
await_stream
sleep 3
mpv=($(measure "$peer"))
stop "$peer"

printf '\n%-36s %14s %12s\n' "640x360 H.264 + AAC, in a window" "CPU s a minute" "wake-ups/s"
printf '%-36s %14s %12s\n' "yarvo-player (libmpv into its panel)" "${yarvo[0]}" "${yarvo[1]}"
printf '%-36s %14s %12s\n' "mpv --vo=x11" "${mpv[0]}" "${mpv[1]}"
awk -v a="${yarvo[0]}" -v b="${mpv[0]}" 'BEGIN { if (b > 0) printf "ratio yarvo / mpv: %.2f\n", a / b }'
echo "span ${seconds} s each; Xvfb 1280x800x24 with openbox; PulseAudio null sink"
