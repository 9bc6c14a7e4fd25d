#!/bin/sh
# Runs one test program under a ceiling on its address space, so that a test that runs away
# with memory fails within seconds instead of taking the machine with it. The programs it
# starts (the vor binary, the mail server) live under the same ceiling.
# Usage: limited.sh MEGABYTES PROGRAM [ARGUMENT...]
megabytes=$1
shift
ulimit -v $((megabytes * 1024)) || exit 1
exec "$@"
