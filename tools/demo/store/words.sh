#!/bin/sh
# A word list (Debian package wngerman unless one is given) as CSV for the class Word of words.schema, to standard
# output. The length is in characters.
set -eu
LC_ALL=C awk '
    BEGIN { print "text,folded,length" }
    {
        length_in_bytes = length($0)
        continued = gsub(/[\200-\277]/, "&")
        gsub(/"/, "\"\"")
        printf "\"%s\",\"%s\",%d\n", $0, $0, length_in_bytes - continued
    }' "${1:-/usr/share/dict/ngerman}"
