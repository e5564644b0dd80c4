#!/usr/bin/env bash
# Takes the screenshots in docs/screenshots/: the player's windows in both
# skins on an X server of its own, its menus, and the four visualisations of
# a generated chord. Run from anywhere; needs what scripts/run needs, plus
# Xvfb, xdotool, ffmpeg and ImageMagick (all in scripts/packages.txt).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
out=$root/docs/screenshots
cd "$root"
scripts/install-deps
cmake --preset release >/dev/null
cmake --build --preset release --target yarvo-player yarvo-data >/dev/null

work=$(mktemp -d)
display=":$((90 + RANDOM % 9))"
cleanup() {
  pkill -P $$ yarvo-player 2>/dev/null || true
  [ -n "${xvfb:-}" ] && kill "$xvfb" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT
Xvfb "$display" -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
export DISPLAY=$display
for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
xsetroot -solid '#5d6b7a' 2>/dev/null || true

folder=$work/program
mkdir -p "$folder" "$out"
cp -r data/* "$folder"/
cp build/release/bin/yarvo-player "$folder"/
export HOME=$work/home XDG_RUNTIME_DIR=$work/home PULSE_SERVER=unix:$work/no-server
mkdir -p "$HOME"

# A chord whose partials swell and fade at their own pace, so that every
# visualisation has something to show.
song=$folder/Chord.mp3
ffmpeg -loglevel error -y -f lavfi -i "aevalsrc=exprs='0.22*sin(2*PI*110*t)*(0.6+0.4*sin(2*PI*0.3*t))+0.16*sin(2*PI*220*t)+0.12*sin(2*PI*330*t)*(0.5+0.5*sin(2*PI*0.7*t))+0.1*sin(2*PI*587*t)*(0.5+0.5*sin(2*PI*1.1*t))+0.07*sin(2*PI*1318*t)*(0.5+0.5*sin(2*PI*0.9*t))+0.05*sin(2*PI*2637*t)*(0.5+0.5*sin(2*PI*1.7*t))+0.03*sin(2*PI*5274*t)':s=44100:d=60" -ac 2 -b:a 192k "$song"

left=100 top=100
# settings.ini for a skin, a window ("main" or "mini"), a visualisation
# (8 spectrum analyser, 9 wave, 10 wave image, 11 oscilloscope), the main
# window's layout ("Full" or "Small") and whether the playlist shows.
settings() {
  local skin=$1 window=$2 mode=${3:-8} layout=${4:-Full} playlist=${5:-False} option i
  local -a lines
  for i in $(seq 0 71); do lines[i]=""; done
  lines[2]=$((left * 15)); lines[3]=$((top * 15))
  lines[7]=$(((left + 420) * 15)); lines[8]=$((top * 15))
  lines[11]=70; lines[16]="Playlist=$playlist"; lines[20]=$skin; lines[53]=$layout
  lines[56]=$window
  for option in 8 9 10 11; do lines[36 + option]=$([ "$option" = "$mode" ] && echo True || echo False); done
  printf '%s\r\n' "${lines[@]}" >"$folder/settings.ini"
}

# Starts the player; "play" starts the chord from the playlist with the next
# button, as a person would (the skin is in place by then, and with it the
# visualisation's colours).
start() {
  "$folder/yarvo-player" >/dev/null 2>&1 &
  player=$!
  sleep 3
  if [ "${1:-}" = play ]; then
    xdotool mousemove "$2" "$3" click 1
    sleep 3
  fi
}
stop() {
  kill -TERM "$player" 2>/dev/null || true
  wait "$player" 2>/dev/null || true
}
# The screen's rectangle at 1x and, for the look of the pixels, at 2x.
shoot() {
  local name=$1 geometry=$2
  import -window root -crop "$geometry" +repage "$out/$name.png"
  convert "$out/$name.png" -filter point -resize 200% "$out/$name@2x.png"
}

printf '%s\r\n' "$song" >"$folder/Data/plst.data"
# The next buttons of the main and the mini window.
next_main=($((left + 386)) $((top + 64)))
next_mini=($((left + 389)) $((top + 55)))

for skin in Default Aluminium; do
  settings "$skin" main 8
  start play "${next_main[@]}"
  shoot "main-$skin" 406x235+$left+$top
  stop
  settings "$skin" mini 8
  start play "${next_mini[@]}"
  shoot "mini-$skin" 407x99+$left+$top
  stop
done

# The small layout, and the playlist window with a long list: the chord and
# 2,000 more rows (their files need not exist for the list to show them).
{
  printf '%s\r\n' "$song"
  for i in $(seq 1 2000); do
    printf '/music/Artist %d/Album %d/%02d - Song number %d.mp3\r\n' $((i % 97)) $((i % 13)) $((i % 20 + 1)) "$i"
  done
} >"$folder/Data/plst.data"
for skin in Default Aluminium; do
  settings "$skin" main 8 Small True
  start play "${next_main[@]}"
  shoot "main-small-$skin" 406x133+$left+$top
  shoot "playlist-$skin" 267x302+$((left + 420))+$top
  stop
done
printf '%s\r\n' "$song" >"$folder/Data/plst.data"

# The File menu: a separator either side of "File info", where the hidden
# CD item leaves no gap; the playback mode submenu with its checked item.
settings Default main 8
start
xdotool mousemove $((left + 32)) $((top + 8)) click 1
sleep 1
shoot menu-file 420x170+$left+$top
xdotool key Escape
sleep 0.5
xdotool mousemove $((left + 100)) $((top + 8)) click 1
sleep 0.5
xdotool key Down Down Down Down Down Down Right
sleep 1
shoot menu-show-hide 420x200+$left+$top
stop

# The four visualisations, each from the same chord, the display enlarged.
modes=([8]=analyser [9]=wave [10]=wave-image [11]=oscilloscope)
for option in 8 9 10 11; do
  settings Default main "$option"
  start play "${next_main[@]}"
  import -window root -crop 169x41+$((left + 8 + 136))+$((top + 24 + 48)) +repage "$work/vis.png"
  convert "$work/vis.png" -filter point -resize 300% "$out/visualisation-${modes[$option]}.png"
  stop
done
# A video in the main window: ffmpeg's test pattern, 640x360 H.264, given on
# the command line.
video=$work/pattern.mp4
ffmpeg -loglevel error -y -f lavfi -i testsrc=size=640x360:rate=25 -t 20 -c:v libx264 \
  -pix_fmt yuv420p "$video"
settings Default main 8
"$folder/yarvo-player" "$video" >/dev/null 2>&1 &
player=$!
sleep 4
shoot video-Default 406x235+$left+$top
stop
echo "screenshots in ${out#"$root"/}"
