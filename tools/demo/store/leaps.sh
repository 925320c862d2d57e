#!/bin/sh
# The leap seconds of the time zone database (Debian package tzdata) as CSV for the class Leap of zones.schema, to
# standard output.
set -eu
LC_ALL=C awk '
    BEGIN {
        names = "JanFebMarAprMayJunJulAugSepOctNovDec"
        total = 10     # when leap seconds began, in 1972
        print "moment,day,total"
    }
    $1 == "Leap" {
        day = sprintf("%04d-%02d-%02d", $2, (index(names, $3) + 2) / 3, $4)
        total += $6 == "+" ? 1 : -1
        printf "%sT%s,%s,0.00:00:%02d\n", day, $5, day, total
    }' "${1:-/usr/share/zoneinfo/leapseconds}"
