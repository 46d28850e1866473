#!/usr/bin/env bash
# Packs what is installed into the archive, unpacks it elsewhere, and runs the program from there.
#
#   archive.sh CPACK CONFIG PREFIX SONG VERSION WORK
set -euo pipefail
cpack=$1 config=$2 prefix=$3 song=$4 version=$5 work=$6

rm -rf "$work"
mkdir -p "$work/unpacked"
# From the installed prefix: the build may be running.
"$cpack" --config "$config" -G TGZ -B "$work/packed" -D CPACK_INSTALL_CMAKE_PROJECTS= \
    -D CPACK_INSTALLED_DIRECTORIES="$prefix;/" >"$work/log" || { cat "$work/log"; exit 1; }
archives=("$work"/packed/*.tar.gz)
[[ ${archives[*]} == */audioanalyzer-"$version"-linux-*.tar.gz ]] || { echo "FAIL: ${archives[*]}"; exit 1; }
tar -xzf "${archives[0]}" -C "$work/unpacked"
rm -r "$work/packed"
top=("$work"/unpacked/*)
[ -d "${top[*]}" ] || { echo "FAIL: the archive has more than one folder on top: ${top[*]}"; exit 1; }

"$(dirname "$0")/programs.sh" "${top[0]}" "$song" "$version"
[ -f "${top[0]}/share/doc/AudioAnalyzer/LICENSE" ] || { echo "FAIL: no licence"; exit 1; }
