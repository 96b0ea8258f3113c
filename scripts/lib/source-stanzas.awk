# Stanzas ("Types: deb ... URIs: ...") with one of the wanted addresses, turned into deb-src stanzas.
BEGIN { RS = ""; FS = "\n"; count = split(places, wanted, "\n") }
{
    stanza = ""; binary = 0; found = 0; in_types = 0
    for (f = 1; f <= NF; f++) {
        if ($f ~ /^#/) continue
        if ($f ~ /^[ \t]/ && in_types) continue
        in_types = 0
        if (tolower($f) ~ /^types:/) {
            binary = ($f " ") ~ /[: \t]deb[ \t]/
            in_types = 1
            stanza = stanza "Types: deb-src\n"
            continue
        }
        n = split($f, words, /[ \t]+/)
        for (w = 1; w <= n; w++) {
            sub(/\/+$/, "", words[w])
            for (i = 1; i <= count; i++) if (words[w] == wanted[i]) found = 1
        }
        stanza = stanza $f "\n"
    }
    if (binary && found) print stanza
}
