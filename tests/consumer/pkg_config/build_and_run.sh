#!/bin/sh
# A user's makefile: compiler and pkg-config, nothing else. Arguments: prefix, libdir of it, C compiler, C++ compiler,
# scratch directory, "static" when there is a static library.
set -eu
prefix=$1 libdir=$2 cc=$3 cxx=$4 scratch=$5 static=${6:-}
programs=$(cd "$(dirname "$0")/../programs" && pwd)
export PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig"

rm -rf "$scratch"
mkdir -p "$scratch"
cd "$scratch"

version=$(awk '/^#define ORVIK_VERSION_[A-Z]+ [0-9]/ { v = v s $3; s = "." } END { print v }' "$prefix/include/orvik/version.h")
[ "$(pkg-config --modversion orvik)" = "$version" ]

# Programs that refer to tables alone, as distributions link: without libraries that nothing needs by name.
# tables NAME FLAGS...: with each linker of the machine.
tables() {
  name=$1
  shift
  for linker in bfd gold lld; do
    command -v "ld.$linker" >/dev/null || continue
    # shellcheck disable=SC2046
    "$cc" -std=c11 -fuse-ld=$linker -Wl,--as-needed $(pkg-config --cflags orvik) "$programs/tables_main.c" \
      "$programs/tables.c" -o "$name" "$@"
    LD_LIBRARY_PATH="$prefix/$libdir" "./$name"
  done
}
# The flags are words for the shell to split.
# shellcheck disable=SC2046
{
  "$cc" -std=c11 "$programs/consumer.c" -o consumer_c $(pkg-config --cflags --libs orvik) -lm
  "$cxx" -std=c++20 "$programs/consumer.cc" -o consumer_cxx $(pkg-config --cflags --libs orvik)
}
LD_LIBRARY_PATH="$prefix/$libdir" ./consumer_c
LD_LIBRARY_PATH="$prefix/$libdir" ./consumer_cxx
[ "$(pkg-config --modversion orvik-front)" = "$version" ]
# shellcheck disable=SC2046
{
  "$cc" -std=c11 "$programs/front.c" -o front_c $(pkg-config --cflags --libs orvik-front)
  "$cxx" -std=c++20 "$programs/front.cc" -o front_cxx $(pkg-config --cflags --libs orvik-front)
}
LD_LIBRARY_PATH="$prefix/$libdir" ./front_c
LD_LIBRARY_PATH="$prefix/$libdir" ./front_cxx
# shellcheck disable=SC2046
tables tables $(pkg-config --libs orvik)

if [ -n "$static" ]; then
  # -l: takes the archive though the shared library lies beside it.
  libraries=$(pkg-config --static --libs orvik | sed 's/-lorvik_kernel/-l:liborvik_kernel.a/g')
  # shellcheck disable=SC2046,SC2086
  {
    "$cc" -std=c11 $(pkg-config --cflags orvik) "$programs/consumer.c" -o consumer_c_static $libraries
    "$cxx" -std=c++20 $(pkg-config --cflags orvik) "$programs/consumer.cc" -o consumer_cxx_static $libraries
  }
  ./consumer_c_static
  ./consumer_cxx_static
  libraries=$(pkg-config --static --libs orvik-front | sed 's/-lorvik_\(kernel\|front\)/-l:liborvik_\1.a/g')
  # shellcheck disable=SC2046,SC2086
  {
    "$cc" -std=c11 $(pkg-config --cflags orvik-front) "$programs/front.c" -o front_c_static $libraries
    "$cxx" -std=c++20 $(pkg-config --cflags orvik-front) "$programs/front.cc" -o front_cxx_static $libraries
  }
  ./front_c_static
  ./front_cxx_static
  libraries=$(pkg-config --static --libs orvik | sed 's/-lorvik_kernel/-l:liborvik_kernel.a/g')
  # shellcheck disable=SC2086
  tables tables_static $libraries
fi
