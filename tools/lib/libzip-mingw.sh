#!/usr/bin/env bash
# tools/lib/libzip-mingw.sh [TARGET]
#
# Builds libzip as a static library for Windows (TARGET: x86_64-w64-mingw32) from Debian's source package, because there
# is no ready one for MinGW-w64, and prints the folder it is installed in. A folder that is there is used as it is.
# The sources come through apt, which checks signature and sums; a source list of our own leaves the system's alone.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

target=${1:-x86_64-w64-mingw32}
version=1.7.3-1
deps=$root/build/deps
installed=$deps/libzip-$version-$target
mkdir -p "$deps"

exec 9>"$deps/libzip.lock"
flock -w 600 9 || die "another build of libzip does not end"
if [[ -e $installed/lib/libzip.a ]]; then
    say "$installed"
    exit 0
fi

work=$(mktemp -d "$deps/libzip.XXXXXX")
at_exit rm -rf "$work"
log=$deps/libzip-$target.log
exec 3>&1 >"$log" 2>&1
failed() {
    tail -n 20 "$log" >&3
    die "$1 (all of it is in $log)"
}

mkdir -p "$work"/lists/partial "$work"/archives/partial
# From the mirror that the system itself uses.
mirror=$(apt-get indextargets --format '$(REPO_URI) $(RELEASE)' 'Created-By: Packages' |
    awk '$2 ~ /^(bookworm|stable|oldstable)$/ && !found { print $1; found = 1 }')
echo "deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg]" \
    "${mirror:-http://deb.debian.org/debian} bookworm main" >"$work/sources.list"
fetch() {
    (cd "$work" && timeout 300 apt-get -q -o Dir::Etc::SourceList="$work/sources.list" -o Dir::Etc::SourceParts=- \
        -o Dir::State::Lists="$work/lists" -o Dir::Cache="$work" -o Acquire::Retries=3 -o APT::Sandbox::User= "$@")
}
fetch update && fetch source --download-only "libzip=$version" || failed "libzip's sources could not be fetched"
dpkg-source --no-check -x "$work/libzip_$version.dsc" "$work/source" || failed "libzip's sources could not be unpacked"

off=()
for part in BUILD_SHARED_LIBS BUILD_{TOOLS,REGRESS,EXAMPLES,DOC} \
    ENABLE_{BZIP2,LZMA,OPENSSL,GNUTLS,MBEDTLS,COMMONCRYPTO,WINDOWS_CRYPTO}; do
    off+=("-D$part=OFF")
done
cmake -G Ninja -S "$work/source" -B "$work/build" --toolchain "$root/cmake/mingw-toolchain.cmake" \
    -DKAZ_MINGW_TARGET="$target" -DCMAKE_BUILD_TYPE=None -DCMAKE_C_FLAGS="-O2 -ffunction-sections -fdata-sections" \
    -DCMAKE_INSTALL_PREFIX="$work/installed" -DCMAKE_INSTALL_LIBDIR=lib "${off[@]}" ||
    failed "libzip could not be configured"
cmake --build "$work/build" --target install || failed "libzip could not be built"
rm -rf "$installed"
mv "$work/installed" "$installed"
say "$installed" >&3
