#!/bin/sh
# manpage.sh PROGRAM HELP-OPTION PAGE SOURCE SUMMARY SEE-ALSO OUT-DIR
# Makes OUT-DIR/PAGE.1 from the program's help text and OUT-DIR/PAGE.1.gz from that,
# compressed without a time stamp so that the same build gives the same bytes.
set -eu
here=$(dirname "$0")
"$1" "$2" | awk -v page="$3" -v source="$4" -v summary="$5" -v seealso="$6" -f "$here/manpage.awk" >"$7/$3.1"
gzip -9nc "$7/$3.1" >"$7/$3.1.gz"
