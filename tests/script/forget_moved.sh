#!/bin/sh
# What was configured in one place is kept there, and forgotten by a copy of the checkout: forget_moved.sh SCRIPT CMAKE
set -eu
script=$1
cmake=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
one="$folder/häuser [one]"
two="$folder/häuser [one] two"

configure() { (cd "$1" && script/forget_moved && "$cmake" -G Ninja -B build/release >/dev/null); }

mkdir -p "$one/script"
cp "$script" "$one/script"
printf '%s\n' 'cmake_minimum_required(VERSION 3.25)' 'project(P LANGUAGES NONE)' >"$one/CMakeLists.txt"
configure "$one"
(cd / && "$one/script/forget_moved")
[ -e "$one/build/release/build.ninja" ]

cp -R "$one" "$two"
(cd / && "$two/script/forget_moved")
[ ! -e "$two/build/release/build.ninja" ]
configure "$two"
[ -e "$two/build/release/build.ninja" ] && [ -e "$one/build/release/build.ninja" ]
