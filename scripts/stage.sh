# stage WHAT COMMAND... : says what is done, and how long it took. Sourced.
stage() {
  local what=$1 start=$SECONDS
  shift
  echo "== $what"
  "$@"
  echo "-- $what: $((SECONDS - start)) s"
}
