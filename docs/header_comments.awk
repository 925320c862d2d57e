# How the comments of the headers are laid out, said in doxygen's words: the first one is about the file, and deeper
# indented lines are tables that keep their columns.

function out(line) { print line }

/^[ \t]*\/\/\/($|[^<\/])/ {
    indent = $0
    sub(/\/\/\/.*/, "", indent)
    text = $0
    sub(/^[ \t]*\/\/\//, "", text)
    if (!described) {
        described = 1
        out(indent "/// \\file")
    }
    # A lint note is no documentation.
    sub(/ *NOLINT.*/, "", text)
    if (text ~ /^  +[^ ]/) {
        if (!table) out(indent "///")
        table = 1
        out(indent "///     " text)
    } else {
        if (table && text !~ /^ *$/) out(indent "///")
        if (text !~ /^ *$/) table = 0
        out(indent "///" text)
    }
    next
}

{
    table = 0
    out($0)
}
