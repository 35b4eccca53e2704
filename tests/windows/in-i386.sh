#!/bin/sh
# Under the name of a program: runs the program of that name in the 32-bit system QUORVEL_I386_ROOT, in the same folder.
exec chroot "$QUORVEL_I386_ROOT" /usr/bin/env --chdir="$PWD" "/usr/bin/${0##*/}" "$@"
