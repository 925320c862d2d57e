#!/bin/sh
# UnicodeData.txt (Debian package unicode-data) as CSV for the class Character of characters.schema, to standard output.
set -eu
LC_ALL=C awk -F ';' '
    function code(digits,   i, value) {
        if (digits == "") return ""
        for (i = 1; i <= length(digits); ++i) value = value * 16 + index("0123456789ABCDEF", substr(digits, i, 1)) - 1
        return value
    }
    BEGIN { print "code,name,category,combining,decimal,numeric,mirrored,upper,lower" }
    {
        parts = split($9, part, "/")
        value = parts == 2 ? sprintf("%.17g", part[1] / part[2]) : $9
        printf "%d,\"%s\",%s,%d,%s,%s,%s,%s,%s\n", code($1), $2, $3, $4, $7, value, $10 == "Y" ? "TRUE" : "FALSE",
            code($13), code($14)
    }' "${1:-/usr/share/unicode/UnicodeData.txt}"
