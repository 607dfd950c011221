# shellcheck shell=bash
# What run-sample and pack share. Sourced.
bindingDirectory=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

# compileBinding DIRECTORY: makes VelmarBaseA.dll and its documentation, VelmarBaseA.xml, in the directory.
compileBinding() {
    local version information
    version=$("$bindingDirectory/../version")
    information=$(mktemp --suffix=.cs)
    printf '[assembly: System.Reflection.AssemblyVersion("%s")]\n' "$version" > "$information"
    mcs -warnaserror -langversion:7 -unsafe -optimize -target:library -doc:"$1/VelmarBaseA.xml" \
        -out:"$1/VelmarBaseA.dll" "$bindingDirectory"/*.cs "$information" || { rm "$information"; return 1; }
    rm "$information"
}
