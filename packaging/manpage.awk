# Turns a program's help text into a manual page. The "usage:" line and the lines
# under it make the synopsis, the paragraphs after them the description, a line such as
# "Options:" a section, and a line indented by two with lines indented by eight under it
# a tagged paragraph. Set: page (the page's name), source (program and version),
# summary (the NAME line) and seealso (another page, in section 1).
function esc(s) {
    gsub(/\\/, "\\e", s)
    gsub(/-/, "\\-", s)
    if (s ~ /^[.']/) s = "\\&" s
    return s
}
function synopsis(s,    word) {
    word = s
    sub(/ .*/, "", word)
    print "\\fB" esc(word) "\\fR" esc(substr(s, length(word) + 1))
    print ".br"
}
{ line[++n] = $0 }
END {
    print ".TH " toupper(page) " 1 \"\" \"" source "\" \"User Commands\""
    print ".SH NAME"
    print esc(page) " \\- " esc(summary)
    for (i = 1; i <= n; i++) {
        l = line[i]
        if (l ~ /^usage: /) {
            print ".SH SYNOPSIS"
            synopsis(substr(l, 8))
            while (line[i + 1] ~ /^       [^ ]/) synopsis(substr(line[++i], 8))
            print ".SH DESCRIPTION"
            gap = 0
        } else if (l == "") {
            gap = 1
        } else if (l ~ /^[^ ].*:$/) {
            print ".SH " toupper(substr(l, 1, length(l) - 1))
            gap = 0
        } else if (l ~ /^  [^ ]/ && line[i + 1] ~ /^        [^ ]/) {
            print ".TP"
            print "\\fB" esc(substr(l, 3)) "\\fR"
            while (line[i + 1] ~ /^        [^ ]/) print esc(substr(line[++i], 9))
            gap = 0
        } else {
            if (gap) print ".PP"
            gap = 0
            sub(/^ +/, "", l)
            print esc(l)
        }
    }
    if (seealso != "") {
        print ".SH SEE ALSO"
        print ".BR " seealso " (1)"
    }
}
