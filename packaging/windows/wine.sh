# A Windows of one's own under Wine, with a display: start_windows FOLDER, which has to be empty or missing. Sourced.

windows_processes=()

# Ends what start_windows began.
stop_windows() {
    wineserver -k 2>/dev/null || true
    ((${#windows_processes[@]} == 0)) || kill "${windows_processes[@]}" 2>/dev/null || true
    windows_processes=()
}

start_windows() {
    local folder=$1
    mkdir -p "$folder"
    # Names of files beyond ASCII reach Wine only in such a locale.
    export LC_ALL=C.UTF-8
    export WINEPREFIX=$folder/prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="
    exec 3>"$folder/display"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 >/dev/null 2>&1 &
    windows_processes+=($!)
    exec 3>&-
    for _ in {1..100}; do
        [[ -s $folder/display ]] && break
        sleep 0.1
    done
    DISPLAY=:$(<"$folder/display")
    export DISPLAY
    openbox >/dev/null 2>&1 &
    windows_processes+=($!)
    # The services stay between two programs, instead of going while the next one asks for them.
    mkdir -p "$WINEPREFIX"
    wineserver -p
    # The first program of any kind makes the prefix and waits for it. wineboot itself would start its services twice,
    # and which of the two then answers a program's request is luck.
    wine cmd /c exit >/dev/null 2>&1
    # Dates and times as Linux writes them in the C locale, so that both systems' reports can be compared; and a font
    # that this machine has for the ones that a real Windows brings.
    cat >"$folder/person.reg" <<'REG'
Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\Control Panel\International]
"sTimeFormat"="HH:mm:ss"
"sShortTime"="HH:mm:ss"
"sShortDate"="d MMM yyyy"

[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]
"Segoe UI"="DejaVu Sans"
"MS Shell Dlg"="DejaVu Sans"
"MS Shell Dlg 2"="DejaVu Sans"
"Tahoma"="DejaVu Sans"
"Arial"="DejaVu Sans"
REG
    wine regedit /S "Z:${folder//\//\\}\\person.reg" 2>/dev/null
}
