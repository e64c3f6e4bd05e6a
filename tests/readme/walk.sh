#!/usr/bin/env bash
# walk.sh SOURCE DIRECTORY
# What a newcomer does: in a fresh copy of SOURCE in DIRECTORY, with nothing built, runs every command of README.md in its
# order, compiles its program against the library that it installed, and looks for the files that it names.
set -euo pipefail
source=$1 walk=$2
rm -rf "$walk"
mkdir -p "$walk/clone" "$walk/bin" "$walk/root"
tar --create --exclude=./build --directory="$source" . | tar --extract --directory="$walk/clone"
cd "$walk/clone"

# Installs below DIRECTORY, where pkg-config and the loader then look as they would on a machine of the newcomer's own.
cat >"$walk/bin/sudo" <<SUDO
#!/bin/sh
DESTDIR=$walk/root exec "\$@"
SUDO
chmod +x "$walk/bin/sudo"
export PATH=$walk/bin:$PATH
find_installed_library() {
    local pc
    pc=$(find "$walk/root" -name QVRShpCore.pc)
    export PKG_CONFIG_PATH=${pc%/*} PKG_CONFIG_SYSROOT_DIR=$walk/root LD_LIBRARY_PATH=${pc%/pkgconfig/*}
}

# Commands, one on a line: those in blocks, and what is set in backticks and begins like one.
commands() {
    awk '
        /^```/ { inside = inside ? "" : substr($0, 4); next }
        inside == "sh" { sub(/ *#.*/, ""); print; next }
        !inside { text = text " " $0 }
        inside || $0 == "" { flush() }
        END { flush() }
        function flush(  i, n, part) {
            n = split(text, part, "`")
            for (i = 2; i <= n; i += 2)
                if (part[i] ~ /^(scripts\/|build\/|cmake |g\+\+ |mpirun )/) print part[i]
            text = ""
        }' README.md
}

# What stands for arguments of the caller's choice.
with_arguments() {
    sed -e 's/\[LABEL\]/C3D10/; s/\[N \[THREADS\]\]/12 2/; s/\[N\]/2/; s/RANKS/2/' <<<"$1"
}

# The program of the README, and what it is said to print.
awk '/^```cpp/ { inside = 1; next } /^```/ { inside = 0 } inside' README.md >program.cpp

export OMPI_ALLOW_RUN_AS_ROOT=1 OMPI_ALLOW_RUN_AS_ROOT_CONFIRM=1 # builds in containers run as root
count=0
while IFS= read -r shown; do
    command=$(with_arguments "$shown")
    echo "== $command"
    case $command in
        mpirun*)
            if ! command -v mpirun >/dev/null; then
                echo "   left out: no MPI is installed"
                continue
            fi
            ;;
        *examples/catalogue)
            for report in shapes table script; do $command $report >"$walk/$report.out"; done
            command+=" weights C3D8"
            ;;
        *examples/*) ;;
        build/*)
            test -e "$command"
            count=$((count + 1))
            continue
            ;;
    esac
    sh -c "$command" >"$walk/command.out" </dev/null || {
        cat "$walk/command.out"
        echo "README.md: the command ends with an error: $command" >&2
        exit 1
    }
    count=$((count + 1))
    case $command in
        *--install*) find_installed_library ;;
        g++*) sh tests/readme/output.sh README.md "It prints:" ./a.out ;;
    esac
done < <(commands | awk '!seen[$0]++')
test -s stress.vtu && test -s cut.svg && test -s rigid_surface.svg
echo "$count commands and files of the README"
test "$count" -ge 15
