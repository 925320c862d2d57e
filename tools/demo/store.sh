#!/bin/sh
# Shows the object store at work through kytm: real tables are loaded, checked and queried, and the rows of each query
# are compared with those that a plain scan of the same CSV finds.
#
#   tools/demo/store.sh BUILD_DIR
#
# Data: the Unicode Character Database (Debian package unicode-data), a German word list (wngerman), the time zone
# database (tzdata). The scripts in store/ make CSV of them.
# Ends with 0 when every answer is that of the scan and no store has a fault, else with 1.
set -eu
# The tools that check answers write and read numbers one way under every locale.
export LC_ALL=C

[ $# -eq 1 ] || { echo "usage: store.sh BUILD_DIR" >&2; exit 2; }
kytm=$(cd "$1" && pwd)/tools/kytm/kytm
scripts=$(cd "$(dirname "$0")" && pwd)/store
# shellcheck disable=SC1091  # checked by itself
. "$(dirname "$0")/calls.sh"
[ -x "$kytm" ] || { echo "demo: no program at $kytm; build first" >&2; exit 2; }
for file in /usr/share/unicode/UnicodeData.txt /usr/share/dict/ngerman /usr/share/zoneinfo/leapseconds; do
    [ -r "$file" ] || { echo "demo: $file is missing: install unicode-data, wngerman and tzdata" >&2; exit 2; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
failed=0

# run WORD...: the call, its answer, and its time
run() {
    say "$@"
    begin=$(now)
    "$kytm" "$@" >output 2>&1 || failed=1
    sed 's/^/    /' output
    echo "    $((($(now) - begin) / 1000000)) ms"
}

# ask STORE QUERY: its first rows, how they were found, and whether the file "expected", which a scan of the CSV
# made before, has the same rows. Without "order by" only the rows count, not their order.
ask() {
    store=$1
    query=$2
    say store query "$store" "$query" --csv
    begin=$(now)
    "$kytm" store query "$store" "$query" --csv >rows 2>errors || { cat errors; failed=1; }
    end=$(now)
    tail -n +2 rows >answer
    head -n 3 answer | sed 's/^/    /'
    "$kytm" store explain "$store" "$query" | sed 's/^/    | /'
    case $query in
        *"order by"*) ;;
        *)
            LC_ALL=C sort answer -o answer
            LC_ALL=C sort expected -o expected
            ;;
    esac
    printf '    %s rows, %s ms; a scan of the CSV gives: ' "$(wc -l <answer)" $(((end - begin) / 1000000))
    if [ -s expected ] && cmp -s answer expected; then
        echo the same
    else
        echo "NOT THE SAME"
        diff answer expected | head -n 6
        failed=1
    fi
}

echo "== Characters: strings, numbers that can be null, truth values =="
sh "$scripts/characters.sh" >characters.csv
cp "$scripts"/*.schema .
sed 's/^/    /' characters.schema
run store create characters --schema characters.schema
run store load characters Character characters.csv
run store check characters
sed 's/"//g; 1d' characters.csv >plain
awk -F , '$2 ~ /^GREEK CAPITAL/ { print $1 "," $2 }' plain >expected
ask characters 'code, name from Character where name = "GREEK CAPITAL*"'
awk -F , '$6 != "" && $6 > 0 && $6 < 0.125 { print $1 "," $6 }' plain | sort -t , -k 2,2g -k 1,1n >expected
ask characters 'code, numeric from Character where numeric > 0 and numeric < 0.125 order by numeric, code'
awk -F , '$7 == "TRUE" && $1 >= 8800 && $1 < 8900 { print $1 "," $2 }' plain >expected
ask characters 'code, name from Character where mirrored = "TRUE" and code >= 8800 and code < 8900'
awk -F , '$9 == 107 || $9 == 229 || $1 == 223 { print $1 "," $2 }' plain >expected
ask characters 'code, name from Character where lower = 107 or lower = 229 or code = 223'

echo
echo "== Words: an order by language, and an index without case and accents; stored with bytes reversed =="
sh "$scripts/words.sh" >words.csv
run store create words --schema words.schema --form reversed
run store load words Word words.csv
run store check words
grep -i -E '^"stra(ss|ß)en[^"]*bahn[^"]*"' words.csv | cut -d '"' -f 2 >expected
ask words 'text from Word where folded = "strassen*bahn*" nocase noaccent'
awk -F '[",]+' '$2 ~ /^Übersetz/ { print $2 "," $4 }' words.csv >expected
ask words 'text, length from Word where text = "Übersetz*"'
awk -F '[",]+' '$4 >= 30 { print $2 "," $4 }' words.csv >expected
ask words 'text, length from Word where length >= 30'
echo "    In the order of the language, accents aside:"
run store query words 'text from Word where folded = "bar?" nocase noaccent order by folded'

echo
echo "== Dates: leap seconds and the history of time zones =="
sh "$scripts/leaps.sh" >leaps.csv
sh "$scripts/zones.sh" >zones.csv
run store create zones --schema zones.schema
run store load zones Leap leaps.csv
run store load zones Change zones.csv
run store check zones
awk -F , '$2 ~ /-12-31$/ && $3 > "0.00:00:30" { print $1 "," $3 }' leaps.csv >expected
ask zones 'moment, total from Leap where day = "*-12-31" and total > "0.00:00:30"'
awk -F , '$1 == "Europe/Berlin" && $2 >= "1945" && $2 < "1947" { print $2 "," $3 "," $6 }' zones.csv >expected
ask zones 'moment, letters, lasted from Change where zone = "Europe/Berlin" and moment >= "1945-01-01T00:00:00" and moment < "1947-01-01T00:00:00"'
awk -F , '$6 != "" && $6 + 0 >= 10000 { print $1 "," $6 }' zones.csv >expected
ask zones 'zone, lasted from Change where lasted >= "10000.00:00:00"'

echo
echo "== Rows that do not scan =="
printf 'moment,day,total\n2016-12-31T23:59:60,2016-12-31,0.00:00:37\n2016-02-30T00:00:00,2016-12-31,0.00:00:37\n' >bad.csv
say store load zones Leap bad.csv --reject rejected.csv
"$kytm" store load zones Leap bad.csv --reject rejected.csv >output 2>&1 && failed=1
sed 's/^/    /' output
tail -n 1 bad.csv >expected
tail -n 1 rejected.csv | cmp -s - expected || { echo "    THE ROW IS NOT AMONG THE REJECTS"; failed=1; }
say store query zones 'Leap where dya = "2016-12-31"'
"$kytm" store query zones 'Leap where dya = "2016-12-31"' >output 2>&1 && failed=1
sed 's/^/    /' output

exit $failed
