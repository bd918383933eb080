#!/bin/sh
# Measures qxpdu decode --jsonl on mixed PDUs, and on SMS-DELIVER beside tshark -T ek on the same: bench/lines.sh [LINES]
# Prints time, memory and whether -j 1, 2 and 8 write the same; the comparison has a tenth of the lines.
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
python3 bench/lines.py "$lines" mixed >"$folder/mixed.txt"
head -n "$fewer" "$folder/mixed.txt" >"$folder/fewer.txt"
python3 bench/lines.py "$fewer" deliver >"$folder/deliver.txt"
python3 bench/lines.py "$fewer" hexdump >"$folder/hexdump"
text2pcap -q -l 147 "$folder/hexdump" "$folder/pcap" 2>/dev/null

# measured STATUS NAME COMMAND...: standard output to $folder/NAME
measured() {
    expected=$1
    name=$2
    shift 2
    status=0
    /usr/bin/time -qf "$name: %e s, %U s + %S s of processor, %M KiB" -o "$folder/time" "$@" >"$folder/$name" || status=$?
    cat "$folder/time"
    [ "$status" -eq "$expected" ]
}

for threads in 1 2 8; do
    measured 1 "mixed-j$threads" "$qxpdu" decode --jsonl -j "$threads" <"$folder/mixed.txt"
done
cmp "$folder/mixed-j1" "$folder/mixed-j2"
cmp "$folder/mixed-j1" "$folder/mixed-j8"
[ "$(wc -l <"$folder/mixed-j1")" -eq "$lines" ]
echo "the same $lines lines on 1, 2 and 8 threads"
rm "$folder/mixed-j2" "$folder/mixed-j8"

measured 1 "mixed-fewer" "$qxpdu" decode --jsonl <"$folder/fewer.txt"
measured 0 "deliver" "$qxpdu" decode --jsonl <"$folder/deliver.txt"
measured 0 "deliver-tshark" tshark -r "$folder/pcap" -T ek \
    -o 'uat:user_dlts:"User 0 (DLT=147)","gsm_sms","0","","0",""' 2>/dev/null
