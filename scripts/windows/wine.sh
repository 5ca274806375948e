# How Windows programs of this build are run; sourced, not run. The prefix is one of its own, in the build
# folder of this checkout.
export WINEPREFIX=${KESTOVA_WINE_PREFIX:-$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)/build/windows/wine}
export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml="

# Starts Wine anew: the first program in a prefix decides whether there is a screen, for as long as Wine runs.
# Its prefix is made before two programs do that at once. Windows on a screen lie in one desktop window: an X
# server without a window manager gives the focus to nobody.
start_wine() {
    mkdir -p "$WINEPREFIX"
    wineserver -k || true
    wineserver -p
    wine wineboot -u 2>/dev/null || { echo "Wine does not start in $WINEPREFIX" >&2; return 1; }
    if ! grep -q '^"Desktop"="Kestova"' "$WINEPREFIX/user.reg" 2>/dev/null; then
        wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Kestova /f >/dev/null
        wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Kestova /d 1600x1200 /f >/dev/null
        wineserver -k
        wineserver -p
        wine wineboot 2>/dev/null
    fi
}

stop_wine() { wineserver -k || true; }
