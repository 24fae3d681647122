#!/usr/bin/env bash
# hardened.sh PROGRAM ROOT: what cmake/Hardening.cmake asks for is in the program, and neither a test
# library nor ROOT, the folder that it was built from.
set -euo pipefail
fault() {
  echo "$1: $2"
  exit 1
}
program=$1
all=$(readelf --wide --file-header --program-headers --dynamic --notes "$program")
symbols=$(readelf --wide --dyn-syms "$program")
has() { grep -qE "$2" <<<"$1"; }
has "$all" 'Type: +DYN .*Position-Independent Executable' || fault "$program" 'is not position independent'
has "$all" '^ +GNU_RELRO' || fault "$program" 'has no read-only relocations'
has "$all" '\(FLAGS(_1)?\).*(BIND_NOW|NOW)' || fault "$program" 'binds late'
has "$all" '^ +GNU_STACK .* RW +0x' || fault "$program" 'has a stack that can be executed'
has "$symbols" ' __stack_chk_fail' || fault "$program" 'does not protect its stack'
has "$symbols" ' __[a-z]+_chk(@| |$)' || fault "$program" 'does not check its copies'
if [[ $(uname -m) == x86_64 ]]; then
  marks=$(objdump -d --no-show-raw-insn --section=.text "$program" | grep -c endbr64 || true)
  ((marks > 1000)) || fault "$program" 'has no marks for indirect branches'
fi
! has "$all" 'NEEDED.*([Tt]est)' || fault "$program" 'links a test library'
places=$(strings "$program" | grep -F "$2/" || true)
[[ -z $places ]] || fault "$program" "tells where it was built: $places"
