#!/usr/bin/env bash
# Fails when a file includes across the layers that the design forbids:
#   runtime  -> standard library only (never vbide, host, the add-in or Qt)
#   vbide    -> runtime's text basics and its user-document type only
#   add-in   -> vbide and runtime, never host, never Qt
#   host     -> vbide and runtime, never the add-in, never Qt
#   Qt       -> only in src/studio
set -uo pipefail
cd "$(dirname "$0")/.."

addin='addin|viewer|search|newmember|options|dialogs'
status=0
report() { echo "layering: $1"; status=1; }

check() {  # folder, forbidden include pattern, why
  local hits
  hits=$(grep -rnE "^\s*#\s*include\s*[<\"]($2)" "src/$1" 2>/dev/null)
  [ -n "$hits" ] && report "$3"$'\n'"$hits"
}
qt='Qt[A-Za-z]*/|Q[A-Z][A-Za-z]*>'  # <QWidget>, <QtCore/qstring.h>: Qt's headers, in angle brackets

check runtime "vbide/|host/|($addin)/|studio/|cli/|$qt" "src/runtime may include the standard library only"
check vbide "host/|($addin)/|studio/|cli/|$qt" "src/vbide may include only runtime's text basics"
hits=$(grep -rnE '^\s*#\s*include\s*"runtime/' src/vbide 2>/dev/null |
  grep -vE '"runtime/(Error|Utf|CodePage|CaseFold|VbStrings|UserDocument|Picture)\.h"')
[ -n "$hits" ] && report "src/vbide may include from runtime only its text basics and UserDocument"$'\n'"$hits"
for dir in addin viewer search newmember options dialogs; do
  check "$dir" "host/|studio/|cli/|$qt" "the add-in (src/$dir) may include only vbide and runtime"
done
check host "($addin)/|studio/|cli/|$qt" "src/host may not include the add-in or Qt"
check cli "$qt" "only src/studio includes Qt"

exit $status
