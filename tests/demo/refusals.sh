# refusals.sh PROGRAM: arguments that are at fault get one sentence, nothing on standard output, and exit status 2.
program=$1
failed=0
refuses() {
    expected=$1
    shift
    sentence=$("$program" "$@" 2>&1 >refusals.out)
    status=$?
    case $sentence in *"$expected"*) ;; *) status="$status, sentence '$sentence'" ;; esac
    if [ "$status" != 2 ] || [ -s refusals.out ] || [ "$(printf '%s\n' "$sentence" | wc -l)" != 1 ]; then
        echo "stress_to_nodes $*: status $status"
        failed=1
    fi
}
refuses "C3D8Z is not a label" C3D8Z
refuses "is not a label" ""
refuses "C3D8C3 is a layered solid" C3D8C3
refuses "CIN3D8 is an infinite element" CIN3D8 2
for n in 0 -1 21 2x "" " 2" 2.5 99999999999999999999; do refuses "whole number" C3D8 "$n"; done
refuses usage C3D8 2 3
exit $failed
