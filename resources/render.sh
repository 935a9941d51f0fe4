#!/usr/bin/env bash
# Makes the PNG files from the SVG sources beside them. Run after changing a drawing.
set -eu
cd "$(dirname "$0")"
tool=$(mktemp -d)/render
trap 'rm -rf "$(dirname "$tool")"' EXIT
../scripts/i386 bash -c "g++ -std=c++17 -fPIC render.cpp -o '$tool' \$(pkg-config --cflags --libs Qt5Gui Qt5Svg 2>/dev/null ||
    echo -I/usr/include/i386-linux-gnu/qt5{,/QtCore,/QtGui,/QtSvg} -lQt5Svg -lQt5Gui -lQt5Core) &&
    QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/tmp '$tool' images/*.svg"
