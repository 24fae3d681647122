#!/usr/bin/env bash
# man-page.sh HOST PAGE: the page tells the options that the host's help tells, and the page is
# formatted without a complaint. What ./run makes of an option of its own is no option of the host.
set -euo pipefail
told() { grep -oE '^ *--[a-z-]+' <<<"$1" | tr -d ' ' | grep -vx -- --windows | sort -u; }
help=$(told "$("$1" --help)")
page=$(told "$(sed -nE 's/^\.BI? +(\\-\\-[^ ]+).*/\1/; T; s/\\//gp' "$2")")
[[ -n $help ]]
diff <(echo "$help") <(echo "$page")
complaints=$(man --warnings -E UTF-8 -l "$2" 2>&1 >/dev/null)
[[ -z $complaints ]] || { echo "$complaints"; exit 1; }
