#!/usr/bin/env bash
# Runs a Windows program under Wine in the project's own prefix (never ~/.wine).
# WINEPREFIX may be set by the caller; by default the prefix of build/ is used.
# Prepare it first with scripts/wine-prefix.sh.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=wine-env.sh
. "$here/wine-env.sh"
cvcli_find_wine
export WINEPREFIX=${WINEPREFIX:-$(cd "$here/.." && pwd)/build/wineprefix}
exec "$WINE" "$@"
