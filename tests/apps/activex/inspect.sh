#!/usr/bin/env bash
# inspect.sh OBJDUMP LIBRARY: the library gives what COM asks of it, under undecorated names and
# nothing else, takes only from libraries that every Windows has, and may be put anywhere in memory,
# where nothing but its code is run.
set -euo pipefail
tables=$("$1" -p "$2")
exports=$(sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/s/^\t\[ *[0-9]*\] //p' <<<"$tables" | tr '\n' ' ')
wanted='DllCanUnloadNow DllGetClassObject DllInstall DllRegisterServer DllUnregisterServer '
if [[ $exports != "$wanted" ]]; then
  echo "It exports: $exports"
  exit 1
fi
system=' advapi32 comctl32 comdlg32 dwmapi gdi32 kernel32 msvcrt ole32 oleacc oleaut32 shell32 user32 uxtheme '
imports=$(sed -n 's/^\tDLL Name: \(.*\)\.[dD][lL][lL]$/\L\1/p' <<<"$tables")
[[ -n $imports ]]
for library in $imports; do
  if [[ $system != *" $library "* ]]; then
    echo "It imports $library."
    exit 1
  fi
done
wanted='DYNAMIC_BASE NX_COMPAT'
! grep -q 'file format pei-x86-64' <<<"$tables" || wanted+=' HIGH_ENTROPY_VA'
for flag in $wanted; do
  if ! grep -qx "[[:space:]]*$flag" <<<"$tables"; then
    echo "It lacks $flag."
    exit 1
  fi
done
