# The Debian packages that Kovrel needs, and how they are installed. Sourced by ./run, ./test and .ci/run.

build_packages="
  cmake ninja-build ccache pkg-config clang-19 lld-19
  qt6-base-dev qt6-base-private-dev qt6-svg-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qcoro-qt6-dev qtkeychain-qt6-dev nlohmann-json3-dev libsimdjson-dev libsystemd-dev libglib2.0-dev
  libxcb1-dev libxcb-shm0-dev libxcb-image0-dev libxcb-composite0-dev libxcb-xfixes0-dev libxcb-randr0-dev
  libxcb-damage0-dev libxcb-shape0-dev libxcb-render0-dev libxcb-xtest0-dev libxcb-xinput-dev libxcb-xkb-dev
  libxkbcommon-x11-dev libx11-dev x11proto-dev
  libspng-dev libdeflate-dev zlib1g-dev libturbojpeg0-dev libjpeg62-turbo-dev libtiff-dev libheif-dev libpulse-dev
  libtesseract-dev tesseract-ocr-eng libzxing-dev libzbar-dev
  fonts-inter fonts-noto-color-emoji
  libgtest-dev libgmock-dev qt6-qpa-plugins qt6-image-formats-plugins"
display_packages="xvfb openbox hsetroot xterm xdotool dbus-daemon x11-utils x11-xserver-utils fonts-dejavu-core"
test_packages="
  xserver-xorg-core xserver-xorg-video-dummy x11-utils x11-xkb-utils xclip tint2 xfce4-clipman picom imagemagick
  libclang-rt-19-dev python3-dbus python3-gi libglib2.0-bin gnome-keyring libsecret-tools
  qrencode at-spi2-core
  pulseaudio pulseaudio-utils
  qt6-gtk-platformtheme
  desktop-file-utils appstream groff-base bash-completion fish zsh"
check_packages="clang-format-19 clang-tidy-19 universal-ctags python3"

missing_packages() {
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || printf '%s ' "$package"
  done
}

# install_missing PACKAGE... : says what it installs, as root or through sudo.
install_missing() {
  missing=$(missing_packages "$@")
  [ -n "$missing" ] || return 0
  echo "== Installing from Debian: $missing"
  as_root=
  if [ "$(id -u)" -ne 0 ]; then
    as_root=sudo
    command -v sudo >/dev/null || { echo "Please install these packages as root, then run this again." >&2; return 1; }
  fi
  apt_log=$(mktemp)
  # shellcheck disable=SC2086
  $as_root apt-get update -q >/dev/null &&
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing >"$apt_log" 2>&1 ||
    { cat "$apt_log" >&2; rm -f "$apt_log"; return 1; }
  rm -f "$apt_log"
}

# configure PRESET : once; what cmake says is shown only when it fails. Builds of two at once wait for each other.
configure() {
  mkdir -p build
  exec 8>build/.lock
  flock 8
  [ -f "build/$1/build.ninja" ] && return 0
  cmake_log=$(mktemp)
  cmake --preset "$1" >"$cmake_log" 2>&1 || { cat "$cmake_log" >&2; rm -f "$cmake_log"; return 1; }
  rm -f "$cmake_log"
}
