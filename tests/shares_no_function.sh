#!/bin/sh
# shares_no_function.sh OBJECT...
# Fails when an object brings a function that others may bring, too: of these the linker keeps one for all, and from an
# object for later machines that would be one that others cannot run.
set -eu
symbols=$(nm "$@")
! echo "$symbols" | grep ' W '
