# Shell functions shared by the scripts that drive a real `watrix serve`:
# start one on a free loopback port and read its address; stop it again.
# Source it; it sets no options of its own.
#
#   start_server WATRIX DB_URL LOG NAME
#       starts WATRIX serve on 127.0.0.1:0 with DB_URL, its output in LOG;
#       sets server_pid, and url to the address the server prints
#       ("WATRIX serving on http://HOST:PORT/"); exits 2, naming NAME and
#       showing LOG, when the server stops or prints nothing within 10 s.
#   stop_server
#       sends SIGTERM, waits up to 5 s, then SIGKILL. Harmless when no
#       server runs.

server_pid=""
url=""

start_server() {
  local watrix="$1" db="$2" log="$3" name="$4"
  # The log exists before the server's own redirection makes it, so that the
  # first look for the address cannot fail on a missing file.
  : >"$log"
  "$watrix" serve --listen 127.0.0.1:0 --db "$db" >"$log" 2>&1 &
  server_pid=$!
  url=""
  for _ in $(seq 100); do
    url="$(sed -n 's|.*WATRIX serving on \(http://[^ ]*\).*|\1|p' "$log" | head -n 1)"
    [[ -n "$url" ]] && return 0
    if ! kill -0 "$server_pid" 2>/dev/null; then
      echo "$name: watrix serve stopped before it listened:" >&2
      cat "$log" >&2
      exit 2
    fi
    sleep 0.1
  done
  echo "$name: watrix serve printed no address within 10 s:" >&2
  cat "$log" >&2
  exit 2
}

stop_server() {
  if [[ -n "$server_pid" ]] && kill -0 "$server_pid" 2>/dev/null; then
    kill -TERM "$server_pid" 2>/dev/null || true
    for _ in $(seq 50); do
      kill -0 "$server_pid" 2>/dev/null || break
      sleep 0.1
    done
    kill -KILL "$server_pid" 2>/dev/null || true
    wait "$server_pid" 2>/dev/null || true
  fi
  server_pid=""
}
