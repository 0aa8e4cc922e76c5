# A user in front of the program on a private screen: looks at its windows, clicks and types. Use: source after wine.sh.

# The program's visible windows, the newest last.
windows() { timeout 10 xdotool search --onlyvisible --class kaz2 2>/dev/null | sort -n || true; }
title() { timeout 10 xdotool getwindowname "$1" 2>/dev/null || true; }
named() {
    local id
    for id in $(windows); do
        if [[ $(title "$id") == "$1" ]]; then say "$id"; fi
    done | head -n 1
}
# Prints the newest window that is not among the given ones.
new_window() {
    local id
    id=$(comm -13 <(sort <<<"$1") <(windows | sort) | sort -n | tail -n 1)
    [[ -n $id ]] && say "$id"
}
# The main window is always there: without any window, nothing could be seen.
is_gone() {
    local all
    all=$(windows)
    [[ -n $all ]] && ! grep -qx "$1" <<<"$all"
}

# Left, top, right and bottom on the screen.
place() {
    timeout 10 xwininfo -id "$1" | awk '/Absolute upper-left X/ { x = $NF } /Absolute upper-left Y/ { y = $NF }
        /^  Width/ { w = $NF } /^  Height/ { h = $NF } END { print x, y, x + w, y + h }'
}
# Of several windows, such as one with its menu, the smallest rectangle around them.
take() {
    local file=$1 id
    shift
    local area
    area=$(for id in "$@"; do place "$id"; done | awk 'NR == 1 || $1 < l { l = $1 } NR == 1 || $2 < t { t = $2 }
        $3 > r { r = $3 } $4 > b { b = $4 } END { printf "%dx%d+%d+%d", r - l, b - t, l, t }')
    timeout 30 import -window root -crop "$area" +repage -strip -define png:exclude-chunks=date,time "png:$file"
}
# click ID X Y: so many pixels, at 100 %, from the window's left and top, or with a minus from its right and bottom.
click() {
    local left top right bottom x=$(($2 * wine_scale / 100)) y=$(($3 * wine_scale / 100))
    # What is in front on the screen gets the click.
    timeout 10 xdotool windowraise "$1" || return 0
    sleep 0.3
    read -r left top right bottom < <(place "$1")
    timeout 10 xdotool mousemove $((x < 0 ? right + x : left + x)) $((y < 0 ? bottom + y : top + y)) click 1
    # Away again, or its tooltip comes.
    timeout 10 xdotool mousemove 1 1
    sleep 0.3
}
# type_keys KEY...: names of keys as xdotool knows them, 9*Down for nine times Down, or "tray", a right click on the icon.
type_keys() {
    local key times
    for key in "$@"; do
        if [[ $key == tray ]]; then
            # The program's is the only one, at the right end of the task bar.
            timeout 10 xdotool mousemove --sync $((${wine_screen%x*} - 10)) $((${wine_screen#*x} - 10)) click 3
            # Away again, or the icon's tooltip lies over the menu.
            timeout 10 xdotool mousemove 1 1
            sleep 1
            continue
        fi
        times=1
        if [[ $key == *'*'* ]]; then times=${key%%'*'*} key=${key#*'*'}; fi
        timeout 20 xdotool key --delay 40 --repeat "$times" "$key"
        sleep 0.2
    done
}
# leave ID COMMAND...: with much going on, a key may come before the window that it is for.
leave() {
    local id=$1 try
    shift
    for try in {1..5}; do
        if is_gone "$id"; then return 0; fi
        "$@"
        if wait_for 4 is_gone "$id"; then return 0; fi
    done
    return 1
}
# leave_all BEFORE KEY...: the windows that are not among those of before, one on top of the other.
leave_all() {
    local before=$1 id
    shift
    while id=$(new_window "$before"); do
        leave "$id" type_keys "$@" || return 1
    done
}
# open BEFORE KEY...: types until there is a window that is not among those of before.
open() {
    local before=$1 try
    shift
    for try in {1..3}; do
        type_keys "$@"
        if wait_for 8 new_window "$before"; then return 0; fi
    done
    return 1
}
