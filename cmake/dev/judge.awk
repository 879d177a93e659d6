# Reads the output of GoogleTest programs and says what became of each test that did not pass.
# Out: "counts PASSED FAILED SKIPPED", then "failed NAME: why" and "skipped NAME: why", a line each.
# -v excused=FILE: the skips that this ground excuses, a line each: a pattern of names, a TAB, the reason.
# -v status=N: what the program ended with.

function name_in(line) {
    sub(/^\[ *[A-Z]+ *\] /, "", line)
    sub(/,? where .*| \([0-9]+ ms\)$/, "", line)
    return line
}
function fail(name, why) { failed++; report[++reports] = "failed " name ": " why }
function skip(name, why,   pattern) {
    for (pattern in isExcused) {
        if (name ~ ("^(" pattern ")$")) {
            skipped++
            report[++reports] = "skipped " name ": " isExcused[pattern]
            return
        }
    }
    fail(name, "skipped, though nothing here excuses it" (why == "" ? "" : ": " why))
}
# A process that was started without graphics crashes by no fault of its own and is started once more.
function forgive() { if (crash != "" && mayCrash) { crash = ""; mayCrash = 0 } }
function close_program() {
    if (running != "") fail(running, "did not end" (crash == "" ? "" : ": " crash))
    else if (begun > ended) fail("a program", "ended before its last test" (crash == "" ? "" : ": " crash))
    else if (crash != "") fail(lastTest == "" ? "a program" : "after " lastTest, crash)
    running = crash = ""
    begun = ended = mayCrash = 0
}

BEGIN {
    while (excused != "" && (getline line < excused) > 0) {
        if (line ~ /^#/ || split(line, part, "\t") < 2) continue
        isExcused[part[1]] = part[2]
    }
}
{ sub(/\r$/, "") }
/^\[==========\] Running / { close_program(); begun++; programs++; next }
/^\[==========\] .* ran\./ { ended++; next }
/^\[ RUN      \] / {
    if (crash != "") fail(lastTest == "" ? "a program" : "after " lastTest, crash)
    running = lastTest = name_in($0)
    crash = whySkipped = ""
    mayCrash = 0
    next
}
/^\[       OK \] .* \([0-9]+ ms\)$/ {
    forgive()
    if (crash != "") fail(running, "passed, but something crashed: " crash)
    else passed++
    running = crash = ""
    next
}
/^\[  FAILED  \] .* \([0-9]+ ms\)$/ { fail(name_in($0), crash == "" ? "see above" : crash); running = crash = ""; next }
/^\[  SKIPPED \] .* \([0-9]+ ms\)$/ { skip(name_in($0), whySkipped); running = crash = ""; next }
/: Skipped$/ { takesReason = 1; next }
takesReason { whySkipped = $0; takesReason = 0 }
/^started without graphics, once more$/ { mayCrash = 1 }
/Unhandled (exception|page fault)|Assertion .* failed|Assertion failed|: runtime error: |(Address|Leak|Thread|UndefinedBehavior)Sanitizer|^terminate called|stack smashing detected/ {
    if (crash == "") crash = $0
}
/: error: .* did not end within / { if (crash == "") crash = $0 }
END {
    sawBad = failed
    close_program()
    if (programs == 0) fail("a program", "no test was begun" (crash == "" ? "" : ": " crash))
    if (status != "" && status != 0 && failed == 0) fail("a program", "status " status " after its tests")
    printf "counts %d %d %d\n", passed, failed, skipped
    for (at = 1; at <= reports; at++) print report[at]
}
