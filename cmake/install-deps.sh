#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the tools need (and any named
# as arguments), when missing.
set -euo pipefail
packages=(cmake ninja-build g++ pkg-config qt6-base-dev qtbase5-dev libgl-dev
          libgtest-dev libgmock-dev fonts-dejavu-core nlohmann-json3-dev libbenchmark-dev
          libavformat-dev libavcodec-dev libavutil-dev libuchardet-dev python3 ffmpeg
          libtesseract-dev tesseract-ocr-eng tesseract-ocr-fra wamerican wfrench "$@")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
$sudo apt-get update
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${missing[@]}"
