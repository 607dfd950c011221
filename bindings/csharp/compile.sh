# shellcheck shell=bash
# What run-sample and pack share. Sourced.
bindingDirectory=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

# The version of the library.
velmarVersion() {
    sed -n 's/^project(velmarBaseA VERSION \([0-9.]*\).*/\1/p' "$bindingDirectory/../../CMakeLists.txt"
}

# compileBinding DIRECTORY: makes VelmarBaseA.dll and its documentation, VelmarBaseA.xml, in the directory.
compileBinding() {
    local version information
    version=$(velmarVersion)
    information=$(mktemp --suffix=.cs)
    printf '[assembly: System.Reflection.AssemblyVersion("%s")]\n' "$version" > "$information"
    mcs -warnaserror -langversion:7 -unsafe -optimize -target:library -doc:"$1/VelmarBaseA.xml" \
        -out:"$1/VelmarBaseA.dll" "$bindingDirectory"/*.cs "$information" || { rm "$information"; return 1; }
    rm "$information"
}
