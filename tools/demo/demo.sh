#!/bin/sh
# Shows the type manager at work through kytm: first single values, then real columns sorted and each result checked
# against an independent sort, then what languages.sh shows, at last the object store in store.sh.
#
#   tools/demo/demo.sh BUILD_DIR
#
# Data: the Unicode character database (Debian package unicode-data), an American word list (wamerican-huge), and the
# data of languages.sh and store.sh.
# Ends with 0 when every sorted column and every answer of the store is identical to the independent one, else with 1.
set -eu

[ $# -eq 1 ] || { echo "usage: demo.sh BUILD_DIR" >&2; exit 2; }
kytm=$1/tools/kytm/kytm
characters=/usr/share/unicode/UnicodeData.txt
words=/usr/share/dict/american-english-huge
[ -x "$kytm" ] || { echo "demo: no program at $kytm; build first" >&2; exit 2; }
for file in "$characters" "$words"; do
    [ -r "$file" ] || { echo "demo: $file is missing: install unicode-data and wamerican-huge" >&2; exit 2; }
done

# shellcheck disable=SC1091  # checked by itself
. "$(dirname "$0")/calls.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

show() {
    echo
    say "$@"
    "$kytm" "$@"
}

# check WHAT KYTM-OUTPUT INDEPENDENT-OUTPUT NANOSECONDS
check() {
    lines=$(wc -l <"$3")
    printf '  %s\n    %s lines, %s ms: ' "$1" "$lines" $(($4 / 1000000))
    if [ "$lines" -gt 0 ] && cmp -s "$2" "$3"; then
        echo identical
    else
        echo "NOT THE SAME"
        diff "$2" "$3" | head -n 10
        failed=1
    fi
}

# compare WHAT TYPE COLUMN INDEPENDENT-OUTPUT [options of kytm sort]
compare() {
    what=$1 type=$2 column=$3 expected=$4
    shift 4
    begin=$(now)
    "$kytm" sort "$type" "$column" "$@" >"$work/sorted" || failed=1
    end=$(now)
    check "$what: kytm sort $type${*:+ $*}" "$work/sorted" "$expected" $((end - begin))
}

echo "== Types and single values =="
show types
show show o_4b 42 -1
show show o_2b ff --format %x
show show o_double 0.1 -Infinity NaN
show show o_u8b 18446744073709551615
show show KyString "type manager"
show cmp o_2b -1 2
show cmp o_u2b 65535 2
show cmp KyString abc ABC --op exact,ignore-case

echo
echo "== 64-bit integers, truth values and numbers that can be null =="
show show KyInt64 72623859790382856
show show KyInt64 0xffffffffffffffff --format %x
show show KyBoolean t "{NULL}"
show show KyNull_short -5 "{NULL}" ""
show show KyNull_KyInt64 72623859790382856 "{NULL}"
show show KyNull_double 0.5 "{NULL}"
show cmp KyBoolean "{NULL}" FALSE
show cmp KyNull_int "{NULL}" -2147483648
show cmp KyNull_double "{NULL}" NaN

echo
echo "== Dates, times and spans =="
show now
show show KyDate "Fri 17.May 2024" "{NULL}"
show show KyDateTimeN 2024-02-29T23:59:59.999999999
show show KyTimeSpan 45.10:20:30.5
show show d_Interval "3 days, 4 hours, 5 minutes, 6 seconds"
show cmp KyDate 2024-05-17 "*-05-*" --format %Y-%m-%d --op 0
show cmp KyTimeSpan 31.00:00:00 29.23:59:59

echo
echo "== Numbers: the code points of $characters, in the order of the characters' names =="
LC_ALL=C sort -s -t ';' -k 2,2 "$characters" | awk -F ';' '
    { value = 0
      for (i = 1; i <= length($1); ++i) value = value * 16 + index("0123456789ABCDEF", substr($1, i, 1)) - 1
      print value }' >"$work/codes"
LC_ALL=C sort -s -n "$work/codes" >"$work/codes.up"
LC_ALL=C sort -s -n -r "$work/codes" >"$work/codes.down"
compare "against sort -n" int "$work/codes" "$work/codes.up"
compare "against sort -n" o_4b "$work/codes" "$work/codes.up"
compare "against sort -n" o_u8b "$work/codes" "$work/codes.up"
compare "against sort -n -r" o_4b "$work/codes" "$work/codes.down" --reverse

echo
echo "== Numbers: the numeric values of its characters (fractions divided), in the order of their names =="
LC_ALL=C sort -s -t ';' -k 2,2 "$characters" | LC_ALL=C awk -F ';' '
    $9 != "" { parts = split($9, part, "/")
               printf "%.17g\n", parts == 2 ? part[1] / part[2] : part[1] }' >"$work/values"
LC_ALL=C sort -s -g "$work/values" >"$work/values.up"
LC_ALL=C sort -s -g -u "$work/values" >"$work/values.once"
compare "against sort -g" o_double "$work/values" "$work/values.up"
compare "against sort -g -u" o_double "$work/values" "$work/values.once" --unique

echo
echo "== Numbers with gaps: columns of $characters that are empty for most characters, in the order of their names =="
# split_nulls COLUMN [options of sort]: the empty lines of a column, and the others in the order of an independent sort.
split_nulls() {
    column=$1
    shift
    grep -x "" "$column" >"$work/empty" || true
    grep -v -x "" "$column" | LC_ALL=C sort -s "$@" >"$work/filled"
    echo "  $(wc -l <"$work/empty") of $(wc -l <"$column") lines are empty: null"
}

LC_ALL=C sort -s -t ';' -k 2,2 "$characters" | cut -d ';' -f 7 >"$work/digits"
split_nulls "$work/digits" -n
cat "$work/empty" "$work/filled" >"$work/nulls.first"
cat "$work/filled" "$work/empty" >"$work/nulls.last"
compare "decimal digits against sort -n" KyNull_int "$work/digits" "$work/nulls.first"
compare "decimal digits against sort -n" KyNull_int "$work/digits" "$work/nulls.last" --null-last
compare "decimal digits against sort -n" KyNull_u8b "$work/digits" "$work/nulls.last" --null-last

LC_ALL=C sort -s -t ';' -k 2,2 "$characters" | LC_ALL=C awk -F ';' '
    { parts = split($9, part, "/")
      if ($9 == "") print ""
      else printf "%.17g\n", parts == 2 ? part[1] / part[2] : part[1] }' >"$work/sparse"
split_nulls "$work/sparse" -g
cat "$work/empty" "$work/filled" >"$work/nulls.first"
cat "$work/filled" "$work/empty" >"$work/nulls.last"
compare "numeric values against sort -g" KyNull_double "$work/sparse" "$work/nulls.first"
compare "numeric values against sort -g" KyNull_double "$work/sparse" "$work/nulls.last" --null-last
split_nulls "$work/sparse" -g -r
cat "$work/filled" "$work/empty" >"$work/nulls.last"
compare "numeric values against sort -g -r" KyNull_double "$work/sparse" "$work/nulls.last" --null-last --reverse
split_nulls "$work/sparse" -g -u
{ echo; cat "$work/filled"; } >"$work/nulls.first"
compare "numeric values against sort -g -u" KyNull_double "$work/sparse" "$work/nulls.first" --unique

# Of hexadecimal numbers, sorting bytes is right when all are written with six digits.
LC_ALL=C sort -s -t ';' -k 2,2 "$characters" | LC_ALL=C awk -F ';' '
    { print $13 == "" ? "" : substr("000000" $13, length($13) + 1) }' >"$work/capitals"
split_nulls "$work/capitals"
cat "$work/filled" "$work/empty" >"$work/nulls.last"
compare "code points of the capitals against sort" KyNull_KyInt64 "$work/capitals" "$work/nulls.last" \
    --null-last --format %x

echo
echo "== Truth values: which of its characters are mirrored, in the order of their names =="
LC_ALL=C sort -s -t ';' -k 2,2 "$characters" | cut -d ';' -f 10 | tr YN TF >"$work/mirrored"
LC_ALL=C sort -s "$work/mirrored" >"$work/mirrored.up"
compare "against sort" KyBoolean "$work/mirrored" "$work/mirrored.up"

echo
echo "== Dates: the code points of its characters as days and as hours since 1970, in the order of their names =="
awk '{ printf "@%d\n", $1 * 86400 }' "$work/codes" | LC_ALL=C date -u -f - +%Y-%m-%d >"$work/days"
LC_ALL=C sort -s "$work/days" >"$work/days.up"
LC_ALL=C sort -s -r "$work/days" >"$work/days.down"
compare "against sort" KyDate "$work/days" "$work/days.up" --format %Y-%m-%d
compare "against sort -r" d_Date "$work/days" "$work/days.down" --format %Y-%m-%d --reverse
awk '{ printf "@%d\n", $1 * 3600 + 1 }' "$work/codes" | LC_ALL=C date -u -f - +%Y-%m-%dT%H:%M:%S >"$work/hours"
LC_ALL=C sort -s "$work/hours" >"$work/hours.up"
compare "against sort" KyDateTimeN "$work/hours" "$work/hours.up"
compare "against sort" KyDateTime "$work/hours" "$work/hours.up" --format %O

echo
echo "== Words: $words =="
# The order of strings, position by position: the end, symbols, digits, then letters, each in upper before lower case.
# Replacing each character by its rank makes that a plain comparison of bytes. The place of the letters beyond ASCII is
# that of the collation tables, for which there is no second source here: words with such letters are left out of this
# comparison, and of the sort of all words it is only checked that each comes out once.
order="'0123456789AaBbCcDdEeFfGgHhIiJjKkLlMmNnOoPpQqRrSsTtUuVvWwXxYyZz"
ranks='\041-\137'
LC_ALL=C grep -x "[$order]*" "$words" | awk '{ print (NR * 7919) % 1000003, $0 }' |
    LC_ALL=C sort -s -n | cut -d ' ' -f 2- >"$work/words"
LC_ALL=C tr "$order" "$ranks" <"$work/words" | LC_ALL=C sort | LC_ALL=C tr "$ranks" "$order" >"$work/words.up"
others=$(($(wc -l <"$words") - $(wc -l <"$work/words")))
echo "  $others of $(wc -l <"$words") words hold letters beyond ASCII: not in the first comparison"
compare "against tr to ranks, sort of bytes, tr back" KyString "$work/words" "$work/words.up"
LC_ALL=C sort "$words" >"$work/all.bytes"
compare "all words as bytes against sort" KyString "$words" "$work/all.bytes" --codeset 0
begin=$(now)
"$kytm" sort KyString "$words" >"$work/sorted" || failed=1
end=$(now)
LC_ALL=C sort "$work/sorted" >"$work/sorted.bytes"
check "all words, none lost or doubled: kytm sort KyString" "$work/sorted.bytes" "$work/all.bytes" $((end - begin))

echo
echo "== A column with lines that are no numbers: they are reported, nothing else is lost =="
printf '%s\n' 12 abc -7 "" 12abc 70000 3 >"$work/mixed"
status=0
"$kytm" sort o_2b "$work/mixed" >"$work/sorted" 2>"$work/reports" || status=$?
sed "s|$work/||" "$work/reports"
printf '%s\n' -7 3 12 >"$work/expected"
check "three lines remain, exit status $status" "$work/sorted" "$work/expected" 0
[ $status -eq 1 ] || failed=1

echo
echo "== Languages, code sets and wildcards =="
sh "$(dirname "$0")/languages.sh" "$1" || failed=1

echo
echo "== The object store =="
sh "$(dirname "$0")/store.sh" "$1" || failed=1

echo
[ $failed -eq 0 ] || { echo "demo: not everything is as it should be" >&2; exit 1; }
echo "Every sorted column, and every answer of the store, is identical to the independent one."
