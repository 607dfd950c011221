# prefix.sh BUILD PREFIX
# Installs the build tree, and moves what has been installed: the packages for hosts may not depend on where it was.
set -eu
rm -rf "$2" "$2.first"
cmake --install "$1" --prefix "$2.first"
mv "$2.first" "$2"
