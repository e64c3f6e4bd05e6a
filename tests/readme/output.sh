# output.sh README SHOWN PROGRAM [ARGUMENTS]: what the program prints is what the README shows of it, in the first
# text block behind the words SHOWN. A line "..." there stands for one line or more.
readme=$1
shown=$2
shift 2
printed=$(basename "$1").out
"$@" >"$printed" || exit 1
awk -v shown="$shown" '
    FNR == NR { printed[++count] = $0; next }
    !found { found = index($0, shown) > 0; next }
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
