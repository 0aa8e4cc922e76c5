# The screen, the sound and the resident process of a private Wine; part of wine.sh.

# Of a screen that is not the user's own: its size in pixels, and the scaling of the windows in percent.
wine_screen=${KAZ_SCREEN:-1280x800}
wine_scale=${KAZ_SCALE:-100}

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
