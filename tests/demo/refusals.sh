# refusals.sh STRESS_TO_NODES CUT DESCRIBE_RESULTS: arguments that are at fault get one sentence, nothing on standard
# output, and exit status 2; so does a point outside the body, with exit status 1.
program=$1
cut=$2
describe=$3
wanted=2
failed=0
refuses() {
    expected=$1
    shift
    sentence=$("$program" "$@" 2>&1 >refusals.out)
    status=$?
    case $sentence in *"$expected"*) ;; *) status="$status, sentence '$sentence'" ;; esac
    if [ "$status" != "$wanted" ] || [ -s refusals.out ] || [ "$(printf '%s\n' "$sentence" | wc -l)" != 1 ]; then
        echo "$program $*: status $status"
        failed=1
    fi
}
refuses "C3D8Z is not a label" C3D8Z
refuses "is not a label" ""
refuses "C3D8C3 is a layered solid" C3D8C3
refuses "CIN3D8 is an infinite element" CIN3D8 2
for n in 0 -1 21 2x "" " 2" 2.5 99999999999999999999; do refuses "whole number" C3D8 "$n"; done
refuses usage C3D8 2 3
refuses usage C3D8 --at
refuses usage --at 1,1 --at 1,1
for point in "" 1 1, 1,2, 1,2,3,4 1,2,3, ,1 1,x "1, 2" 1,nan 1e999,1; do refuses "A point is" C3D8 1 --at "$point"; done
wanted=1
refuses "(0.5, 0.5, 0.5) lies outside the body" --at 0.5,0.5,0.5
refuses "(1.5, 0.1, 0.5) lies outside the body" CPE4 1 --at 1.5,0.1,0.5
refuses "in the wall, but no element" C3D8 1 --at 1.98,0.2,0.5
program=$cut
wanted=2
refuses "is a layered solid" C3D8C3
refuses usage C3D8 2 3
program=$describe
refuses usage S
if [ -c /dev/full ]; then
    "$describe" 2>/dev/null >/dev/full
    [ $? = 1 ] || { echo "$describe: a full device goes unnoticed" && failed=1; }
fi
exit $failed
