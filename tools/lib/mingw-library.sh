# Sourced after common.sh by the tools that build a library for Windows of which there is no package for MinGW-w64.
# The sources come through apt, which checks signature and sums; a source list of our own leaves the system's alone.

# mingw_library NAME VERSION FILE TARGET CMAKE-OPTION...
# Builds Debian's source package NAME as a static library into build/deps, once, and prints the folder it is installed in.
# What was built in the same way stays in the user's cache folder, for the next clone.
# VERSION may leave out the end of Debian's own part, which changes with each security fix; FILE is the library's name.
mingw_library() {
    local name=$1 version=$2 file=$3 target=$4
    shift 4
    local deps=$root/build/deps
    local installed=$deps/$name-$version-$target log=$deps/$name-$target.log
    mkdir -p "$deps"

    exec 9>"$deps/$name.lock"
    flock -w 900 9 || die "another build of $name does not end"
    local key cached
    key=$({ printf '%s\n' "$@"; cat "${BASH_SOURCE[0]}" "$root/cmake/mingw-toolchain.cmake"; "$target-g++" --version || true; } | sha256sum)
    if [[ -e $installed/lib/$file && $(cat "$installed/built-by" 2>/dev/null) == "$key" ]]; then
        say "$installed"
        return
    fi

    work=$(mktemp -d "$deps/$name.XXXXXX")
    at_exit rm -rf "$work"
    exec 3>&1 >"$log" 2>&1
    cached=${XDG_CACHE_HOME:-$HOME/.cache}/kaz/$name-$version-$target-${key:0:16}.tar
    if [[ -e $cached ]] && tar -xf "$cached" -C "$work" && [[ -e $work/installed/lib/$file ]]; then
        rm -rf "$installed"
        mv -T "$work/installed" "$installed"
        say "$installed" >&3
        return
    fi
    mingw_failed() {
        tail -n 20 "$log" >&3
        die "$name $1 (all of it is in $log)"
    }

    fetch_debian_source "$work" "$name" || mingw_failed "could not be fetched"
    dpkg-source --no-check -x "$work/${name}_$version"*.dsc "$work/source" || mingw_failed "could not be unpacked"
    cmake -G Ninja -S "$work/source" -B "$work/build" --toolchain "$root/cmake/mingw-toolchain.cmake" \
        -DKAZ_MINGW_TARGET="$target" -DCMAKE_BUILD_TYPE=None -DCMAKE_C_FLAGS="-O2 -ffunction-sections -fdata-sections -fstack-protector-strong" \
        -DCMAKE_INSTALL_PREFIX="$work/installed" -DCMAKE_INSTALL_LIBDIR=lib -DBUILD_SHARED_LIBS=OFF "$@" ||
        mingw_failed "could not be configured"
    cmake --build "$work/build" --target install && [[ -e $work/installed/lib/$file ]] || mingw_failed "could not be built"
    say "$key" >"$work/installed/built-by"
    mkdir -p "${cached%/*}" && tar -cf "$cached.$$" -C "$work" installed && mv "$cached.$$" "$cached" || true
    rm -rf "$installed"
    mv "$work/installed" "$installed"
    say "$installed" >&3
}

fetch_debian_source() {
    local folder=$1 mirror
    mkdir -p "$folder"/lists/partial "$folder"/archives/partial
    # From the mirror that the system itself uses.
    mirror=$(apt-get indextargets --format '$(REPO_URI) $(RELEASE)' 'Created-By: Packages' |
        awk '$2 ~ /^(bookworm|stable|oldstable)$/ && !found { print $1; found = 1 }')
    echo "deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg]" \
        "${mirror:-http://deb.debian.org/debian} bookworm main" >"$folder/sources.list"
    apt_here() {
        (cd "$folder" && timeout 300 apt-get -q -o Dir::Etc::SourceList="$folder/sources.list" \
            -o Dir::Etc::SourceParts=- -o Dir::State::Lists="$folder/lists" -o Dir::Cache="$folder" \
            -o Acquire::Retries=3 -o APT::Sandbox::User= "$@")
    }
    apt_here update && apt_here source --download-only "$2"
}
