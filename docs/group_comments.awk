# A filter for the reference pages, which puts the headers' habits into doxygen's terms and leaves line numbers alone:
# - A comment stands for all declarations below it up to the next blank line or comment: each gets a copy.
# - What every class has is described here, once.
# - A `//` comment with blank lines around it begins a section of its class: its first sentence is the heading.
# - A `///` comment with a blank line behind it, outside of classes, speaks of the whole header.

# The comment of a declaration that means the same in every class; empty for all others.
function usual(code, name, rest) {
    if (code ~ /^ *(virtual |constexpr )*~/) return "Destroys the object."
    if (code ~ /operator==\(.*= default;/) return "Whether all fields are equal."
    if (code ~ /operator!=\(/) return "The opposite of `==`."
    if (code ~ /operator=\(/) return "Assigns the other object's value."
    if (code ~ /^ *static unsigned int TypeId\(\)/)
        return "The class number under which the class's objects are stored."
    if (code ~ / unsigned int DynTypeId\(\) const/) return "The class number under which this object is stored."
    if (code ~ / void DBWrite\(cls_WriteVisitor const & writer\) const/) return "Stores the object through `writer`."
    if (code ~ /^ *static void InitializeMetadata\(/)
        return "Describes the class to the registrar of persistent classes; the start of the library calls it."
    if (code ~ /^ *explicit [A-Za-z0-9_]+\(cls_ReadVisitor const & reader\)/) return "Reads what DBWrite has stored."
    name = code
    sub(/^ *(explicit |constexpr )*/, "", name)
    rest = name
    sub(/\(.*/, "", name)
    rest = substr(rest, length(name) + 2)
    if (index(rest, name " const &") == 1) return "A copy."
    if (index(rest, name " &&") == 1) return "Takes over the other object's value."
    return ""
}

# The heading and the text of a section, and the end of the one before it.
function section(lines, text, heading) {
    text = lines
    gsub(/\n? *\/\/ /, " ", text)
    gsub(/\n/, "", text)
    heading = text
    sub(/\. .*/, "", heading)
    text = substr(text, length(heading) + 2)
    sub(/\.$/, "", heading)
    gsub(/[^\n]/, "", lines)
    lines = endOfSection() "/** @name" heading "\n" text " */ /**@{*/" substr(lines, 2)
    isInSection = 1
    return lines
}

function endOfSection() {
    if (!isInSection) return ""
    isInSection = 0
    return "/**@}*/ "
}

NR == 1 {
    header = FILENAME
    sub(/.*\//, "", header)
}

/^ *\/\/\// {
    if (pending == "") comment = ""
    text = $0
    sub(/^ *\/\/\/ ?/, "", text)
    comment = comment (comment == "" ? "" : " ") text
    pending = pending $0 "\n"
    groupDepth = depth
    next
}

/^ *\/\/ / && depth > 0 && (isBehindBlank || plain != "") {
    plain = plain $0 "\n"
    isBehindBlank = 0
    next
}

{
    code = $0
    sub(/ *\/\/.*$/, "", code)
    isBlank = $0 ~ /^ *$/
    isBehindBlank = isBlank || code ~ /^ *(public|private|protected):/

    if (plain != "") {
        printf "%s", isBlank ? section(plain) : plain
        plain = ""
    }
    if (isBlank && depth == 0) {
        if (pending == "" && !isFileNamed) pending = "/** @file " header " */"
        sub(/^\/\/\/ /, "/// @file " header " ", pending)
        isFileNamed = 1
    }

    # Said elsewhere: template members that are defined, specialised or instantiated, and what mem_AllocationBase has.
    startDepth = depth
    if (!isHidden && (code ~ /^(extern )?template .*>::|^extern template / || code ~ / operator (new|delete)/)) {
        isHidden = 1
        hiddenDepth = depth
    }
    depth += gsub(/[{(]/, "&", code) - gsub(/[})]/, "&", code)
    if (isBlank || isBehindBlank || code ~ /^#/ || depth < groupDepth) comment = ""
    if (code ~ /^ *(public|private|protected):/ || code ~ /^};/) pending = endOfSection() pending

    # A declaration begins where the one before it has ended.
    copy = ""
    if (pending == "" && $0 !~ /\/\/\/</) {
        copy = usual(code)
        if (copy == "" && isComplete && startDepth == groupDepth) copy = comment
        if (copy != "") copy = "/** " copy " */ "
    }
    isComplete = depth == groupDepth && code ~ /[;}]$/

    if (isHidden) {
        gsub(/[^\n]/, "", pending)
        printf "%s\n", pending
        isHidden = depth > hiddenDepth || code !~ /[;}]$/
    } else {
        printf "%s%s%s\n", pending, code ~ /= delete;/ ? "" : copy, $0
    }
    pending = ""
}
