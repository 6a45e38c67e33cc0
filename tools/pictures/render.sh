#!/usr/bin/env bash
# Renders the wizard pictures (hand-written SVG here) to the PNG files the library
# ships in resources/pictures, at twice their nominal 164 x 314 pixels so that they
# stay sharp on screens with a scale factor of 2. Needs rsvg-convert (librsvg2-bin).
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
out="$here/../../resources/pictures"
for svg in "$here"/*.svg; do
    rsvg-convert --zoom 2 --format png --output "$out/$(basename "$svg" .svg).png" "$svg"
done
