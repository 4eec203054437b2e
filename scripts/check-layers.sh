#!/usr/bin/env bash
# Fails when a file includes across the layers that the design forbids:
#   runtime  -> standard library only (never vbide, host, the add-in or Qt)
#   vbide    -> runtime's text basics and its user-document type only
#   add-in   -> vbide and runtime, never host, never Qt; inside it:
#     base       -> no subsystem and not the top (src/addin)
#     subsystems -> base and the common dialog wrapper (src/dialogs), never another subsystem or
#                   the top; they reach the connection through base/IConnect.h
#   host     -> vbide and runtime, never the add-in, never Qt
#   composition -> everything below the front ends, never src/cli or src/studio, never Qt
#   cli, studio -> the composition library; neither includes the other
#   Qt       -> only in src/studio
set -uo pipefail
cd "$(dirname "$0")/.."

subsystems='viewer|search|newmember|options'
addin="base|addin|dialogs|$subsystems"
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
for dir in base addin viewer search newmember options dialogs; do
  check "$dir" "host/|studio/|cli/|composition/|$qt" "the add-in (src/$dir) may include only vbide and runtime"
done
check base "addin/|dialogs/|($subsystems)/" "src/base may include no subsystem and not the top"
check dialogs "addin/|($subsystems)/" "src/dialogs may include no subsystem and not the top"
for dir in viewer search newmember options; do
  others=$(echo "$subsystems" | tr '|' '\n' | grep -vx "$dir" | paste -sd'|')
  check "$dir" "addin/|($others)/" "src/$dir may include base and dialogs, never another subsystem or the top"
done
check host "($addin)/|studio/|cli/|composition/|$qt" "src/host may not include the add-in or Qt"
check composition "studio/|cli/|$qt" "src/composition may not include a front end or Qt"
check cli "studio/|$qt" "src/cli may not include the studio; only src/studio includes Qt"
check studio "cli/" "src/studio may not include the command line; both use src/composition"

exit $status
