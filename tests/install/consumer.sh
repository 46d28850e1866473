#!/usr/bin/env bash
# Builds and runs one consumer against an installed prefix and nothing else of this project.
#
#   consumer.sh SOURCE PREFIX WORK FAKE_AUDIO_MODULE
set -euo pipefail
source=$1 prefix=$2 work=$3 fake_audio=$4

rm -rf "$work"
cp -r "$source" "$work"
cd "$work"
library=$(dirname "$(find "$prefix" -name 'libAudioAnalyzer.so')")
export PREFIX=$prefix PKG_CONFIG_PATH=$library/pkgconfig LD_LIBRARY_PATH=$library
export PYTHONPATH=$prefix/lib/python3/dist-packages PYTHONDONTWRITEBYTECODE=1

if [ -f CMakeLists.txt ]; then
    cmake -G Ninja -B . -S . -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE=Debug \
        -DCMAKE_CXX_COMPILER_LAUNCHER="${CMAKE_CXX_COMPILER_LAUNCHER:-}" >configure.log ||
        { cat configure.log; exit 1; }
    cmake --build .
else
    make EXAMPLES="$(find "$prefix/share/doc" -type d -name examples)"
fi

# One device that plays music, and a configuration file that names it; consumers that need none do not
# look.
mkdir -p plugins/audio
ln -s "$fake_audio" plugins/audio/fake.so
printf '[Paths]\nPlugins=plugins\n' >qt.conf
echo '[{"name":"Deck","track":"music","channels":1}]' >devices.json
cp "$prefix/bin/audio-analyzer" .
./audio-analyzer config set device Deck

./consumer 2>errors || { cat errors; exit 1; }
[ ! -s errors ] || { echo "FAIL: the consumer printed errors"; cat errors; exit 1; }
