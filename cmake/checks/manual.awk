# manual.awk: reads one page of the manual and complains of what a reader would stumble over.
# Variables: page (its name), lang (its language), facts and text (files to write). Facts are lines of the form
# KIND TAB VALUE, for every id, link, picture and forward; the text is the page's without marks and blanks.
# Run with LC_ALL=C.
BEGIN {
    RS = "<"
    depth = level = skips = mains = 0
    count = split("br img link meta", names, " ")
    for (i = 1; i <= count; ++i) isVoid[names[i]] = 1
}

function complain(what) { printf "   %s: %s\n", page, what; bad = 1 }

function fact(kind, value) { printf "%s\t%s\n", kind, value >facts }

# readAttributes TEXT: fills attribute[] with the values; what is not NAME="VALUE" is wrong.
function readAttributes(rest,   name, value) {
    split("", attribute)
    while (match(rest, /^[ \n]+[a-z-]+="[^"]*"/)) {
        value = substr(rest, 1, RLENGTH)
        rest = substr(rest, RLENGTH + 1)
        sub(/^[ \n]+/, "", value)
        name = value
        sub(/=.*/, "", name)
        sub(/^[a-z-]+="/, "", value)
        sub(/"$/, "", value)
        if (name in attribute) complain("two attributes " name)
        attribute[name] = value
    }
    if (rest !~ /^[ \n]*$/) complain("what is this within a tag: " rest)
}

function readHeading(name,   now) {
    now = substr(name, 2) + 0
    if (now == 1 && level != 0) complain("a second h1")
    if (now > level + 1) complain("h" now " behind h" level)
    level = now
}

function readTag(name) {
    if (name == "html" && attribute["lang"] != lang) complain("its language is not " lang)
    if (name == "img") {
        if (attribute["alt"] == "") complain("a picture without alt")
        fact("src", attribute["src"])
    }
    if (name == "th" && attribute["scope"] !~ /^(col|row)$/) complain("th without scope")
    if (name ~ /^h[1-6]$/) readHeading(name)
    if (name == "table") captionMissing = 1
    if (name == "caption") captionMissing = 0
    if ((name == "tr" || name == "thead") && captionMissing) complain("a table without caption")
    if (name == "nav" && attribute["aria-label"] == "") complain("nav without a label")
    if (name == "main") ++mains
    if (name == "a" && attribute["class"] == "skip") ++skips
    if (name == "script" || name == "style" || name == "iframe" || "style" in attribute)
        complain("something else than text, pictures and the style sheet")
    if ("id" in attribute) {
        if (attribute["id"] in ids) complain("the id " attribute["id"] " twice")
        ids[attribute["id"]] = 1
        fact("id", attribute["id"])
    }
    if ("href" in attribute) fact("href", attribute["href"])
    if ("aria-labelledby" in attribute) fact("href", "#" attribute["aria-labelledby"])
    if (attribute["http-equiv"] == "refresh") {
        sub(/^0; url=/, "", attribute["content"])
        fact("href", attribute["content"])
    }
}

# say TEXT: adds it to the page's text.
function say(words,   rest) {
    rest = words
    gsub(/&(lt|gt|amp|quot|#39);/, "", rest)
    if (rest ~ /&/) complain("& that is no sign: " words)
    gsub(/&lt;/, "<", words)
    gsub(/&gt;/, ">", words)
    gsub(/&quot;/, "\"", words)
    gsub(/&#39;/, "'", words)
    gsub(/&amp;/, "\\&", words)
    gsub(/\342\200\231/, "'", words)
    gsub(/[ \t\r\n]+/, "", words)
    printf "%s", words >text
}

NR == 1 {
    if ($0 ~ /[^ \n]/) complain("text before the first tag")
    next
}

{
    end = index($0, ">")
    if (end == 0) {
        complain("a tag that does not end: " $0)
        next
    }
    tag = substr($0, 1, end - 1)
    words = substr($0, end + 1)
    if (words ~ />/) complain("a > that should be &gt;: " words)
    name = tag
    sub(/[ \n].*/, "", name)
    if (tag == "!DOCTYPE html") {
        # The one that every page begins with.
    } else if (name ~ /^\//) {
        if (depth == 0 || open[depth] != substr(name, 2))
            complain("<" name "> closes <" (depth ? open[depth] : "nothing") ">")
        if (depth > 0) --depth
    } else {
        readAttributes(substr(tag, length(name) + 1))
        readTag(name)
        if (!(name in isVoid)) open[++depth] = name
    }
    say(words)
}

END {
    if (depth != 0) complain("<" open[depth] "> is never closed")
    if (level == 0) complain("no heading")
    if (mains != 1) complain("not one main part")
    if (skips != 1 && page ~ /\//) complain("no way past the head of the page")
    printf "\n" >text
    printf "" >facts
    exit bad
}
