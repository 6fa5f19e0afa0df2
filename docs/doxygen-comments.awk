# Doxygen input filter for our headers. They are commented in plain "//" lines, the comment above
# the declaration it describes (see STYLE.md); Doxygen takes only "///" as documentation. This
# turns
#   - a whole-line "// text" into "/// text",
#   - a "// text" after a declaration ("int m_x = 0; // what it is") into "///< text",
#   - a separator "// --- title ---" into a member group of that title, closed at the next
#     separator, access label or end of class,
# so that the reference reads the very comments the headers carry.
function close_group() {
    if (in_group) {
        print indent_of_group "/// @}"
        in_group = 0
    }
}
{
    line = $0
    if (match(line, /^[ \t]*\/\/ --- .* ---[ \t]*$/)) {
        close_group()
        indent_of_group = substr(line, 1, index(line, "/") - 1)
        title = line
        sub(/^[ \t]*\/\/ --- /, "", title)
        sub(/ ---[ \t]*$/, "", title)
        print indent_of_group "/// @name " toupper(substr(title, 1, 1)) substr(title, 2)
        print indent_of_group "/// @{"
        in_group = 1
        next
    }
    if (line ~ /^[ \t]*(public|protected|private)[ \t]*(Q_SLOTS)?[ \t]*:/ || line ~ /^[ \t]*Q_SIGNALS[ \t]*:/ || line ~ /^};/ || line ~ /^} \/\/ namespace/) {
        close_group()
        print line
        next
    }
    if (line ~ /^[ \t]*\/\/[^\/!]/ || line ~ /^[ \t]*\/\/$/) {
        sub(/\/\//, "///", line)
        print line
        next
    }
    if (line !~ /^[ \t]*#/ && match(line, /[;,{][ \t]*\/\/ /)) {
        head = substr(line, 1, RSTART)
        rest = substr(line, RSTART + 1)
        sub(/^[ \t]*\/\/ /, "", rest)
        print head " ///< " rest
        next
    }
    print line
}
END { close_group() }
