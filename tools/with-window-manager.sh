#!/usr/bin/env bash
# Runs a command on the current X display (an Xvfb one, usually) with the openbox window
# manager running beside it, so that windows get title bars and frames and are placed
# as on a desktop; stops the window manager (by its process id) when the command ends
# and exits with the command's status. Without openbox the command runs alone.
#
#   xvfb-run -a -s "-screen 0 1600x1200x24" bash tools/with-window-manager.sh COMMAND...
set -uo pipefail

if ! command -v openbox >/dev/null; then
    exec "$@"
fi
openbox --sm-disable >/dev/null 2>&1 &
wm=$!
# The manager is ready once it announces itself on the root window (at most 5 s).
for _ in $(seq 50); do
    if xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; then break; fi
    sleep 0.1
done
"$@"
status=$?
kill "$wm" 2>/dev/null
wait "$wm" 2>/dev/null
exit "$status"
