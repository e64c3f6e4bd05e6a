# A filter for the reference: a comment of the headers stands for all declarations below it up to the next blank line or
# comment, and is given to each of them.
function indented(text) { match(text, /^ */); return substr(text, 1, RLENGTH) }
/^ *\/\/\// {
    if (!inComment)
        comment = ""
    comment = comment $0 "\n"
    inComment = 1
    print
    next
}
/^[ ]*$/ || /^ *(public|private|protected):/ || /^#/ || /^ *};?/ { comment = "" }
{
    # A declaration begins where the one before it has ended.
    if (!inComment && comment != "" && isComplete && $0 !~ /\/\/\/</ && $0 !~ /^ *\/\//)
        printf "%s", comment
    inComment = 0
    for (i = 1; i <= length($0); ++i) {
        c = substr($0, i, 1)
        depth += (c == "{" || c == "(") - (c == "}" || c == ")")
    }
    code = $0
    sub(/ *\/\/.*$/, "", code)
    isComplete = code ~ /[;}]$/ && indented($0) == indented(comment)
    print
}
