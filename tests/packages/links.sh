#!/usr/bin/env bash
# links.sh BUILD FOLDER: the documents that are installed lead nowhere but to each other. FOLDER is made
# anew.
set -euo pipefail
rm -rf "$2"
cmake --install "$1" --component host --prefix "$2" >/dev/null
"$(dirname "${BASH_SOURCE[0]}")/links.py" "$2"
