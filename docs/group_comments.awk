# A filter for the reference pages. The headers' comments stand for all declarations below them up to the next blank line
# or comment: this gives each declaration its own copy. What every class has is described here, once. Line numbers stay.

# The comment of a declaration that means the same in every class; empty for all others.
function usual(code, name, rest) {
    if (code ~ /^ *(virtual |constexpr )*~/) return "Destroys the object."
    if (code ~ /operator==\(.*= default;/) return "Whether all fields are equal."
    if (code ~ /operator=\(/) return "Assigns; the other object's value is taken over."
    if (code ~ /^ *static unsigned int TypeId\(\)/) return "The class number under which objects of this class are stored."
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

/^ *\/\/\// {
    if (pending == "") comment = ""
    text = $0
    sub(/^ *\/\/\/ ?/, "", text)
    sub(/^- /, "\\li ", text)
    comment = comment (comment == "" ? "" : " ") text
    pending = pending $0 "\n"
    groupDepth = depth
    next
}

{
    code = $0
    sub(/ *\/\/.*$/, "", code)

    # Definitions of template members, and specialisations of them, are declared elsewhere.
    if (depth == 0 && code ~ /^template .*>::/) isHidden = 1

    startDepth = depth
    depth += gsub(/[{(]/, "&", code) - gsub(/[})]/, "&", code)
    if (code ~ /^ *$/ || code ~ /^ *(public|private|protected):/ || code ~ /^#/ || depth < groupDepth) comment = ""

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
        isHidden = depth > 0 || code !~ /[;}]$/
    } else {
        printf "%s%s%s\n", pending, code ~ /= delete;/ ? "" : copy, $0
    }
    pending = ""
}
