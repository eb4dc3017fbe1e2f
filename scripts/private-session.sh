# A session of its own for what must not touch the user's: home, XDG folders, session bus. Sourced.

# private_session FOLDER : points everything below FOLDER and away from the running desktop.
private_session() {
  for folder in home run config data cache tmp; do
    mkdir -p "$1/$folder"
  done
  chmod 700 "$1/run"
  export HOME="$1/home" XDG_RUNTIME_DIR="$1/run" XDG_CONFIG_HOME="$1/config" XDG_DATA_HOME="$1/data"
  export XDG_CACHE_HOME="$1/cache" TMPDIR="$1/tmp"
  unset DBUS_SESSION_BUS_ADDRESS XDG_SESSION_TYPE WAYLAND_DISPLAY XDG_CURRENT_DESKTOP QT_QPA_PLATFORM SESSION_MANAGER
}

# start_bus FOLDER : a session bus whose process is $bus_pid.
start_bus() {
  mkfifo "$1/bus-address"
  dbus-daemon --session --nofork --print-address=3 3>"$1/bus-address" 2>/dev/null &
  bus_pid=$!
  read -r DBUS_SESSION_BUS_ADDRESS <"$1/bus-address"
  export DBUS_SESSION_BUS_ADDRESS
}

# start_display FOLDER SIZE : a virtual display with a window manager; the processes are $display_pid, $manager_pid.
start_display() {
  mkfifo "$1/display-number"
  Xvfb -displayfd 3 -screen 0 "$2x24" -nolisten tcp 3>"$1/display-number" 2>/dev/null &
  display_pid=$!
  read -r number <"$1/display-number"
  export DISPLAY=":$number"
  openbox --sm-disable >/dev/null 2>&1 &
  manager_pid=$!
}
