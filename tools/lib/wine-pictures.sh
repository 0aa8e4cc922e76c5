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
