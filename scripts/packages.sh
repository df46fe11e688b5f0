# Sourced by ./run and ./test: brings what the build needs onto a Debian 12 machine.

buildPackages=(
    g++ cmake ninja-build pkg-config
    libboost1.81-dev libsimdjson-dev libexpected-dev libcli11-dev libzip-dev libqpdf-dev
    libssl-dev libsecret-1-dev
    libpoppler-qt6-dev libtesseract-dev libleptonica-dev libzxing-dev libheif-dev libpugixml-dev
    libsqlite3-dev libcurl4-openssl-dev libseccomp-dev tesseract-ocr-deu tesseract-ocr-fra tesseract-ocr-ita tesseract-ocr-eng
    tesseract-ocr-osd
    qt6-base-dev qt6-charts-dev qt6-svg-dev libqt6opengl6-dev libgl-dev libegl-dev libxkbcommon-dev
    fonts-inter fonts-roboto-unhinted qt6-translations-l10n
)
testPackages=(libgtest-dev libbenchmark-dev poppler-utils libzint-dev dbus gnome-keyring fonts-dejavu-core
    fonts-liberation2)
lintPackages=(clang-tidy clang-format git)
fuzzPackages=(clang libclang-rt-14-dev)

# Installs with apt what is missing of the packages named; silent when nothing is. What apt says goes
# to standard error.
ensurePackages() {
    local missing=()
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing with apt: ${missing[*]}"
    local asRoot=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing and need root: apt-get install ${missing[*]}" >&2
            return 1
        fi
        asRoot=(sudo)
    fi
    export DEBIAN_FRONTEND=noninteractive
    "${asRoot[@]}" apt-get update -q >&2 &&
        "${asRoot[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}" >&2
}

# Configures and builds a preset (targets as further arguments); says what it does.
buildPreset() {
    local preset=$1
    shift
    echo "Building ($preset) …"
    if [ ! -f "build/$preset/build.ninja" ]; then
        cmake --preset "$preset" >/dev/null || return 1
    fi
    cmake --build --preset "$preset" ${1:+--target "$@"} -- --quiet
}
