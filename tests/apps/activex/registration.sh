#!/usr/bin/env bash
# registration.sh ROOT PREFIX LIBRARY: registers the control for the machine and for the user, as
# registered.txt says, and takes every key away again but those that the library of the other word
# size needs.
set -euo pipefail
root=$1 prefix=$2 library=$3
folder=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
came=$(dirname "$prefix")/registered.txt.came
wine() { "$root/scripts/under-wine" "$prefix" "$@"; }
trap 'WINEPREFIX=$prefix wineserver -k || true; rm -rf "$prefix"' EXIT

# classes ROOT-KEY: every class of it with its values, without the root's name and what the other
# word size sees of the same.
classes() {
  wine reg export "$1\\Software\\Classes" "Z:${came//\//\\}.reg" /y >/dev/null
  iconv -f UTF-16 -t UTF-8 "$came.reg" | tr -d '\r' |
    awk -v RS= -v ORS='\n\n' '!/Wow6432Node/' |
    sed 's/^\[HKEY_[A-Z_]*\\Software\\Classes/[/;s/^\[\\Typelib/[\\TypeLib/;s/\\\\/\\/g'
}
file=Z:${library//\//\\}
sed_file=${file//\\/\\\\}
sed_folder=${sed_file%\\\\*}
# expect FILE BEFORE AFTER: what came between is what the file says, but for the keys of all classes.
expect() {
  { diff "$2" "$3" || true; } | sed -n 's/^> //p' |
    sed "/^\$/d;/^\[\\\\[A-Za-z]*]\$/d;s/$sed_file/{file}/;s/$sed_folder/{folder}/" >"$came"
  diff "$folder/$1" "$came"
}
install() { wine regsvr32 /s /n "/i:user" "$@" "$file"; }

wine reg add 'HKCU\Software\Classes' /f
classes HKLM >"$came.machine"
classes HKCU >"$came.user"
# Twice: over itself, too.
wine regsvr32 /s "$file"
wine regsvr32 /s "$file"
classes HKLM >"$came.registered"
expect registered.txt "$came.machine" "$came.registered"
classes HKCU | diff "$came.user" -
wine regsvr32 /s /u "$file"
wine regsvr32 /s /u "$file"

install
classes HKCU >"$came.registered"
expect registered.txt "$came.user" "$came.registered"
classes HKLM | diff "$came.machine" -
types=$(sed -n 's/^\[\\\(TypeLib.*\\0\)]$/\1/p' "$came.registered")
other="HKCU\\Software\\Classes\\$types\\win32"
wine reg add "$other" /f
install /u
classes HKCU >"$came.registered"
expect shared.txt "$came.user" "$came.registered"
wine reg delete "$other" /f
install /u
classes HKCU | diff "$came.user" -
if wine regsvr32 /s /n /i:everyone "$file"; then
  echo 'It registers for everyone.'
  exit 1
fi
