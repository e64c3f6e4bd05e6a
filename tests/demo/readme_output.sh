# readme_output.sh PROGRAM README: what the program prints is what the README shows of it, in the first text block behind
# the program's name. A line "..." there stands for one line or more.
program=$1
readme=$2
printed=$(basename "$program").out
"$program" >"$printed" || exit 1
awk -v name="$(basename "$program")" '
    FNR == NR { printed[++count] = $0; next }
    !found { found = index($0, name) > 0; next }
    !inside { inside = $0 == "```text"; next }
    $0 == "```" { isClosed = 1; exit }
    $0 == "..." { ++line; isOpen = 1; next }
    {
        do ++line; while (isOpen && line <= count && printed[line] != $0)
        isOpen = 0
        if (line > count || printed[line] != $0) { print "not printed there: " $0; failed = 1; exit }
    }
    END {
        if (failed) exit 1
        if (!isClosed) { print "the README has no such block"; exit 1 }
        if (!isOpen && line != count) { print "not shown: " printed[line + 1]; exit 1 }
    }' "$printed" "$readme"
