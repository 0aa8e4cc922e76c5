# The prepared prefix that each run of Wine is copied from; part of wine.sh.

# It is made again when Wine or one of these files changes.
wine_template() {
    mkdir -p "$wine_folder"
    local version template=$wine_folder/template
    version=$({ cat "$root"/tools/lib/wine{-prefix.sh,.reg}; dpkg-query -W wine64 libwine fonts-wine 2>/dev/null; } | sha256sum)
    (
        flock -w 300 9 || die "another run has been making the Wine prefix for five minutes"
        [[ -e $template/complete && $(<"$template/complete") == "$version" ]] || wine_make_template "$version"
    ) 9>"$wine_folder/template.lock"
}

wine_make_template() (
    exec 9>&-
    local making=$wine_folder/template.new
    WINEPREFIX=$making timeout 20 wineserver -k 2>/dev/null || true
    rm -rf "$making" "$wine_folder/template" "$wine_folder/home"
    mkdir -p "$wine_folder/home"
    unset DISPLAY
    export WINEPREFIX=$making HOME=$wine_folder/home
    timeout 120 "$WINELOADER" wineboot --init </dev/null >/dev/null 2>&1 || die "wineboot failed"
    cp /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$making/drive_c/windows/Fonts/"
    timeout 60 "$WINELOADER" regedit /S 'Z:'"${root//\//\\}"'\tools\lib\wine.reg' </dev/null >/dev/null 2>&1
    timeout 60 wineserver -k
    timeout 60 wineserver -w
    # Documents, Desktop and the like are links into the home folder: every run gets folders of its own instead.
    find "$making/drive_c/users" -type l -print0 | xargs -0 -I{} sh -c 'rm "$1" && mkdir "$1"' - {}
    rm -rf "$wine_folder/home"
    printf '%s\n' "$1" >"$making/complete"
    mv "$making" "$wine_folder/template"
)
