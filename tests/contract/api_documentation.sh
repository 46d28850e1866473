#!/usr/bin/env bash
# The API documentation is generated without a warning, and holds every public header and every page.
#
#   api_documentation.sh SOURCE WORK
set -euo pipefail
source=$1 work=$2

rm -rf "$work"
"$source/script/docs" "$work"
cd "$work/html"
failed=0
while read -r header; do
    [ -f "$(basename "$header" .h)_8h.html" ] || { echo "FAIL: nothing on $header"; failed=1; }
done < <(find "$source/src/AudioAnalyzer" -name '*.h' ! -path '*/detail/*')
while read -r page; do
    title=$(sed -n 's/^# //p;T;q' "$page")
    grep -qF "$title" pages.html index.html || { echo "FAIL: no page \"$title\""; failed=1; }
done < <(find "$source/docs" -maxdepth 1 -name '*.md')
grep -q 'A beat falls due now' classAudioAnalyzer.html || { echo "FAIL: OnBeat() is not explained"; failed=1; }
grep -q 'Frees the analysis' Analysis_8h.html || { echo "FAIL: the C interface is not explained"; failed=1; }
if grep -rqF "$source" .; then
    echo "FAIL: the documentation holds a path of this machine"
    failed=1
fi
exit $failed
