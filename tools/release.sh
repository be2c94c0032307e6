# What the scripts that pack have in common; they read it by `.` in the top folder of the tree.
# The version is that of CMakeLists.txt, the time that of its entry in CHANGES.md: a package depends
# on nothing but the tree, so whoever packs it gets the same bytes.
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
day=$(sed -n "s/^## \[${version//./\\.}\] - \(....-..-..\)\$/\1/p" CHANGES.md)
if [ -z "$day" ]; then
    echo "CHANGES.md has no entry with a date for version $version" >&2
    exit 1
fi
SOURCE_DATE_EPOCH=$(date -u -d "$day" +%s)
export SOURCE_DATE_EPOCH LC_ALL=C TZ=UTC
umask 022
mkdir -p dist

# pack_zip STAGE NAME [FILE], pack_tar STAGE NAME: the folder STAGE/NAME becomes FILE, or else
# dist/NAME.zip or .tar.gz.
pack_zip() {
    local file=${3:-dist/$2.zip}
    rm -f "$file"
    chmod -R u=rwX,go=rX "$1/$2"
    find "$1/$2" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
    local zip=$PWD/$file
    (cd "$1" && find "$2" -type f | sort | zip -q -X -9 "$zip" -@)
    echo "Packed $file"
}

pack_tar() {
    chmod -R u=rwX,go=rX "$1/$2"
    tar -C "$1" --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner \
        -c "$2" | gzip -n -9 >"dist/$2.tar.gz"
    echo "Packed dist/$2.tar.gz"
}
