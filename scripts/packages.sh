# Sourced by the scripts beside it: puts in place what a build needs on a Debian system.

# need_packages PROBE:PACKAGE...
# Installs the packages whose probe fails, a command's name or the absolute path of a file. Says and fetches nothing when
# all is there. As root apt-get runs directly, else through sudo; with neither, prints the line to run and ends with 1.
need_packages() {
    local wanted missing=() run=()
    for wanted in "$@"; do
        local probe=${wanted%%:*} package=${wanted#*:}
        case $probe in
            /*) [ -e "$probe" ] || missing+=("$package") ;;
            *) command -v "$probe" >/dev/null || missing+=("$package") ;;
        esac
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local install=(apt-get install --yes --no-install-recommends "${missing[@]}")
    if ! command -v apt-get >/dev/null || { [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; }; then
        echo "Something is missing here, and only root can install it. Run as root, then try again:" >&2
        echo "    apt-get update && ${install[*]}" >&2
        exit 1
    fi
    [ "$(id -u)" -eq 0 ] || run=(sudo)
    run+=(env DEBIAN_FRONTEND=noninteractive)
    echo "Installing ${missing[*]}" >&2
    "${run[@]}" apt-get update --quiet=2 >&2 && "${run[@]}" "${install[@]}" --quiet=2 >&2
}

build_packages=(g++:g++ cmake:cmake ninja:ninja-build)
test_packages=("${build_packages[@]}" /usr/include/gtest/gtest.h:libgtest-dev
    /usr/share/i18n/charmaps/ISO-8859-1.gz:locales)
