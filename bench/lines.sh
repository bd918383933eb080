#!/bin/sh
# Measures qxpdu decode --jsonl on mixed PDUs beside tshark -T ek on the same: bench/lines.sh [LINES]
# Prints time, memory and whether -j 1, 2 and 8 write the same; tshark gets a tenth of the lines.
set -eu
cd "$(dirname "$0")/.."
lines=${1:-1000000}
fewer=$((lines / 10))

script/bootstrap tool lines
cmake --preset tool >/dev/null
cmake --build --preset tool --target qxpdu >/dev/null
qxpdu=build/tool/tools/qxpdu/qxpdu
folder=build/lines
mkdir -p "$folder"
python3 bench/lines.py "$lines" pdus >"$folder/pdus"
head -n "$fewer" "$folder/pdus" >"$folder/fewer"
python3 bench/lines.py "$fewer" hexdump >"$folder/hexdump"
text2pcap -q -l 147 "$folder/hexdump" "$folder/pcap" 2>/dev/null

# measured NAME COMMAND...: standard output to $folder/NAME
measured() {
    name=$1
    shift
    /usr/bin/time -f "$name: %e s, %U s + %S s of processor, %M KiB" -o "$folder/time" "$@" >"$folder/$name"
    cat "$folder/time"
}

for threads in 1 2 8; do
    measured "qxpdu-j$threads" "$qxpdu" decode --jsonl -j "$threads" <"$folder/pdus"
done
cmp "$folder/qxpdu-j1" "$folder/qxpdu-j2"
cmp "$folder/qxpdu-j1" "$folder/qxpdu-j8"
[ "$(wc -l <"$folder/qxpdu-j1")" -eq "$lines" ]
echo "the same $lines lines on 1, 2 and 8 threads"
rm "$folder/qxpdu-j2" "$folder/qxpdu-j8"

measured "qxpdu-fewer" "$qxpdu" decode --jsonl <"$folder/fewer"
measured "tshark-fewer" tshark -r "$folder/pcap" -T ek \
    -o 'uat:user_dlts:"User 0 (DLT=147)","gsm_sms","0","","0",""' 2>/dev/null
