# Pictures of the documentation, cut out of those of ./dev screenshots.

shown_pictures=$root/docs/images

# What can be shown: the name, the picture that it is made of, and how many windows of that, the topmost first.
published_pictures() {
    cat <<'TABLE'
dialog-batch batch-filled 1
dialog-individual decide-filled 1
dialog-tabs tabs-filled 1
destination-list batch-list 9
collision decide-collision 9
rename rename-rename 1
progress motion-progress-03 1
report report-report 1
favourites favourites-menu 9
script-sign favourites-sign 9
script-stopped favourites-stopped 1
launcher-help launcher-window 1
trace-window trace-window 1
TABLE
}

# read_frames FILE COUNT: sets `frames` to the first COUNT of the file, and left, top, width, height to what is
# around them all.
read_frames() {
    local frame x y w h right=0 bottom=0
    read -r -a frames <"$1" || true
    frames=("${frames[@]:0:$2}")
    [ "${#frames[@]}" -gt 0 ] || return 1
    left=100000 top=100000
    for frame in "${frames[@]}"; do
        IFS=, read -r x y w h <<<"$frame"
        left=$((x < left ? x : left)) top=$((y < top ? y : top))
        right=$((x + w > right ? x + w : right)) bottom=$((y + h > bottom ? y + h : bottom))
    done
    width=$((right - left)) height=$((bottom - top))
}

# cut_out PICTURE COUNT RESULT: the windows of a picture along their frames, with nothing between them.
cut_out() {
    local frames left top width height frame x y w h windows=()
    read_frames "$1.frames" "$2" || fail "$1.png shows no window"
    # The topmost last, over the others.
    for frame in "${frames[@]}"; do
        IFS=, read -r x y w h <<<"$frame"
        windows=('(' "$1.png" -crop "${w}x$h+$x+$y" +repage ')' -geometry "+$((x - left))+$((y - top))" -composite
            ${windows[@]+"${windows[@]}"})
    done
    convert -size "${width}x$height" xc:none "${windows[@]}" -strip +dither -colors 128 "PNG8:$3" ||
        fail "$3 could not be made"
}

# moving_frame PICTURE TEXT DELAY: one more picture of the moving one, with a line below it.
moving_frame() {
    local name
    name=$moving/$(printf '%03d' "${#moving_frames[@]}").png
    cut_out "$1" 9 "$moving/windows.png"
    # One of ImageMagick's own fonts may not be there, this one is.
    convert -size 760x500 xc:'#e8ecf0' '(' "$moving/windows.png" ')' -gravity center -geometry +0-18 -composite \
        -gravity south -font "$picture_font" -pointsize 20 -fill '#203040' -annotate +0+12 "$2" "$name" ||
        fail "a picture of the moving one could not be made"
    moving_frames+=(-delay "$3" "$name")
}

# The face that stands in for those of the dialogs.
find_picture_font() {
    picture_font=$(find /usr/share/fonts -name 'ipagp.ttf' 2>/dev/null | sed -n 1p)
    [ -n "$picture_font" ] || fail "there is no ipagp.ttf below /usr/share/fonts; run './dev setup'"
}

# moving_picture PICTURES RESULT: a run of picture_motion from the dialog to what arrived.
moving_picture() {
    local moving moving_frames=() picture
    moving=$(mktemp -d)
    find_picture_font
    moving_frame "$1-filled" 'Say where to, and press Start.' 220
    while IFS= read -r picture; do
        moving_frame "${picture%.png}" 'The copy runs ...' 35
    done < <(find "$build/screenshots" -name "$(basename "$1")-progress-*.png" -newer "$1-filled.png" \
        ! -newer "$1-collision.png" | sort | sed -n 1p)  # while a later one was taken, the question may have come
    moving_frame "$1-collision" 'A name exists already. What now?' 220
    moving_frame "$1-chosen" 'Keep both - and so with all later ones.' 220
    while IFS= read -r picture; do
        moving_frame "${picture%.png}" 'The copy goes on ...' 35
    done < <(find "$build/screenshots" -name "$(basename "$1")-progress-*.png" -newer "$1-chosen.png" | sort)
    convert -size 760x500 xc:'#e8ecf0' -gravity north -font "$picture_font" -pointsize 20 -fill '#203040' \
        -annotate +0+90 "$(printf 'Photos, at the destination:\n\n%s' "$motion_names")" -gravity south \
        -annotate +0+12 'Done. Nothing was overwritten.' "$moving/end.png" || fail "$2 could not be made"
    convert -loop 0 "${moving_frames[@]}" -delay 320 "$moving/end.png" +dither -colors 48 -layers optimize "$2" ||
        fail "$2 could not be made"
    rm -rf "$moving"
    [ "$(stat -c %s "$2")" -lt 600000 ] || fail "$2 is larger than 600 kB"
}

# is_shown NAME: whether a page of the documentation or of the manual shows it.
is_shown() { grep -rqF "images/$1" "$root"/README*.md "$root"/docs/*.md "$root/res/manual"; }

publish_pictures() {
    local name made count language
    mkdir -p "$shown_pictures"
    for language in ja-JP en-US; do
        while read -r name made count; do
            name=$name-${language%%-*}.png
            ! is_shown "$name" || cut_out "$build/screenshots/$language-100-$made" "$count" "$shown_pictures/$name"
        done < <(published_pictures)
    done
    moving_picture "$build/screenshots/en-US-100-motion" "$shown_pictures/collision.gif"
    say "the pictures of the documentation and of the manual are new: docs/images"
}
