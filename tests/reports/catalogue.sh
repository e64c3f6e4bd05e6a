# catalogue.sh PROGRAM: what the example prints, and what it refuses with one sentence, nothing on standard output, and
# exit status 2.
program=$1
failed=0
fails() {
    echo "catalogue: $*"
    failed=1
}
refuses() {
    expected=$1
    shift
    sentence=$("$program" "$@" 2>&1 >catalogue.out)
    status=$?
    case $sentence in *"$expected"*) ;; *) fails "sentence '$sentence'" ;; esac
    [ "$status" = 2 ] && [ ! -s catalogue.out ] && [ "$(printf '%s\n' "$sentence" | wc -l)" = 1 ] ||
        fails "$*: status $status"
}
refuses usage
refuses "no report \"tables\"" tables
refuses "takes no label" table C3D8
refuses "at least one label" row
refuses "\"C3D8Z\" is not a label" inverse C3D8 C3D8Z

prints() {
    expected=$1
    shift
    lines=$("$program" "$@" | wc -l)
    [ "$lines" = "$expected" ] || fails "$*: $lines lines"
}
prints 876 script
prints 2 row c3d8 MASS
prints 0 weights CAXA82
for report in shapes table; do "$program" $report | grep -q WARPF2D8 || fails "$report lacks labels"; done
for report in members connectivity inverse; do "$program" $report C3D8 | grep -q . || fails "$report is empty"; done
if [ -c /dev/full ]; then
    "$program" script 2>/dev/null >/dev/full
    [ $? = 1 ] || fails "a full device goes unnoticed"
fi
exit $failed
