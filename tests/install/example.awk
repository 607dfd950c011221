# awk -v section=TITLE -f example.awk DOCUMENT
# Takes the examples out of a Markdown document, into the current directory: each fenced block that is marked by a
# language and a file name into that file; those of the section that are marked by sh into commands, those marked by
# text into expected.
/^```/ {
    target = ""
    if (!inside && NF == 2) target = $2
    else if (!inside && current && $0 == "```sh") target = "commands"
    else if (!inside && current && $0 == "```text") target = "expected"
    inside = !inside
    next
}
inside { if (target != "") print > target; next }
/^## / { current = substr($0, 4) == section }
