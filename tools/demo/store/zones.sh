#!/bin/sh
# The history of the European time zones up to 2037 (Debian package tzdata, read by zdump) as CSV for the class Change
# of zones.schema, to standard output.
set -eu
awk '!/^#/ && $3 ~ /^Europe\// { print $3 }' /usr/share/zoneinfo/zone1970.tab | xargs zdump -i -c 1800,2038 |
    LC_ALL=C awk '
    # Days since the first of March of the year 0.
    function days(text,   part, year, month) {
        split(text, part, "-")
        year = part[1]; month = part[2] - 3
        if (month < 0) { month += 12; --year }
        return 365 * year + int(year / 4) - int(year / 100) + int(year / 400) + int((153 * month + 2) / 5) + part[3] - 1
    }
    # Of the hours, minutes and seconds that are there: "hh", "hh:mm", "hh:mm:ss"; in an offset without colons.
    function seconds(text) {
        gsub(/:/, "", text)
        return substr(text, 1, 2) * 3600 + substr(text, 3, 2) * 60 + substr(text, 5, 2)
    }
    function clock(s) { return sprintf("%02d:%02d:%02d", s / 3600, s % 3600 / 60, s % 60) }
    # The change read before, which lasts until the given second of universal time.
    function write(until,   lasted) {
        if (change == "") return
        if (until != "") lasted = int((until - since) / 86400) "." clock((until - since) % 86400)
        print change "," lasted
    }
    BEGIN { print "zone,moment,letters,offset,summer,lasted" }
    /^TZ=/ { write(""); change = ""; zone = $0; gsub(/^TZ=|"/, "", zone); next }
    NF >= 3 && $1 != "-" {
        offset = (substr($3, 1, 1) == "-" ? -1 : 1) * seconds(substr($3, 2))
        universal = days($1) * 86400 + seconds($2) - offset
        write(universal)
        # Letters are left out where they are the offset itself.
        letters = $4 ~ /^[A-Z"]/ ? $4 : $3
        gsub(/"/, "", letters)
        change = zone "," $1 "T" clock(seconds($2)) "," letters "," offset "," ($NF == "1" ? "TRUE" : "FALSE")
        since = universal
    }
    END { write("") }'
