#!/bin/sh
# Shows languages, code sets and wildcards at work through kytm, on word lists of three languages.
#
#   tools/demo/languages.sh BUILD_DIR
#
# Data: the German, French and Spanish word lists of Debian (wngerman, wfrench, wspanish).
# Ends with 0 when every order that has a second source is identical to it and no word was lost, else with 1.
# shellcheck disable=SC2086  # lists of words are split
set -eu

[ $# -eq 1 ] || { echo "usage: languages.sh BUILD_DIR" >&2; exit 2; }
kytm=$(cd "$1" && pwd)/tools/kytm/kytm
[ -x "$kytm" ] || { echo "demo: no program at $kytm; build first" >&2; exit 2; }
# shellcheck disable=SC1091  # checked by itself
. "$(dirname "$0")/calls.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for list in ngerman french spanish; do
    [ -r "/usr/share/dict/$list" ] ||
        { echo "demo: /usr/share/dict/$list is missing: install wngerman, wfrench and wspanish" >&2; exit 2; }
    cp "/usr/share/dict/$list" "$work/$list"
done
cd "$work"
failed=0

fail() {
    echo "    $1"
    failed=1
}

# sorted LIST [options]: sorts into the file "sorted", and sees to it that each word comes out once
sorted() {
    list=$1
    shift
    say sort KyString "$list" "$@"
    begin=$(now)
    "$kytm" sort KyString "$list" "$@" >sorted || fail "SORTING FAILED"
    end=$(now)
    LC_ALL=C sort "$list" >given.bytes
    LC_ALL=C sort sorted | cmp -s - given.bytes || fail "WORDS WERE LOST"
    printf '    %s words, %s ms' "$(wc -l <sorted)" $(((end - begin) / 1000000))
}

# among WORD...: these words in the order of the file "sorted"
among() {
    printf '%s\n' "$@" >chosen
    echo ": $(LC_ALL=C grep -x -F -f chosen sorted | tr '\n' ' ' | sed 's/ $//')"
}

# same WHAT FILE: whether the file "sorted" is this one
same() {
    if cmp -s sorted "$2"; then
        echo ": identical to $1"
    else
        echo ": NOT THE SAME as $1"
        diff sorted "$2" | head -n 10
        failed=1
    fi
}

# found PATTERN LIST [options]: how many words match, and the first of them
found() {
    say match "$@"
    begin=$(now)
    "$kytm" match "$@" >matches || fail "NOTHING FOUND"
    end=$(now)
    count=$(wc -l <matches)
    [ "$("$kytm" match "$@" --count)" = "$count" ] || fail "COUNTED OTHERWISE"
    printf '    %s words, %s ms: %s%s\n' "$count" $(((end - begin) / 1000000)) \
        "$(head -n 6 matches | tr '\n' ' ' | sed 's/ $//')" "$([ "$count" -le 6 ] || echo " ...")"
}

# shuffled LIST: its words in no order, the same each time
shuffled() {
    LC_ALL=C awk '{ print (NR * 7919) % 1000003, $0 }' "$1" | LC_ALL=C sort -s -n | cut -d ' ' -f 2-
}

echo "$("$kytm" languages | sed 1d | wc -l) languages (kytm languages), $("$kytm" codesets | sed 1d | wc -l) code sets (kytm codesets)"

echo
echo "-- German: bytes, letters, letters without case and accents --"
shuffled ngerman >german.txt
germans="Zoo Äpfel Ofen öffnen Öl Apfel offen Affe groß"
sorted german.txt --codeset 0
among $germans
sorted german.txt --language de --codeset 1
among $germans
sorted german.txt --language de --codeset 1 --op exact,ignore-case,ignore-accent
among $germans
sorted german.txt --language sv --codeset 1 --op exact,ignore-case
among $germans

# Each letter ranks as a whole: identity, then upper before lower case, then the accent. So replacing letters by their
# ranks makes the order one of bytes.
letters='A\304a\344BbCcDdEeFfGgHhIiJjKkLlMmNnO\326o\366PpQqRrSsTtU\334u\374VvWwXxYyZz'
ranks='\041-\132'
iconv -f UTF-8 -t ISO-8859-1 german.txt | LC_ALL=C grep -x "[$(printf %b "$letters" | sed 's/\\/\\\\/g')]*" >plain.latin1 || true
iconv -f ISO-8859-1 -t UTF-8 plain.latin1 >plain.txt
LC_ALL=C tr "$letters" "$ranks" <plain.latin1 | LC_ALL=C sort | LC_ALL=C tr "$ranks" "$letters" |
    iconv -f ISO-8859-1 -t UTF-8 >expected
sorted plain.txt --language de --codeset 1
same "tr to ranks, sort of bytes, tr back" expected
found '*strasse' german.txt --language de --op ignore-case,ignore-accent
found '?bel' german.txt --language de --op ignore-case,ignore-accent
found 'MASSE' german.txt --language de --op ignore-case,ignore-accent

echo
echo "-- Spanish: ch and ll are letters of their own in the traditional order, ñ in both --"
shuffled spanish >spanish.txt
spaniards="chico cuna dado luna llave mesa nube ñu ola"
sorted spanish.txt --codeset 0
among $spaniards
sorted spanish.txt --language es-modern --codeset 1
among $spaniards
sorted spanish.txt --language es --codeset 1
among $spaniards

LC_ALL=C grep -x "\([a-z]\|ñ\)*" spanish.txt >plain.txt
sed 's/ch/c\x7f/g; s/ll/l\x7f/g; s/ñ/n\x7f/g' plain.txt | LC_ALL=C sort |
    sed 's/c\x7f/ch/g; s/l\x7f/ll/g; s/n\x7f/ñ/g' >expected
sorted plain.txt --language es --codeset 1
same "ch, ll and ñ written as what follows c, l and n, sort of bytes" expected
found '?ico' spanish.txt --language es
found '?ico' spanish.txt --language es-modern
found 'c*ll?' spanish.txt --language es

echo
echo "-- French: accents --"
shuffled french >french.txt
frenchmen="zone école eau âne ange ça cela été étage côte cote coté côté"
sorted french.txt --codeset 0
among $frenchmen
sorted french.txt --language fr --codeset 1
among $frenchmen
sorted french.txt --language fr --codeset 1 --op exact,ignore-case,ignore-accent
among $frenchmen
found 'cote' french.txt --language fr --op ignore-accent
found 'pêch?' french.txt --language fr
found 'pêch?' french.txt --language fr --op ignore-accent
found eleve french.txt --language fr --op ignore-accent --find

echo
echo "-- Unicode, code set 253 --"
sorted french.txt --language fr --codeset 1
mv sorted expected
echo
sorted french.txt --language fr --codeset 253
same "the order in code set 1" expected
printf '%s\n' Zürich Łódź Αθήνα Київ Москва 東京 москвич Québec Ærø İzmir 서울 42 αθηναίος Oslo >places.txt
sorted places.txt --codeset 253
echo ": $(tr '\n' ' ' <sorted | sed 's/ $//')"
found 'МОСКВ*' places.txt --codeset 253 --op ignore-case
found 'αθην*' places.txt --codeset 253 --op ignore-case,ignore-accent
status=0
say sort KyString places.txt --codeset ISO-8859-1
"$kytm" sort KyString places.txt --codeset ISO-8859-1 >sorted 2>reports || status=$?
head -n 2 reports
echo "    ... $(wc -l <reports) lines are reported, the other $(wc -l <sorted) sorted; exit status $status"
[ $status -eq 1 ] || failed=1
exit $failed
