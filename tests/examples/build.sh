#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs a build tree, moves the installation, and builds the examples with it: build.sh BUILD LIBDIR FOLDER
# FOLDER has the installation in prefix/ and the minimal host in program/ and hidden/ (g++, the interface in the program,
# exported or not), library/ and pkgconfig/ (clang++, the interface in a library or in the program).
set -euo pipefail

build=$1
libdir=$2
folder=$3
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
export CXXFLAGS="-Wall -Wextra -Wpedantic -Wshadow -Werror -DQT_NO_KEYWORDS"

rm -rf -- "$folder"
mkdir -p -- "$folder"
cd -- "$folder"
cmake --install "$build" --prefix "$PWD/first"
mv first prefix
export CMAKE_PREFIX_PATH=$PWD/prefix
export PKG_CONFIG_PATH=$PWD/prefix/$libdir/pkgconfig
examples=$(find prefix/share/doc -type d -name examples)

cmake -G Ninja -S "$examples" -B program -DCMAKE_CXX_VISIBILITY_PRESET=hidden \
    -DCMAKE_EXE_LINKER_FLAGS=-Wl,--exclude-libs,ALL
cmake --build program
mkdir hidden
mv program/minimal-host/minimal-host hidden
cmake -DCMAKE_EXE_LINKER_FLAGS= program
cmake --build program

CXX=clang++ cmake -G Ninja -S "$examples" -B library -DINTERFACE_IN_LIBRARY=ON
cmake --build library --target minimal-host

mkdir pkgconfig
read -r -a flags <<<"$CXXFLAGS $(pkg-config --cflags --libs fxsdk-host)"
clang++ -std=c++17 -rdynamic -o pkgconfig/minimal-host "$examples"/minimal-host/*.cpp "${flags[@]}"

cmake -G Ninja -S "$root/sdk" -B sdk # the interface is a project of its own, too
