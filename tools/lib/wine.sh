# A private Wine: prefix, screen, resident process and, when asked for, sound. Nothing of the user's own Wine, display or
# home folder is touched, and several can run side by side. Use: source common.sh and this; wine_begin NAME; "$WINELOADER" ...

wine_folder=$root/build/wine
# Of a screen that is not the user's own: its size in pixels, and the scaling of the windows in percent.
wine_screen=${KAZ_SCREEN:-1280x800}
wine_scale=${KAZ_SCALE:-100}
export WINELOADER=/usr/lib/wine/wine64 WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
# Neither .NET nor a browser is needed; without winemenubuilder no menu entries appear in the user's desktop.
export WINEDLLOVERRIDES='mscoree=d;mshtml=d;winemenubuilder.exe=d'

# wine_begin NAME [--user-display]: from here on WINEPREFIX, HOME, screen and sound are private, or with --user-display
# only the first two. All of it goes away with the shell.
wine_begin() {
    wine_remove_leftovers
    wine_template
    wine_run=$wine_folder/$1.$$
    rm -rf "$wine_run"
    mkdir -p "$wine_run"
    # In one step: another run that looks for leftovers must not find it half written.
    wine_owner >"$wine_run/owner.new"
    mv "$wine_run/owner.new" "$wine_run/owner"
    # A socket's path may have 107 characters only, so sockets are not kept under the build folder.
    wine_sockets=$(mktemp -d "${TMPDIR:-/tmp}/kaz.XXXXXX")
    printf '%s\n' "$wine_sockets" >"$wine_run/sockets"
    at_exit wine_remove "$wine_run"

    # Hard links: Wine replaces its registry files and never writes into an existing one of the others.
    cp -al "$wine_folder/template" "$wine_run/prefix"
    mkdir -p "$wine_run/home"
    export WINEPREFIX=$wine_run/prefix
    if [[ ${2:-} == --user-display ]]; then
        # The display and the sound are found through the real home folder; windows get the user's own frames.
        timeout 60 "$WINELOADER" reg delete 'HKCU\Software\Wine\Explorer' /v Desktop /f </dev/null >/dev/null 2>&1
    else
        # What is built meanwhile still comes from the user's caches.
        export XDG_CACHE_HOME=${XDG_CACHE_HOME:-$HOME/.cache}
        # Without a server of our own there is no sound, rather than the user's.
        export HOME=$wine_run/home XDG_RUNTIME_DIR=$wine_sockets PULSE_SERVER=unix:$wine_sockets/no-sound
        unset WAYLAND_DISPLAY XAUTHORITY
        wine_set_screen
        wine_start_screen
    fi
    wine_start_resident
}

# Sound on a sink that goes nowhere and can be recorded: parec -d kaz.monitor.
wine_sound() {
    local script=$wine_run/sound.pa socket=$wine_sockets/pulse.sock
    printf '%s\n' 'load-module module-null-sink sink_name=kaz rate=44100 channels=2' \
        "load-module module-native-protocol-unix socket=$socket auth-anonymous=1" 'set-default-sink kaz' >"$script"
    setsid pulseaudio -n -F "$script" --daemonize=no --exit-idle-time=-1 --use-pid-file=no --disallow-exit=1 \
        </dev/null >"$wine_run/sound.log" 2>&1 &
    printf '%s\n' $! >"$wine_run/sound.pid"
    export PULSE_SERVER=unix:$socket
    wait_for 10 pactl info || die "the sound server did not start: $(tail -n 3 "$wine_run/sound.log")"
}

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

# While no process of Wine runs, the registry is a text file; sed replaces it, so the template's stays as it is.
wine_set_screen() {
    local dots
    printf -v dots 'dword:%08x' $((96 * wine_scale / 100))
    sed -i -e 's/^"KAZ"="[0-9]*x[0-9]*"/"KAZ"="'"$wine_screen"'"/' -e '/^"LogPixels"=/d' \
        -e '/^\[Control Panel\\\\Desktop\]/a "LogPixels"='"$dots" "$WINEPREFIX/user.reg"
}

wine_start_screen() {
    local number=$wine_run/display
    : >"$number"
    # Xvfb looks for a free number itself and reports it when it is ready. In a session of its own it does not hear a Ctrl+C,
    # which would take the screen from under a program that is ending.
    setsid Xvfb -displayfd 3 -screen 0 "${wine_screen}x24" -nolisten tcp 3>"$number" </dev/null >"$wine_run/screen.log" 2>&1 &
    printf '%s\n' $! >"$wine_run/screen.pid"
    wait_for 20 test -s "$number" || die "Xvfb did not start: $(tail -n 3 "$wine_run/screen.log")"
    DISPLAY=:$(tr -d '[:space:]' <"$number")
    export DISPLAY
    # As on a desktop, there is a setting; any will do. On a screen without, Wine looks for them again whenever it selects a font,
    # hundreds of times for a window.
    printf 'KAZ.screen: private\n' >"$HOME/.Xdefaults"
}

# Without a process that stays, each program would boot all of Wine anew: seconds instead of milliseconds. This one waits
# for input that never comes and ends by itself when the pipe's only writer, this shell, is gone.
wine_start_resident() {
    mkfifo "$wine_run/pipe"
    exec {wine_pipe}<>"$wine_run/pipe"
    timeout 86400 "$WINELOADER" cmd <"$wine_run/pipe" >/dev/null 2>&1 {wine_pipe}>&- &
    wait_for 60 timeout 60 "$WINELOADER" cmd /c exit || die "Wine did not start"
    # The first program with a window starts the desktop, which would keep that program's output open for ever.
    timeout 60 "$WINELOADER" rundll32 user32.dll,MessageBeep </dev/null >/dev/null 2>&1 || true
}

# The prefix that runs are copied from, made again when Wine or this file changes.
wine_template() {
    mkdir -p "$wine_folder"
    local version template=$wine_folder/template
    version=$({ cat "$root"/tools/lib/wine.{sh,reg}; dpkg-query -W wine64 libwine fonts-wine 2>/dev/null; } | sha256sum)
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

# A process id is used again after a while; together with its start time it is not.
wine_owner() { printf '%s %s\n' $$ "$(wine_started $$)"; }
wine_started() { awk '{ sub(/.*\) /, ""); print $20 }' "/proc/$1/stat" 2>/dev/null || true; }

# What a run left behind that was killed outright.
wine_remove_leftovers() {
    local folder pid started
    for folder in "$wine_folder"/*.*/; do
        [[ -e $folder/owner ]] || continue
        read -r pid started <"$folder/owner" || true
        [[ -n ${started:-} && $(wine_started "$pid") == "$started" ]] || wine_remove "${folder%/}"
    done
}

wine_remove() {
    local folder=$1 name pid sockets=''
    if [[ -d $folder/prefix ]]; then
        WINEPREFIX=$folder/prefix timeout 20 wineserver -k 2>/dev/null || true
    fi
    for name in screen sound; do
        pid=$(cat "$folder/$name.pid" 2>/dev/null) || continue
        # After an unclean end the number may belong to somebody else by now.
        if [[ $(tr '\0' ' ' <"/proc/$pid/cmdline" 2>/dev/null) =~ ^(Xvfb|pulseaudio)\  ]]; then
            kill "$pid" 2>/dev/null || true
        fi
    done
    read -r sockets <"$folder/sockets" || true
    [[ $sockets == */kaz.?????? ]] && rm -rf "$sockets"
    rm -rf "$folder"
}
