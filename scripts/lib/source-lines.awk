# One-line entries ("deb [options] uri suite component...") of the wanted addresses, turned into deb-src entries.
BEGIN { count = split(places, wanted, "\n") }
$1 == "deb" {
    line = $0
    sub(/^[ \t]*deb[ \t]+/, "", line)
    uri = line
    sub(/^\[[^]]*\][ \t]*/, "", uri)
    sub(/[ \t].*/, "", uri)
    sub(/\/+$/, "", uri)
    for (i = 1; i <= count; i++) if (uri == wanted[i]) { print "deb-src " line; next }
}
