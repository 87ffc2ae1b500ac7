#!/bin/sh
# constants_test.sh SOURCE_DIR: regenerates the constants of the roots and compares them with the checked-in file.
source_dir=$1
for tool in sollya clang-format; do
  command -v $tool > /dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done
made=$(mktemp) || exit 1
trap 'rm -f "$made"' EXIT
"$source_dir/tools/roots/generate" constants_cbrt > "$made" || exit 1
diff "$source_dir/src/zym/kernels/roots/constants_cbrt.h" "$made"
