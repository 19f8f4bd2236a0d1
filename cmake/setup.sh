# What the scripts at the root share: installing what is missing, and building quietly.
# To be sourced, with `here` set to the root.

# require_packages TOOL:PACKAGE ...: installs the packages whose command or file is not there.
require_packages() {
    local missing=() pair what
    for pair in "$@"; do
        what=${pair%%:*}
        if [[ $what == /* ]] && [ -e "$what" ]; then continue; fi
        if [[ $what != /* ]] && command -v "$what" >/dev/null; then continue; fi
        missing+=("${pair##*:}")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=()
    [ "$(id -u)" = 0 ] || as_root=(sudo -n)
    if ! command -v apt-get >/dev/null || { [ "$(id -u)" != 0 ] && ! sudo -n true 2>/dev/null; }; then
        echo "Please install: ${missing[*]}" >&2
        exit 1
    fi
    echo "Installing, once: ${missing[*]}" >&2
    "${as_root[@]}" apt-get update -qq >&2
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" \
        >/dev/null
}

# build PRESET OPTION TARGET: configures when needed and builds; what it prints is shown only when it fails.
build() {
    local folder=$here/build/$1 log
    log=$(mktemp)
    if ! { (cd "$here" && cmake --preset "$1" "$2") && cmake --build "$folder" --target "$3"; } >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        exit 1
    fi
    rm -f "$log"
}

# A locale with a decimal comma for the tests, in the build folder alone.
provide_locale() {
    export LOCPATH=$here/build/locales
    [ -d "$LOCPATH/de_DE.UTF-8" ] || { mkdir -p "$LOCPATH" && localedef -i de_DE -f UTF-8 "$LOCPATH/de_DE.UTF-8"; }
}
