find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets DBus LinguistTools PrintSupport Svg)
find_package(QCoro6 REQUIRED COMPONENTS Core)
find_package(Qt6Keychain REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(simdjson REQUIRED)
find_package(GTest REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)

pkg_check_modules(XCB REQUIRED IMPORTED_TARGET
  xcb xcb-shm xcb-randr xcb-composite xcb-xfixes xcb-damage xcb-image xcb-shape xcb-render xcb-xtest xcb-xinput xcb-xkb
  xkbcommon xkbcommon-x11)
pkg_check_modules(XLIB REQUIRED IMPORTED_TARGET x11)
pkg_check_modules(CODECS REQUIRED IMPORTED_TARGET libdeflate spng libjpeg libtiff-4)
pkg_check_modules(HEIF REQUIRED IMPORTED_TARGET libheif)
pkg_check_modules(TESSERACT REQUIRED IMPORTED_TARGET tesseract)
pkg_check_modules(ZXING REQUIRED IMPORTED_TARGET zxing)
pkg_check_modules(ZBAR REQUIRED IMPORTED_TARGET zbar)
pkg_check_modules(PULSE REQUIRED IMPORTED_TARGET libpulse)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-unix-2.0)
# It asks for -pthread, which glibc needs no more and with which no precompiled header is accepted.
set_target_properties(PkgConfig::GIO PROPERTIES INTERFACE_COMPILE_OPTIONS "")
pkg_check_modules(SYSTEMD REQUIRED IMPORTED_TARGET libsystemd)
