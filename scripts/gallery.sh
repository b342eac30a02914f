#!/usr/bin/env bash
# Makes the pictures of docs/gallery.md and the page itself: every layout in both themes, every panel alone, the
# queue's modes, the price colours, the concise style. Needs no display.
#
#   scripts/gallery.sh [PROGRAM]    PROGRAM is a depth-terminal that was built already
#
# With pngquant and optipng (both packages of Debian) the pictures become a third as large; without them they are
# only larger.
set -euo pipefail
cd "$(dirname "$0")/.."

most_bytes=$((6 * 1024 * 1024)) # of all pictures together
program=${1:-}
if [[ -z "$program" ]]; then
  scripts/install-dependencies.sh
  cmake --preset release >/dev/null
  cmake --build --preset release --target depth-terminal
  program=build/release/apps/depth-terminal/depth-terminal
fi
for tool in pngquant optipng; do
  command -v "$tool" >/dev/null || echo "note: without $tool the pictures are larger (apt-get install $tool)" >&2
done

pictures=docs/pictures
page=docs/gallery.md
day=(--seed 7 --at 10:30 --external-data examples/external_data)
new=$(mktemp -d)
trap 'rm -rf "$new"' EXIT

shrink() { # FILE
  if command -v pngquant >/dev/null; then # gives up, with 98 or 99, where the picture would suffer
    pngquant --quality 80-100 --speed 1 --strip --skip-if-larger --force --output "$1" "$1" || (($? == 98 || $? == 99))
  fi
  if command -v optipng >/dev/null; then
    optipng -quiet -o2 "$1"
  fi
}

heading() { # TEXT
  printf '\n## %s\n' "$1" >>"$new/gallery.md"
}

show() { # NAME WORDS ARGS...
  local name=$1 words=$2
  shift 2
  "$program" "${day[@]}" "$@" --shot "$new/$name.png"
  shrink "$new/$name.png"
  {
    printf '\n%s\n\n' "$words"
    # shellcheck disable=SC2016 # the backquotes are of the page
    printf '![%s](pictures/%s.png)\n\n`./run.sh %s --shot %s.png`\n' "$name" "$name" "${day[*]:0:4} $*" "$name"
  } >>"$new/gallery.md"
  echo "$pictures/$name.png" >&2
}

cat >"$new/gallery.md" <<'PAGE'
# Gallery

The terminal and its panels on a simulated day at half past ten. `scripts/gallery.sh` makes all pictures and this
page; the line below a picture makes that one alone.
PAGE

heading "Layouts"
for theme in dark light; do
  window=(--theme "$theme" --size 1600x960)
  show "desk-queue-$theme" "The queue desk ($theme): instruments, the single orders at ten prices a side with notices \
below, the whole book, and quotes with the order ticket." "${window[@]}" --layout queue
  show "desk-tick-$theme" "The tick desk ($theme): quotes, the queue above all orders and cancels, and every deal with \
the hologram strip of the runs of deals." "${window[@]}" --layout tick
  show "desk-chart-$theme" "The chart desk ($theme): every deal on an axis of traded volume, below it the zoomed view, \
and the list of deals." "${window[@]}" --layout chart
  show "desk-pair-$theme" "The desk of two instruments ($theme), each with its linking colour: queues beside each other, \
deals below, one clock for both." "${window[@]}" --layout pair
done

heading "The order queue"
queue=(--pane queue --size 1000x560)
show queue-first "First-level detail: the orders at the best price one by one, the other levels as sums." \
  "${queue[@]}" --mode ten,first
show queue-first-full "The same with the orders of all ten levels." "${queue[@]}" --mode ten,first,full
show queue-horizontal "Horizontal: a row of orders for each price, sells above and buys below the line." \
  "${queue[@]}" --mode ten,horizontal
show queue-vertical "Vertical: heads at the left of each side, the orders beside them." "${queue[@]}" --mode ten,vertical
show queue-list "List: the price as a head in reversed colours, every order behind it." "${queue[@]}" --mode ten,list,full
show queue-five "Five levels a side." "${queue[@]}" --mode five,horizontal
show queue-light "The light theme, vertical." "${queue[@]}" --mode ten,vertical --theme light

heading "The other panels"
show pane-ladder "The thousand-level ladder: every price of the book with orders, volume and change, and behind them \
where the money stands." --pane ladder --size 360x640
show pane-deals "Every deal: time, price, lots, and the runs of deals of one order in the hologram strip." \
  --pane deals --size 420x640
show pane-orders "Every order (left) and every cancel (right)." --pane orders --size 900x420
show pane-chart "The deal chart: deals as marks on a ladder of prices, with the bars of the orders behind them." \
  --pane chart --size 1200x500
show pane-levels "Quotes of ten levels, plain." --pane levels --size 300x420
show pane-levels-five "Quotes of five levels, plain." --pane levels --size 300x220 --mode five
show pane-ticket "Quotes of ten levels, concise, with order ratio and difference; a click fills the order ticket." \
  --pane ticket --size 320x690
show pane-ticket-five "The same with five levels." --pane ticket --size 320x450 --mode five
show pane-information "Notices of the instrument; local tables stand under the last tab." \
  --pane information --size 800x240
show pane-list "The instruments of the day with what they cost at the moment." --pane list --size 320x370

heading "Colours"
show colors-green-up "Green rises, red falls." --colors green-up --pane ladder --size 360x480
show colors-color-blind "Orange rises, blue falls: told apart by all common kinds of colour blindness." \
  --colors color-blind --pane ladder --size 360x480
show colors-color-blind-light "The same in the light theme." --colors color-blind --theme light --pane ladder \
  --size 360x480
show concise-queue "The concise style of a host's panels." --concise --pane queue --size 1000x360 --mode ten,first

bytes=$(cat "$new"/*.png | wc -c)
if ((bytes > most_bytes)); then
  echo "error: the pictures take $bytes bytes, more than $most_bytes" >&2
  exit 1
fi
cp "$new"/*.png "$pictures/"
cp "$new/gallery.md" "$page"
echo "$(find "$new" -name '*.png' | wc -l) pictures, $((bytes / 1024)) KiB" >&2
