#!/usr/bin/env bash
# Installs a build tree, moves what was installed, and looks at what is there.
#
#   install.sh SOURCE BUILD WORK      leaves the moved prefix in WORK/prefix
set -euo pipefail
source=$1 build=$2 work=$3

rm -rf "$work"
mkdir -p "$work"
fail() { echo "FAIL: $*" >&2; exit 1; }
files() { (cd "$1" && find . ! -type d | sort); }

cmake --install "$build" --prefix "$work/first" >"$work/install.log"
mv "$work/first" "$work/prefix"
cd "$work/prefix"

# The headers are those of the tree and two generated ones, and none of the private ones: what lies in a
# detail/ folder, and what only the tracker takes from dsp/.
wanted() {
    (cd "$source/src" && find AudioAnalyzer -name '*.h' ! -path '*/detail/*' \
        ! -path '*/dsp/Elementary.h' ! -path '*/dsp/OnsetLevels.h')
    printf 'AudioAnalyzer/%s\n' Export.h Version.h
}
diff <(wanted | sort) <(cd include && find . -name '*.h' -printf '%P\n' | sort) ||
    fail "the installed headers are not those of the tree"

# Nothing remembers where it was built or first installed. Programs carry debug information, which does.
if grep -rIl -e "$work/first" -e "$build" -e "$source" .; then
    fail "these files hold a path of the build"
fi
for file in bin/* lib/*/*.so lib/lib*.so lib/vamp/*.so; do
    [ -f "$file" ] || continue
    path=$(readelf -d "$file" | sed -nE 's/.*\(R(UN)?PATH\).*\[(.*)\]/\2/p')
    [[ -z $path || $path == \$ORIGIN* ]] || fail "$file looks for libraries in $path"
done

# The library carries its version, and only development has the bare name.
library=$(basename "$(readlink -f lib*/libAudioAnalyzer.so)")
version=$(sed -nE 's/.*AUDIOANALYZER_VERSION "(.*)"/\1/p' include/AudioAnalyzer/Version.h)
[ "$library" = "libAudioAnalyzer.so.$version" ] || fail "the library is called $library"
readelf -d "$(readlink -f lib*/libAudioAnalyzer.so)" |
    grep -q "SONAME.*\[libAudioAnalyzer.so.${version%%.*}\]" || fail "wrong SONAME"

# The components are the whole, and share nothing.
for component in library development tools python link; do
    mkdir -p "$work/$component"
    cmake --install "$build" --prefix "$work/$component" --component "$component" >>"$work/install.log"
done
diff <(files "$work/prefix") <(for c in library development tools python link; do files "$work/$c"; done | sort) ||
    fail "the components are not the whole"
[ -z "$(find "$work/library" -name '*.h')" ] || fail "headers in the component library"
files "$work/prefix"
