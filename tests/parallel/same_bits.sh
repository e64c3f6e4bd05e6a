# same_bits.sh PARALLEL_STRESS [MPIRUN NUMPROC_FLAG PARALLEL_STRESS_MPI]: whatever the parts of a mesh, the nodal
# stresses are right and the same to the last bit.
threads=$1
mpirun=$2
flag=$3
ranks=$4
fingerprints=
runs() {
    output=$("$@") || { echo "$*: $output"; exit 1; }
    fingerprints="$fingerprints
$(printf '%s\n' "$output" | sed -n 's/.*fingerprint //p')"
}
for count in 1 2 3 9; do runs "$threads" 9 $count; done
if [ -n "$mpirun" ]; then
    export OMPI_ALLOW_RUN_AS_ROOT=1 OMPI_ALLOW_RUN_AS_ROOT_CONFIRM=1 OMPI_MCA_rmaps_base_oversubscribe=1
    for count in 1 2 3; do runs "$mpirun" "$flag" $count "$ranks" 9; done
fi
if [ "$(printf '%s\n' "$fingerprints" | sort -u | grep -c .)" != 1 ]; then
    echo "different bits: $fingerprints"
    exit 1
fi
if "$threads" 9 10 || "$threads" 0 || "$threads" 9 2 1; then
    echo "arguments at fault were taken"
    exit 1
fi 2>/dev/null
