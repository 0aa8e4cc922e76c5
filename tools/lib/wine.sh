# A private Wine: prefix, screen, resident process and, when asked for, sound. Nothing of the user's own Wine, display or
# home folder is touched, and several can run side by side. Use: source common.sh and this; wine_begin NAME; "$WINELOADER" ...

wine_folder=$root/build/wine
export WINELOADER=/usr/lib/wine/wine64 WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
# Neither .NET nor a browser is needed; without winemenubuilder no menu entries appear in the user's desktop.
export WINEDLLOVERRIDES='mscoree=d;mshtml=d;winemenubuilder.exe=d'

source tools/lib/wine-prefix.sh
source tools/lib/wine-devices.sh
source tools/lib/wine-pictures.sh

# wine_begin NAME [--user-display]: from here on WINEPREFIX, HOME, screen and sound are private, or with --user-display
# only the first two. All of it goes away with the shell.
wine_begin() {
    wine_remove_leftovers
    wine_template
    wine_make_run "$1"
    if [[ ${2:-} == --user-display ]]; then
        # The display and the sound are found through the real home folder; windows get the user's own frames.
        timeout 60 "$WINELOADER" reg delete 'HKCU\Software\Wine\Explorer' /v Desktop /f </dev/null >/dev/null 2>&1
    else
        wine_leave_home
        wine_set_screen
        wine_start_screen
    fi
    wine_start_resident
}

# The folder of this run, with its owner's name on it from the first moment.
wine_make_run() {
    wine_run=$wine_folder/$1.$$
    rm -rf "$wine_run"
    mkdir -p "$wine_run/home"
    # In one step: another run that looks for leftovers must not find it half written.
    wine_owner >"$wine_run/owner.new"
    mv "$wine_run/owner.new" "$wine_run/owner"
    # A socket's path may have 107 characters only, so sockets are not kept under the build folder.
    wine_sockets=$(mktemp -d "${TMPDIR:-/tmp}/kaz.XXXXXX")
    printf '%s\n' "$wine_sockets" >"$wine_run/sockets"
    at_exit wine_remove "$wine_run"

    # Hard links: Wine replaces its registry files and never writes into an existing one of the others.
    cp -al "$wine_folder/template" "$wine_run/prefix"
    export WINEPREFIX=$wine_run/prefix
}

wine_leave_home() {
    # What is built meanwhile still comes from the user's caches.
    export XDG_CACHE_HOME=${XDG_CACHE_HOME:-$HOME/.cache}
    # Without a server of our own there is no sound, rather than the user's.
    export HOME=$wine_run/home XDG_RUNTIME_DIR=$wine_sockets PULSE_SERVER=unix:$wine_sockets/no-sound
    unset WAYLAND_DISPLAY XAUTHORITY
}

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
