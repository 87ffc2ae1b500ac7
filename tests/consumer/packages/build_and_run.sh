#!/bin/sh
# A C program on unpacked packages, by pkg-config. Arguments: their /usr, libdir of it, C compiler.
set -eu
usr=$1 libdir=$2 cc=$3
programs=$(cd "$(dirname "$0")/../programs" && pwd)
export PKG_CONFIG_LIBDIR="$usr/$libdir/pkgconfig"  # nothing of the machine's own
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# The flags are words for the shell to split.
# shellcheck disable=SC2046
"$cc" -std=c11 "$programs/consumer.c" -o "$scratch/consumer" $(pkg-config --cflags --libs orvik) -lm
LD_LIBRARY_PATH="$usr/$libdir" "$scratch/consumer"
LD_LIBRARY_PATH="$usr/$libdir" ldd "$scratch/consumer" | grep -q "$usr/$libdir/liborvik_kernel.so"
if [ -e "$usr/$libdir/pkgconfig/orvik-front.pc" ]; then
  # shellcheck disable=SC2046
  "$cc" -std=c11 "$programs/front.c" -o "$scratch/front" $(pkg-config --cflags --libs orvik-front)
  LD_LIBRARY_PATH="$usr/$libdir" "$scratch/front"
fi
if [ -e "$usr/$libdir/liborvik_kernel.a" ]; then
  libraries=$(pkg-config --static --libs orvik | sed 's/-lorvik_kernel/-l:liborvik_kernel.a/g')
  # shellcheck disable=SC2046,SC2086
  "$cc" -std=c11 "$programs/consumer.c" -o "$scratch/consumer_static" $(pkg-config --cflags orvik) $libraries
  "$scratch/consumer_static"
  if ldd "$scratch/consumer_static" | grep liborvik; then exit 1; fi
fi
