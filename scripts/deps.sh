#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, when they are missing.
set -euo pipefail
# (git: the lint step lists the tracked files; rigctld, cwdaemon, mosquitto and socat are run by
# the tests as the real programs a station uses; hamradio-files brings cty.dat and MASTER.SCP)
pkgs=(git cmake ninja-build g++ ccache qt6-base-dev qt6-serialport-dev libsqlite3-dev sqlite3
      libgtest-dev clang-format cppcheck pkg-config qt6-charts-dev libhamlib-dev libhamlib-utils
      libmosquitto-dev mosquitto cwdaemon hamradio-files socat)
missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo
  $SUDO apt-get update -qq || true
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y "${missing[@]}"
fi
