# Pictures of what is on the screen of a private Wine; part of wine.sh.

# One picture of the whole screen.
wine_screenshot() { timeout 20 import -window root "$1"; }

# The visible windows with a title, one a line: id, blank, title.
wine_windows() {
    local id title
    for id in $(timeout 10 xdotool search --onlyvisible --name '..' 2>/dev/null || true); do
        title=$(timeout 10 xdotool getwindowname "$id" 2>/dev/null) || continue
        [[ $title =~ ^(Default IME|.* - Wine desktop)$ ]] || printf '%s %s\n' "$id" "$title"
    done
}

# wine_window_picture ID FILE: the window as a whole, in front of the others.
wine_window_picture() {
    timeout 10 xdotool windowraise "$1" && sleep 0.3 && timeout 20 import -window "$1" "$2"
}

# Test programs ask for a picture by writing a file NAME.want into the folder that KAZ_PICTURES names, with a window's
# title in it or nothing for the whole screen; when NAME.png is complete, NAME.want goes away.
wine_pictures() {
    mkdir -p "$1"
    rm -f "$1"/*.png "$1"/*.want
    wine_take_wanted "$1" </dev/null >/dev/null 2>&1 &
    at_exit kill $!
    export KAZ_PICTURES=Z:${1//\//\\}
}
wine_take_wanted() {
    trap - EXIT INT TERM
    local want title id
    while sleep 0.1; do
        for want in "$1"/*.want; do
            [[ -e $want ]] || continue
            title=$(tr -d '\r\n' <"$want")
            id=$(wine_windows | awk -v title="$title" '{ i = $1; sub(/^[0-9]+ /, ""); if ($0 == title) print i }' |
                head -n 1)
            if [[ -n $id ]]; then
                wine_window_picture "$id" "${want%.want}.png" || true
            else
                wine_screenshot "${want%.want}.png" || true
            fi
            rm -f "$want"
        done
    done
}
