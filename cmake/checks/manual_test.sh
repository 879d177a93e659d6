#!/usr/bin/env bash
# manual_test.sh: manual.sh notices what can be wrong with the manual: each case spoils a copy of it in one place.
# Run from the project's root.
set -euo pipefail
copy=$(mktemp -d)
trap 'rm -rf "$copy" "$copy.kept"' EXIT
kept=$copy.kept
bad=0 count=0 complaints=()

# spoil COMPLAINT PAGE EDIT: does the sed script EDIT to PAGE, and remembers what has to be said of it. The cases do
# not touch each other.
spoil() {
    cp "$copy/$2" "$kept"
    sed -i -E "$3" "$copy/$2"
    cmp -s "$copy/$2" "$kept" && { echo "   nothing to spoil by: $3"; bad=1; }
    complaints+=("$1")
}

# judge SAID: each complaint stands in SAID, and did not before.
judge() {
    local complaint
    for complaint in "${complaints[@]}"; do
        count=$((count + 1))
        grep -qF -e "$complaint" <<<"$1" || { echo "   not noticed: $complaint"; bad=1; }
        ! grep -qF -e "$complaint" <<<"$untouched" || { echo "   always said: $complaint"; bad=1; }
    done
    complaints=()
}

cp -r res/manual/. "$copy"
untouched=$(bash cmake/checks/manual.sh "$copy" || true)

spoil 'closes <p>' Ferry/ja/index.html '0,/<\/p>/s///'
spoil 'is never closed' Ferry/en/index.html '/<\/html>/d'
spoil 'a picture without alt' Ferry/ja/rename.html 's/ alt="[^"]*"//'
spoil 'its language is not en' Ferry/en/report.html 's/<html lang="en">/<html lang="ja">/'
spoil 'h3 behind h1' Ferry/en/progress.html '0,/<h2/s//<h3/; 0,/<\/h2>/s//<\/h3>/'
spoil 'th without scope' Ferry/ja/report.html '0,/ scope="row"/s///'
spoil 'a table without caption' Ferry/en/rename.html '/<caption>/d'
spoil 'the id choose twice' Ferry/en/languages.html 's/id="translate"/id="choose"/'
spoil 'no way past the head' Ferry/ja/launcher.html '/class="skip"/d'
spoil 'something else than text' Ferry/ja/launcher.html 's/<h1>/<h1 style="color: red">/'
spoil '& that is no sign' Ferry/en/languages.html 's/&amp;/\&/'
spoil 'no page ../manual.css' Ferry.en-US.html 's/[^"]*\/Ferry\/manual.css/..\/manual.css/'
spoil 'no page favourite.html' Ferry/en/index.html 's/href="favourites.html"/href="favourite.html"/'
spoil 'no page Ferry/jp/confirmation.html' Ferry.html 's/url=Ferry\/ja/url=Ferry\/jp/'
spoil 'no picture ../images/trace-ja.png' Ferry/ja/scripts.html 's/trace-window/trace/'
spoil 'nothing is called favourites.html#make' Ferry/ja/messages.html 's/#add/#make/'
spoil 'leads out of the manual' Ferry/en/launcher.html 's/href="index.html"/href="https:\/\/manual.invalid"/'
spoil 'report.html differs between the languages' Ferry/en/report.html 's/id="reasons"/id="why"/'
spoil 'text of dialog 102: Overwriteifnewer' Ferry/en/confirmation.html 's/Overwrite if newer/Overwrite when newer/'
spoil 'text of dialog 134: 以降全て' Ferry/ja/collision.html 's/以降全て/残り全て/g'
spoil 'text of dialog 133: アクセス日時' Ferry/ja/rename.html 's/アクセス日時/参照日時/'
spoil 'text of dialog 135: Copythelist' Ferry/en/report.html 's/Copy the list/Copy a list/g'
spoil 'message number: 62535' Ferry/ja/messages.html 's/62535//'
spoil 'message: Choosethedestinationfolder.' Ferry/en/messages.html 's/Choose the destination folder/Choose a folder/'
spoil 'does not explain messageboxyn' Ferry/ja/script-reference.html '/<code>messageboxyn=/d'
spoil 'does not explain left' Ferry/en/script-reference.html '/<code>left\(/d'
spoil 'does not explain shiftsilentmode' Ferry/en/script-reference.html '/<code>shiftsilentmode</d'
spoil 'does not explain skip' Ferry/ja/script-reference.html 's/<code>skip<\/code>//'
spoil 'does not explain ?selpath?' Ferry/ja/script-reference.html 's/\?selpath\?/?SELPATH?/'
spoil 'does not explain %CMD_Dir%' Ferry/en/script-reference.html 's/%CMD_Dir%/%Cmd_Dir%/'
spoil 'operator: !^' Ferry/en/script-reference.html 's/!\^/~/'
spoil 'message: Toomanyitems.' Ferry/ja/script-reference.html 's/Too many items\./Too many./'
judge "$(bash cmake/checks/manual.sh "$copy" || true)"

rm -r "$copy"
cp -r res/manual/. "$copy"
rm "$copy/Ferry/en/collision.html"
complaints=('do not have the same pages' 'F1 opens Ferry/en/collision.html')
judge "$(bash cmake/checks/manual.sh "$copy" 2>/dev/null || true)"
[ "$bad" = 0 ] && printf '   %d faults noticed\n' "$count"
exit "$bad"
