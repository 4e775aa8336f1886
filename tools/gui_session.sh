#!/usr/bin/env bash
# A CQ WW session at the real window, driven from the keyboard the way a contester works: the
# contest from the menu (F10), the CQ zone in the input box, the band by the arrow keys, 100
# QSOs typed at a fast typist's speed (calls, Enter, exchange, Enter), dupes, a band change, the
# F-keys of the keyer, then the report window (Alt+О) and its four files, and the exit (Alt+Х).
# Screenshots of the key moments go into OUT/shots; the run ends with a short check of what the
# session left in the log and in the report folder.
#   tools/gui_session.sh [OUT]          (default /tmp/hfcontest-session; build/hfcontest built)
#   HFCONTEST_BIN=build-asan/hfcontest tools/gui_session.sh   (the same under ASan and UBSan)
# Needs: xvfb, xdotool, imagemagick, sqlite3 (apt-get install -y xvfb xdotool imagemagick sqlite3).
set -eu
cd "$(dirname "$0")/.."
app_bin=${HFCONTEST_BIN:-build/hfcontest}
out=${1:-/tmp/hfcontest-session}
for tool in Xvfb xdotool import sqlite3; do
  command -v "$tool" >/dev/null || { echo "missing $tool" >&2; exit 2; }
done
[ -x "$app_bin" ] || { echo "build $app_bin first (cmake --build build --target hfcontest)" >&2; exit 2; }
rm -rf "$out"
mkdir -p "$out/shots" "$out/data" "$out/config" "$out/reports"

disp=:$((70 + RANDOM % 20))
Xvfb "$disp" -screen 0 1400x900x24 >/dev/null 2>&1 &
xpid=$!
app=""
cleanup() {
  [ -n "$app" ] && kill "$app" 2>/dev/null || true
  kill "$xpid" 2>/dev/null || true
}
trap cleanup EXIT
export DISPLAY=$disp
sleep 1

# No keyer on this machine: a port that exists but is no serial line, so the keyer's messages
# fail the way they fail for an operator without an interface.
# From the output folder: the report window starts in the current folder. With a sanitizer build
# (HFCONTEST_BIN=build-asan/hfcontest) the one allocation libdbus keeps to the end is not ours.
app_bin=$(realpath "$app_bin")
echo "leak:libdbus-1.so" >"$out/lsan.supp"
(cd "$out" && XDG_CONFIG_HOME="$out/config" HFCONTEST_PORTS=/dev/null \
  LSAN_OPTIONS="suppressions=$out/lsan.supp" \
  exec "$app_bin" --data-dir "$out/data" >"$out/app.log" 2>&1) &
app=$!
sleep 3
main=$(xdotool search --onlyvisible --pid "$app" | head -1)
[ -n "$main" ] || { echo "the window did not appear" >&2; exit 1; }
# No window manager on the virtual screen: give the window the keyboard.
xdotool windowfocus --sync "$main"

shot_no=0
shot() { # NAME: a screenshot of the whole screen
  shot_no=$((shot_no + 1))
  sleep 0.4
  import -window root "$out/shots/$(printf %02d $shot_no)-$1.png"
}
key() { xdotool key --delay 60 "$@"; sleep 0.15; }
typ() { xdotool type --delay 20 "$1"; }
log() { echo "session: $*"; }
sql() { sqlite3 "$out/data/dbcontest.sqlite" "$1"; }

shot start

# --- the contest: F10, down the list to "CQ WW", Enter; the CQ zone in the input box ---------
key F10
key Down Down Down Down Down Down Down Down Down Down
shot contest-menu
key Return
sleep 1
shot cq-zone-input
typ 16
key Return
sleep 0.5
shot contest-chosen

# --- 7 MHz by the arrows from the band row, Enter: the focus goes to the call box ----------
key Right Right Return
shot band-7

# --- the QSOs -------------------------------------------------------------------------------
prefixes=(DL F OK SP YO I G HA LZ S5 9A SM OH ES YL LY UR EW OE HB9 PA ON EA CT EI GM OZ LA
  UA RA RV UA9 W K VE JA VK ZS PY LU 4X TA SV ER)
calls=()
for i in $(seq 0 91); do
  p=${prefixes[$((i % ${#prefixes[@]}))]}
  l1=$(printf "\\x$(printf %x $((65 + (i * 7) % 26)))")
  l2=$(printf "\\x$(printf %x $((65 + (i * 11 + 3) % 26)))")
  calls+=("${p}$((1 + i % 9))${l1}${l2}")
done
qso=0
log_qso() { # CALL [EXCHANGE]: the call, Enter, the exchange (or the pre-filled one), Enter
  typ "$1"
  key Return
  [ -n "${2:-}" ] && { key BackSpace BackSpace BackSpace; typ "$2"; }
  key Return
  qso=$((qso + 1))
}

for i in $(seq 0 29); do
  log_qso "${calls[$i]}"
  [ $qso -eq 1 ] && shot first-qso
  if [ $qso -eq 10 ]; then
    key F2 # CQ on the keyer
    sleep 1
    shot f2-keyer
    key Return # the keyer's "Порт занят" box takes the Enter
    shot after-keyer
  fi
done
# dupes: the same stations again on 7 MHz
for i in 3 7 12; do
  typ "${calls[$i]}"
  key Return
  [ "$i" -eq 3 ] && shot dupe-shown
  key Return
  qso=$((qso + 1))
done
shot after-dupes

# 14 MHz: Up to the band row, Right, Enter
key Up
key Right Return
shot band-14
for i in $(seq 30 61); do
  log_qso "${calls[$i]}"
  [ $qso -eq 50 ] && shot qso-50
done
# a station from the first band again: a new QSO here, not a dupe
log_qso "${calls[0]}"
log_qso "${calls[1]}" 14

# 21 MHz
key Up
key Right Return
for i in $(seq 62 91); do
  [ $qso -ge 100 ] && break
  log_qso "${calls[$i]}"
done
while [ $qso -lt 100 ]; do log_qso "${calls[$((qso % 30))]}"; done
shot qso-100

# --- the report window: Alt+О; own call, folder, the four buttons by Tab / Shift+Tab + Enter --
key alt+Cyrillic_o
sleep 1.5
report=$(xdotool search --onlyvisible --name '^Отчет$' | head -1 || true)
log "report window: ${report:-not found}; keyboard in: $(xdotool getwindowfocus)"
shot report-window
# The keyboard starts in the first station box (the contest title); the own call is the next,
# then group, name, address, town, country, dates and the folder.
key Tab
typ UA3ABC
key Tab Tab Tab Tab Tab Tab Tab
key ctrl+a
typ "$out/reports"
shot report-folder
key Tab Return # Cabrillo
sleep 0.5
[ -f "$out/reports/UA3ABC" ] && cp "$out/reports/UA3ABC" "$out/reports/UA3ABC.cabrillo"
key Tab Return # ADIF: the same file name, written over the Cabrillo file
key Tab Return # .LOG
key Tab Return # .SUM
shot report-written
# Past Выход and the seven Cabrillo 3.0 categories: the two standard exports.
key Tab Tab Tab Tab Tab Tab Tab Tab Tab Return # Cabrillo 3.0
key Tab Return                                 # ADIF 3.1
shot standard-written
# Back over the categories to Выход.
key shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab
key Return # Выход
sleep 1
shot report-closed
# The keyboard is back in the call box of the main window.
typ ok1rr
shot keyboard-back
for _ in 1 2 3 4 5; do xdotool key BackSpace; done

# --- the exit: Alt+Х ------------------------------------------------------------------------
key alt+Cyrillic_ha
sleep 1
exited=yes
kill -0 "$app" 2>/dev/null && exited=no

# --- what the session left behind -----------------------------------------------------------
fail=0
check() { # CONDITION-TEXT RESULT
  if [ "$2" = ok ]; then log "ok    $1"; else log "FAIL  $1"; fail=1; fi
}
rows=$(sql "SELECT count(*) FROM tbllog")
dupes=$(sql "SELECT count(*) FROM tbllog WHERE ps1 = 'DUPE'")
bands=$(sql "SELECT bband || ':' || count(*) FROM tbllog GROUP BY bband ORDER BY bband+0" |
  tr '\n' ' ')
log "log: $rows rows, $dupes dupes, by band $bands"
[ "$rows" -eq 100 ] && r=ok || r=no; check "100 QSOs in the log" $r
[ "$dupes" -eq 3 ] && r=ok || r=no; check "3 dupes marked" $r
[ "$(sql "SELECT ccall FROM tbltit")" = UA3ABC ] && r=ok || r=no; check "own call kept" $r
for f in UA3ABC.cabrillo UA3ABC UA3ABC.LOG UA3ABC.SUM UA3ABC.log UA3ABC.adi; do
  [ -s "$out/reports/$f" ] && r=ok || r=no; check "report file $f" $r
done
grep -q '^START-OF-LOG' "$out/reports/UA3ABC.cabrillo" 2>/dev/null && r=ok || r=no
check "Cabrillo file starts as one" $r
[ "$(grep -ci '<eor>' "$out/reports/UA3ABC" 2>/dev/null || echo 0)" -eq 100 ] && r=ok || r=no
check "ADIF file holds 100 records" $r
grep -q '^START-OF-LOG: 3.0' "$out/reports/UA3ABC.log" 2>/dev/null && r=ok || r=no
check "Cabrillo 3.0 file" $r
[ "$(grep -ci '<eor>' "$out/reports/UA3ABC.adi" 2>/dev/null || echo 0)" -eq 100 ] && r=ok || r=no
check "ADIF 3.1 file holds 100 records" $r
[ $exited = yes ] && r=ok || r=no; check "Alt+Х closed the program" $r
grep -q "Sanitizer\|runtime error" "$out/app.log" && r=no || r=ok
check "no sanitizer report (see app.log)" $r
log "screenshots in $out/shots"
exit $fail
