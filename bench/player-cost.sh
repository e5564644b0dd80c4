#!/usr/bin/env bash
# What the whole player costs a laptop in real time, beside mpv and Audacious.
#
# A generated 128 kbit/s MP3 plays under a private X server (Xvfb, with the
# small window manager twm so that a window can be minimised) and a private
# PulseAudio server with one null sink. For each state the script measures,
# over the same span, the CPU time of the player and of the sound server
# (seconds a minute) and their wake-ups a second (voluntary context switches
# of every thread, from /proc):
#
#   the sound server alone, with no client (the floor of the server figures);
#   Yarvo Player playing with its windows shown (visualisation on), paused,
#   stopped, playing with its windows minimised, and started with no song;
#   mpv --no-video --ao=pulse on the same file, playing and paused;
#   Audacious (GTK) on the same file, playing and paused, where it can be
#   installed; its row is left out otherwise.
#
# Beside the player's playing rows it prints how many frames a second its
# visualisation draws: the main window's busiest rectangle as the X server
# sees it drawn (bench/frames/frame_rate), over the same span.
#
# The player is driven as a person would drive it: its keyboard shortcuts
# (Space pauses, S stops, Enter plays) through xdotool, and the window
# manager's minimise.
# mpv is paused through its input socket, Audacious through audtool.
#
# Usage: bench/player-cost.sh [-s seconds per state, at least 30] [-p program folder]
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
[ "$seconds" -ge 30 ] || { echo "at least 30 s per state" >&2; exit 2; }

scripts/install-deps
if [ -z "$folder" ]; then
  cmake --preset release >/dev/null
  cmake --build --preset release --target yarvo-player yarvo-data >/dev/null
  folder=$root/build/release/bin
fi
[ -x "$folder/yarvo-player" ] || { echo "no yarvo-player in $folder" >&2; exit 1; }
cmake --preset bench >/dev/null
cmake --build --preset bench --target frame_rate >/dev/null
frame_rate=$root/build/bench/bench/frames/frame_rate

# Audacious is a peer, not a dependency: installed when the machine allows it.
if ! command -v audacious >/dev/null || ! command -v audtool >/dev/null; then
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo="sudo -n"
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends \
    audacious dbus-x11 >/dev/null 2>&1 || true
fi
have_audacious=0
command -v audacious >/dev/null && command -v audtool >/dev/null && have_audacious=1

work=$(mktemp -d /tmp/yarvo-player-cost.XXXXXX)
started=()
cleanup() {
  local pid
  for pid in "${started[@]}"; do kill "$pid" 2>/dev/null || true; done
  for pid in "${started[@]}"; do wait "$pid" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT

# Everything the servers and clients keep stays in the work folder.
export HOME=$work XDG_RUNTIME_DIR=$work XDG_CONFIG_HOME=$work/config XDG_CACHE_HOME=$work/cache
export PULSE_RUNTIME_PATH=$work PULSE_STATE_PATH=$work PULSE_CONFIG_PATH=$work
export PULSE_SERVER=unix:$work/native
mkdir -p "$XDG_CONFIG_HOME" "$XDG_CACHE_HOME"

# ---- the stage: X server, window manager, session bus, sound server ----

exec 3>"$work/display"
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp >"$work/xvfb.log" 2>&1 &
started+=($!)
exec 3>&-
for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
export DISPLAY=:$(head -n 1 "$work/display")

printf '%s\n' RandomPlacement NoTitle 'TitleFont "fixed"' 'ResizeFont "fixed"' \
  'MenuFont "fixed"' 'IconFont "fixed"' 'IconManagerFont "fixed"' >"$work/twmrc"
LANG=C twm -f "$work/twmrc" >"$work/twm.log" 2>&1 &
started+=($!)

dbus-daemon --session --fork --print-address=4 --print-pid=5 4>"$work/bus" 5>"$work/bus.pid"
started+=("$(cat "$work/bus.pid")")
export DBUS_SESSION_BUS_ADDRESS=$(head -n 1 "$work/bus")

pulseaudio -n --daemonize=no --exit-idle-time=-1 --system=false --disallow-exit \
  --use-pid-file=no --log-target=stderr \
  -L "module-null-sink sink_name=bench rate=44100" \
  -L "module-native-protocol-unix auth-anonymous=1 socket=$work/native" >"$work/pulse.log" 2>&1 &
server=$!
started+=("$server")
for _ in $(seq 50); do pactl info >/dev/null 2>&1 && break; sleep 0.1; done
pactl info >/dev/null || { echo "the private sound server did not start" >&2; exit 1; }

song=$work/song.mp3
song_seconds=$((4 * seconds + 90))
ffmpeg -nostdin -hide_banner -loglevel error -y -f lavfi -i \
  "aevalsrc=0.3*sin(2*PI*(220+110*sin(t/3))*t)+0.05*(random(0)-0.5)|0.3*sin(2*PI*(330+60*sin(t/5))*t)+0.05*(random(1)-0.5):s=44100" \
  -t "$song_seconds" -c:a libmp3lame -b:a 128k "$song"

# ---- measuring ----

. bench/support/process-cost.sh

printf '\n%-34s %9s %9s %9s   %9s %9s   %9s\n' "CPU s a minute, wake-ups a second" player server both \
  "player/s" "server/s" "frames/s"
row() {
  printf '%-34s %9s %9s %9s   %9s %9s   %9s\n' "$@" "${frames:--}"
}

# Measures `pid` (empty for none) and the sound server over one span, and
# with a third argument, the frames a second drawn in that window.
measure() {
  local label=$1 pid=$2 window=${3:-} p0="" s0 p1="" s1 start span mine theirs counter=""
  frames=""
  if [ -n "$window" ]; then
    "$frame_rate" "$window" "$seconds" >"$work/frames" 2>&1 &
    counter=$!
  fi
  if [ -n "$pid" ] && ! kill -0 "$pid" 2>/dev/null; then
    row "$label" ended - - - -
    return
  fi
  [ -n "$pid" ] && p0=$(counts "$pid")
  s0=$(counts "$server")
  start=$(date +%s.%N)
  sleep "$seconds"
  if [ -n "$pid" ] && ! p1=$(counts "$pid" 2>/dev/null); then
    row "$label" ended - - - -
    return
  fi
  s1=$(counts "$server")
  span=$(echo "$(date +%s.%N) - $start" | bc)
  if [ -n "$counter" ]; then
    wait "$counter" && frames=$(cut -d' ' -f1 "$work/frames") || frames="?"
  fi
  theirs=($(rates "$s0" "$s1" "$span"))
  if [ -n "$pid" ]; then
    mine=($(rates "$p0" "$p1" "$span"))
    row "$label" "${mine[0]}" "${theirs[0]}" \
      "$(printf '%.3f' "$(echo "${mine[0]} + ${theirs[0]}" | bc)")" "${mine[1]}" "${theirs[1]}"
  else
    row "$label" - "${theirs[0]}" "${theirs[0]}" - "${theirs[1]}"
  fi
}

# Waits until a client plays on the sink, at most 10 s.
await_stream() {
  for _ in $(seq 100); do
    [ -n "$(pactl list short sink-inputs)" ] && return 0
    sleep 0.1
  done
  echo "no stream reached the sound server" >&2
  return 1
}

# Ends `pid`; says so when it had ended by itself, with the end of `log`.
await_exit() {
  local pid=$1 log=${2:-} status
  if ! kill -0 "$pid" 2>/dev/null; then
    wait "$pid" 2>/dev/null && status=0 || status=$?
    echo "  (it had ended by itself, status $status)"
    [ -n "$log" ] && tail -n 5 "$log" | sed 's/^/  | /'
    return 0
  fi
  kill "$pid" 2>/dev/null || true
  for _ in $(seq 100); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
  kill -9 "$pid" 2>/dev/null || true
  wait "$pid" 2>/dev/null || true
}

measure "sound server alone" ""

# ---- Yarvo Player ----

# A fresh program folder each time: the player keeps its settings beside it.
start_player() {
  rm -rf "$work/yarvo"
  mkdir -p "$work/yarvo"
  cp -a "$folder"/. "$work/yarvo"/
  "$work/yarvo/yarvo-player" "$@" >>"$work/yarvo.log" 2>&1 &
  player=$!
  started+=("$player")
}

shown_windows() { xdotool search --all --onlyvisible --pid "$player" --name . 2>/dev/null || true; }

# Sends one key to the player's first shown window, as typed into it.
press() {
  local window
  window=$(shown_windows | head -n 1)
  [ -n "$window" ] || { echo "no player window to type into" >&2; return 1; }
  # xdotool finds no focused window without a desktop and says so; the key
  # still reaches the window.
  xdotool key --window "$window" "$1" 2>/dev/null
}

start_player "$song"
await_stream
sleep 3
main_window=$(xdotool search --all --onlyvisible --pid "$player" --name '^Yarvo Player$' | head -n 1)
[ -n "$main_window" ] || { echo "the player's main window was not found" >&2; exit 1; }
measure "yarvo playing, window shown" "$player" "$main_window"
press space || true
sleep 1
measure "yarvo paused" "$player"
press s || true
sleep 1
measure "yarvo stopped" "$player"
# Played again from the stop and minimised by the window manager; the player
# is ended from there, its windows not shown again.
press Return || true
sleep 3
windows=$(shown_windows)
for window in $windows; do xdotool windowminimize "$window"; done
sleep 2
measure "yarvo playing, minimised" "$player" "$main_window"
still=$(shown_windows | wc -l)
await_exit "$player" "$work/yarvo.log"

start_player
sleep 3
measure "yarvo idle, no song" "$player"
await_exit "$player" "$work/yarvo.log"

# ---- mpv ----

mpv --no-config --really-quiet --no-video --ao=pulse --input-ipc-server="$work/mpv.socket" \
  "$song" >"$work/mpv.log" 2>&1 &
peer=$!
started+=("$peer")
await_stream
sleep 3
measure "mpv playing" "$peer"
perl -MIO::Socket::UNIX -e '
  my $s = IO::Socket::UNIX->new(Peer => $ARGV[0]) or die "mpv socket: $!\n";
  print $s qq({"command": ["set_property", "pause", true]}\n);
  <$s>;' "$work/mpv.socket"
sleep 1
measure "mpv paused" "$peer"
await_exit "$peer"

# ---- Audacious ----

if [ "$have_audacious" = 1 ]; then
  audacious "$song" >"$work/audacious.log" 2>&1 &
  peer=$!
  started+=("$peer")
  await_stream
  sleep 3
  measure "audacious playing" "$peer"
  audtool playback-pause
  sleep 1
  measure "audacious paused" "$peer"
  await_exit "$peer"
else
  echo "(Audacious could not be installed here: no row for it)"
fi

echo
[ "$still" -eq 0 ] || echo "note: $still player window(s) were shown again while minimised"
echo "span ${seconds} s a state; sound server: PulseAudio, null sink at 44.1 kHz; song: 128 kbit/s MP3"
