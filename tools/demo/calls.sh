# What the scripts that show kytm have in common; they read it in.
# shellcheck shell=sh

now() {
    date +%s%N
}

# say WORD...: the call of kytm as it could be typed
say() {
    printf '$ kytm'
    for word in "$@"; do
        case $word in *[!a-zA-Z0-9,.:/_-]* | "") printf " '%s'" "$word" ;; *) printf ' %s' "$word" ;; esac
    done
    echo
}
