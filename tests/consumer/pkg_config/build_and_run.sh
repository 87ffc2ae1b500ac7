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

[ "$(pkg-config --modversion orvik)" != "" ]
# The flags are words for the shell to split.
# shellcheck disable=SC2046
{
  "$cc" -std=c11 "$programs/consumer.c" -o consumer_c $(pkg-config --cflags --libs orvik) -lm
  "$cxx" -std=c++20 "$programs/consumer.cc" -o consumer_cxx $(pkg-config --cflags --libs orvik)
}
LD_LIBRARY_PATH="$prefix/$libdir" ./consumer_c
LD_LIBRARY_PATH="$prefix/$libdir" ./consumer_cxx

if [ -n "$static" ]; then
  # -l: takes the archive though the shared library lies beside it.
  libraries=$(pkg-config --static --libs orvik | sed 's/-lorvik_kernel/-l:liborvik_kernel.a/')
  # shellcheck disable=SC2046,SC2086
  {
    "$cc" -std=c11 $(pkg-config --cflags orvik) "$programs/consumer.c" -o consumer_c_static $libraries
    "$cxx" -std=c++20 $(pkg-config --cflags orvik) "$programs/consumer.cc" -o consumer_cxx_static $libraries
  }
  ./consumer_c_static
  ./consumer_cxx_static
fi
