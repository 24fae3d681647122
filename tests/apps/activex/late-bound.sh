#!/usr/bin/env bash
# late-bound.sh ROOT PREFIX LIBRARY CONTAINER VERSION: registers the control as a user would, lets a
# script host find and work with it, and takes the registration away again.
set -euo pipefail
root=$1 prefix=$2 library=$3 container=$4 version=$5
folder=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
wine() { "$root/scripts/under-wine" "$prefix" "$@"; }
# run SCRIPT ARGUMENT...
run() {
  local status=0
  wine cscript //nologo "Z:$folder/$1" "${@:2}" || status=$?
  if [[ $status != 7 ]]; then
    echo "$1 ended with exit code $status."
    exit 1
  fi
}
trap 'WINEPREFIX=$prefix wineserver -k || true; rm -rf "$prefix"' EXIT

rm -rf "$prefix"
wine regsvr32 /s "Z:$library"
wine reg query 'HKCR\comDistPromoterProg.DistPromoterProg\CLSID' /ve
wine "$container" --make-office "Z:$prefix/office.db"
run registered.vbs "Z:${library//\//\\}" "$version"
run late-bound.vbs "sqlite:Z:$prefix/office.db"
wine regsvr32 /s /u "Z:$library"
if wine reg query 'HKCR\comDistPromoterProg.DistPromoterProg' >/dev/null; then
  echo "The registration is still there."
  exit 1
fi
