#!/usr/bin/env bash
# Lists every include in src/ that does not start with a folder of src/ ("ui/X.h", "../gps/X.h",
# "X.h"): the compiler would find those next to the including file, past the floors.
set -euo pipefail
src=$1
folders=$(find "$src" -mindepth 1 -maxdepth 1 -type d -printf '%f|')
bad=$(grep -rnE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"' "$src" --include='*.cpp' --include='*.h' |
      grep -vE "#[[:space:]]*include[[:space:]]*\"(${folders%|})/" || true)
if [ -n "$bad" ]; then
    echo "includes not named by their path below src/:"
    echo "$bad"
    exit 1
fi
