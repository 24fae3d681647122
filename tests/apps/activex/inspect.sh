#!/usr/bin/env bash
# inspect.sh OBJDUMP LIBRARY CONTAINER VERSION COMPANY COPYRIGHT: the library gives what COM asks of it, under undecorated names and
# nothing else, takes only from libraries that every Windows has, and may be put anywhere in memory,
# where nothing but its code is run. Its properties and its container's show what Windows reads of
# them; designers offer to register only what says OLESelfRegister.
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

# expect_shown FILE DESCRIPTION INTERNAL-NAME [OLESelfRegister]
expect_shown() {
  local shown wanted
  shown=$("${objdump%objdump}strings" -n 3 -el "$1" |
    sed -n '/^StringFileInfo$/,/^VarFileInfo$/p' | sed '1,2d;$d')
  wanted=$(printf '%s\n' CompanyName "$company" FileDescription "$2" FileVersion "$version" \
    InternalName "$3" LegalCopyright "$copyright" "${@:4}" OriginalFilename "$(basename "$1")" \
    ProductName DistPromoterProg ProductVersion "$version")
  diff <(echo "$wanted") <(echo "$shown")
}
objdump=$1 version=$4 company=$5 copyright=$6
expect_shown "$2" 'Promoter programs of the distribution' comDistPromoterProg OLESelfRegister
expect_shown "$3" 'Trial container of DistPromoterProg' activex-host
