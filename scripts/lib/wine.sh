# Wine prefixes for tests and clients. Source after common.sh.
#
# A new prefix takes Wine six to twelve seconds. One template per checkout is made that way; every other prefix is a copy of it,
# in which the DLLs of Wine's system32 are hard links where the file system allows.

wineFolder=$build/wine
wineTemplate=$wineFolder/template

# Wine needs one page at a fixed address (0x7ffe0000). The kernel puts each process's heap at a random place in a gigabyte
# around it, so about one process in two thousand would not start. Children inherit what is asked for here.
fixedAddresses=$(setarch -R true 2>/dev/null && echo 'setarch -R') || true

# Wine starts a program of its own by its full name, and looks for another with the help of one more process.
windowsFolder='C:\windows'

wine() {
    command $fixedAddresses wine "$@"
}

# The environment of every Wine process. WINEDEBUG may be set by the caller to see more.
useWinePrefix() {
    keepHomeInside
    export WINEPREFIX=$1
    export WINEARCH=win64
    export WINEDEBUG=${WINEDEBUG:--all}
    # No offers to install Mono or Gecko, no menu entries in the user's desktop.
    export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
    # The ANSI code page is 1252 under this locale.
    unset LANGUAGE LC_CTYPE LC_MESSAGES
    export LANG=C.UTF-8 LC_ALL=C.UTF-8
    # The wineserver keeps its socket below TMPDIR and finds it again only there.
    export TMPDIR=$WINEPREFIX/tmp
    # Programs see a display only where one was asked for.
    unset DISPLAY WAYLAND_DISPLAY
}

# Ends every process of the prefix in use; what they wrote to the registry is saved first.
stopWine() {
    [ -d "$WINEPREFIX/drive_c" ] || return 0
    mkdir -p "$TMPDIR"
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
}

# Wine starts with these services and devices in processes of their own, which takes a third of its start. No program here logs
# events, asks for the network's adapters or reads joysticks.
leaveServicesOut() {
    local services='^\[System\\\\CurrentControlSet\\\\Services\\\\\(Eventlog\|NDIS\|nsiproxy\)\]'
    local devices='^\[System\\\\CurrentControlSet\\\\Enum\\\\ROOT\\\\WINE\\\\'
    sed -i "/$services/,/^\$/s/^\"Start\"=.*/\"Start\"=dword:00000004/; /$devices/,/^\$/d" "$wineTemplate/system.reg"
}

makeWineTemplate() {
    local version stamp
    version=$(dpkg-query -W -f '${Version}' libwine 2>/dev/null || true)
    stamp="$version $build unmanaged, few services"
    [ "$(cat "$wineTemplate/made-by" 2>/dev/null)" != "$stamp" ] || return 0
    rm -rf "$wineTemplate"
    (
        useWinePrefix "$wineTemplate"
        mkdir -p "$TMPDIR"
        WINEDEBUG=-all wine wineboot.exe --init >"$wineFolder/template.log" 2>&1 || die "wineboot failed; see $wineFolder/template.log"
        wineserver -w
        # Our displays have no window manager; Wine would wait two seconds for one whenever a window closes.
        printf '\n[Software\\\\Wine\\\\X11 Driver]\n"Managed"="N"\n' >>"$wineTemplate/user.reg"
        leaveServicesOut
        rm -rf "$TMPDIR" "$wineTemplate/wineserver"
    )
    printf '%s\n' "$stamp" >"$wineTemplate/made-by"
}

# Hard links where possible: Wine only reads these files.
copyUnchanging() {
    cp -al "$1" "$2" 2>/dev/null || { rm -rf "${2:?}/$(basename "$1")" && cp -a "$1" "$2"; }
}

copyWineTemplate() {
    local target=$1 entry
    mkdir -p "$target/drive_c/windows"
    for entry in "$wineTemplate"/drive_c/windows/*; do
        case $entry in
            */system32 | */syswow64 | */winsxs) copyUnchanging "$entry" "$target/drive_c/windows/" ;;
            *) cp -a "$entry" "$target/drive_c/windows/" ;;
        esac
    done
    for entry in "$wineTemplate"/drive_c/*; do
        [ "$(basename "$entry")" = windows ] || cp -a "$entry" "$target/drive_c/"
    done
    cp -a "$wineTemplate"/dosdevices "$wineTemplate"/*.reg "$wineTemplate"/.update-timestamp "$target/"
}

# Makes the prefix unless it is there already. A lock keeps programs that start at the same moment from making it twice.
ensureWinePrefix() {
    local prefix=$1
    mkdir -p "$wineFolder" "$prefix/tmp"
    [ -e "$prefix/system.reg" ] && return 0
    (
        flock 9
        makeWineTemplate
        [ -e "$prefix/system.reg" ] || copyWineTemplate "$prefix"
    ) 9>"$wineFolder/lock"
}

# The name by which Windows programs reach a file of the host.
windowsPath() {
    local path
    path=$(realpath -ms -- "$1")
    printf 'Z:%s' "${path//\//\\}"
}

# A virtual display for the processes started from now on; stopDisplay ends it.
startDisplay() {
    local answer
    answer=$(mktemp -p "$build" display.XXXXXX)
    displayFolderIsOurs=$([ -d /tmp/.X11-unix ] && echo no || echo yes)
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$answer" >/dev/null 2>&1 </dev/null &
    displayProcess=$!
    while [ ! -s "$answer" ]; do
        kill -0 "$displayProcess" 2>/dev/null || die 'Xvfb did not start'
        sleep 0.05
    done
    DISPLAY=:$(cat "$answer")
    export DISPLAY
    rm -f "$answer"
}

stopDisplay() {
    [ -n "${displayProcess:-}" ] || return 0
    kill "$displayProcess" 2>/dev/null || true
    wait "$displayProcess" 2>/dev/null || true
    displayProcess=
    [ "$displayFolderIsOurs" = no ] || rmdir /tmp/.X11-unix 2>/dev/null || true
}
