# What ./run, ./test and ./package share; sourced by each. Everything that a step prints goes into $log, which
# is shown only when the step fails. Messages go to stderr: stdout belongs to the program.
# shellcheck shell=bash disable=SC2034

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Needed to build and start the desktop host.
run_packages=(g++ cmake ninja-build ccache qt6-base-dev libsqlite3-dev unixodbc-dev tdsodbc
  libxlsxwriter-dev qt6-translations-l10n fonts-dejavu-core)
# Needed besides by the tests and the benchmark programs.
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev libicu-dev clang-format unzip
  poppler-utils libsqliteodbc man-db python3 sqlfluff xvfb at-spi2-core dbus-daemon python3-pyatspi)

# Needed besides to make packages, and to try them.
package_packages=(dpkg-dev file git python3)
try_packages=(debootstrap xz-utils)

# Needed to build the Windows control, and besides to run it under Wine.
windows_packages=(cmake ninja-build ccache g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix
  mingw-w64-tools)
wine_packages=(wine wine64 xvfb xauth fonts-wine fonts-dejavu-core googletest)

say() { printf '%s\n' "$*" >&2; }

# start_log NAME: the output of all further steps goes to build/NAME.log.
start_log() {
  mkdir -p "$root/build"
  log=$root/build/$1.log
  : >"$log"
}

# step TITLE COMMAND...: runs the command; when it fails, shows the end of its output and fails. The
# standard input belongs to the program.
step() {
  local title=$1 lines
  shift
  say "$title ..."
  printf '\n== %s\n' "$title" >>"$log"
  lines=$(wc -l <"$log")
  if ! "$@" >>"$log" 2>&1 </dev/null; then
    tail -n "+$((lines + 1))" "$log" | grep -vE '^\[[0-9]+/[0-9]+\] (Building|Linking)' |
      tail -n 60 >&2
    say "Failed: $title. The whole output is in ${log#"$root"/}."
    return 1
  fi
}

# install_packages PACKAGE...: installs those that this Debian machine does not have.
install_packages() {
  if ! command -v dpkg-query >/dev/null; then
    say "This is not a Debian system; it must provide what these Debian packages hold: $*"
    return 0
  fi
  local installed package missing=() as_root=()
  # Fails whenever it does not know one of them.
  installed=" $(dpkg-query -W -f '${db:Status-Status}:${Package} ' "$@" 2>/dev/null || true) "
  for package in "$@"; do
    [[ $installed == *" installed:$package "* ]] || missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  if [[ $(id -u) != 0 ]]; then
    if ! command -v sudo >/dev/null; then
      say "Packages are missing. As root: apt-get install --no-install-recommends ${missing[*]}"
      return 1
    fi
    as_root=(sudo)
  fi
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q)
  step "Reading the package lists" "${apt[@]}" update &&
    step "Installing ${missing[*]}" "${apt[@]}" install -y --no-install-recommends "${missing[@]}"
}

# SQLite comes in an npm package.
install_windows_packages() {
  local packages=("${windows_packages[@]}" "$@")
  if ! command -v npm >/dev/null; then packages+=(npm); fi
  install_packages "${packages[@]}"
}

# gather PRESET FOLDER: what a Windows machine needs of a build.
gather() {
  local from=$root/build/$1 to=$2
  rm -rf "$to"
  mkdir -p "$to/templates"
  cp "$from"/apps/activex/DistPromoterProg.{ocx,tlb} "$from/apps/activex-host/activex-host.exe" "$to"
  cp "$root"/demo/templates/*.html "$to/templates"
  sed 's/$/\r/' "$root/scripts/register.cmd" >"$to/register.cmd"
  sed 's/$/\r/' "$root/scripts/remove.cmd" >"$to/remove.cmd"
}

# make_installer VERSION LISTS FILE: the Windows installer of what the lists name; both builds are
# configured.
make_installer() {
  makensis -V2 -WX -INPUTCHARSET UTF8 "-DVERSION=$1" "-DLISTS=$2" "-DOUT=$3" \
    "-DNUMBERS=$(printf '%s.0.0.0' "$1" | cut -d. -f1-4)" \
    "-DCOMPANY=$(cached windows64 PROMOTER_COMPANY)" \
    "-DCOPYRIGHT=$(cached windows64 PROMOTER_COPYRIGHT)" \
    "-DICON=$root/resources/promoter.ico" "$root/packaging/windows/installer.nsi"
}

# cached PRESET VARIABLE: the variable's value in the preset's build folder.
cached() {
  sed -n "s/^$2:[A-Z]*=//p" "$root/build/$1/CMakeCache.txt" 2>/dev/null
}

# configure PRESET OPTION=ON|OFF...: only when the folder is not configured for this checkout yet or
# an option that is asked for is off there. An option that is on already stays on.
configure() {
  local preset=$1 option needed=0
  shift
  [[ -f $root/build/$preset/build.ninja ]] || needed=1
  [[ $(cached "$preset" CMAKE_HOME_DIRECTORY) == "$root" ]] || needed=1
  for option in "$@"; do
    [[ $option == *=OFF || $(cached "$preset" "${option%=ON}") == ON ]] || needed=1
  done
  ((needed)) || return 0
  local arguments=(--fresh --preset "$preset")
  for option in "$@"; do arguments+=("-D$option"); done
  if command -v ccache >/dev/null; then
    arguments+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  fi
  (cd "$root" && step "Configuring ($preset)" cmake "${arguments[@]}")
}

# build PRESET TARGET...
build() {
  local preset=$1
  shift
  step "Building $* ($preset)" cmake --build "$root/build/$preset" --target "$@" -j "$(nproc)"
}

# Qt wants a UTF-8 locale; a bare machine has none but this.
use_utf8() {
  [[ $(locale charmap 2>/dev/null) == UTF-8 ]] || export LC_ALL=C.UTF-8
}
