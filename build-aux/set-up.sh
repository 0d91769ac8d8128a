#!/usr/bin/env bash
# set-up.sh PURPOSE...: installs the Debian packages that the given purposes
# need and this machine lacks. Purposes: run test bench format lint fuzz
# sanitize-core pictures all. Where everything is there it asks nobody and ends
# at once. On a system without Debian's packages it says what is needed, and
# fails only if the tools themselves are missing.
set -euo pipefail

packages_for() {
    case $1 in
    # The compiler, the toolkit, and what the window needs of the desktop: the
    # letters of Arial, Wayland's platform, the desktop's handlers of addresses.
    run) echo g++ make cmake ninja-build ccache \
        qt6-base-dev libqt6opengl6-dev qt6-webengine-dev libgl1-mesa-dev libegl1-mesa-dev libxcb1-dev libcups2-dev \
        qt6-wayland fontconfig fonts-liberation xdg-utils ;;
    # The second line is for looking at a real window where there is no screen,
    # the third drives the interactive pages in a real browser.
    test) echo libgtest-dev git \
        xvfb xauth xdotool openbox picom x11-utils imagemagick \
        chromium chromium-driver python3-selenium ;;
    bench) echo libfftw3-dev ;;
    format) echo clang-format git ;;
    lint) echo clang-tidy git ;;
    fuzz | sanitize-core) echo clang-14 libclang-rt-14-dev ;;
    pictures) echo imagemagick ;;
    *) echo "set-up: no such purpose: $1" >&2; return 1 ;;
    esac
}

tools_for() {
    case $1 in
    run) echo c++ cmake ninja fc-match ;;
    format) echo clang-format git ;;
    lint) echo clang-tidy git ;;
    fuzz | sanitize-core) echo clang++-14 ;;
    pictures) echo convert ;;
    *) ;;
    esac
}

installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

purposes=("$@")
if [ $# -eq 0 ] || [ "$1" = all ]; then
    purposes=(run test bench format lint fuzz sanitize-core pictures)
fi

needed=()
tools=()
for purpose in "${purposes[@]}"; do
    names=$(packages_for "$purpose")
    read -ra words <<<"$names"
    needed+=("${words[@]}")
    read -ra words <<<"$(tools_for "$purpose")"
    tools+=("${words[@]}")
done

missing=()
if command -v dpkg-query >/dev/null; then
    for package in "${needed[@]}"; do
        installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || exit 0
else
    missing=("${needed[@]}")
fi

# Nothing can be installed here: say what is needed, and go on with what is there.
go_on_without() {
    echo "set-up: $1"
    echo "set-up: needed, by the names of Debian 12: ${missing[*]}"
    local lacking=()
    for tool in "${tools[@]}"; do
        command -v "$tool" >/dev/null || lacking+=("$tool")
    done
    if [ ${#lacking[@]} -gt 0 ]; then
        echo "set-up: not found on this machine: ${lacking[*]}" >&2
        exit 1
    fi
    echo "set-up: the tools are there, going on"
    exit 0
}

command -v apt-get >/dev/null || go_on_without "this system has no apt-get"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || go_on_without "installing needs root or sudo"
    as_root=(sudo)
fi

echo "set-up: installing ${missing[*]}"
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600 -qq)
{ "${apt[@]}" update &&
    "${apt[@]}" install -y --no-install-recommends "${missing[@]}" </dev/null; } ||
    go_on_without "the packages could not be installed"
