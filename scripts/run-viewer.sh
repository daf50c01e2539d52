#!/usr/bin/env bash
# Builds and starts the map viewer. Without a display it renders the map to a
# PNG instead. Extra arguments go to the viewer, e.g. --center 12,50 --zoom 4.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

zo_install_packages
zo_build zomapview
viewer="$BUILD_DIR/apps/zomapview/zomapview"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    zo_as_user "$viewer" "$@"
else
    out="$BUILD_DIR/zomapview.png"
    zo_as_user "$viewer" --render "$out" --center 10,25 --zoom 2 --size 1280x800 "$@"
    echo "No display: the map was rendered to $out"
fi
