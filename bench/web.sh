#!/bin/sh
# Measures a message in the module of WebAssembly, in the tool and in node-pdu, a named yardstick: bench/web.sh [LINES]
set -eu
cd "$(dirname "$0")/.."

script/web
script/bootstrap tool lines
command -v npm >/dev/null || script/bootstrap npm
cmake --preset tool >/dev/null
cmake --build --preset tool --target qxpdu >/dev/null
npm install --silent --no-save --no-audit --no-fund --ignore-scripts --prefix build/web/node-pdu node-pdu@2.1.1
node bench/web.mjs "$@"
