#!/usr/bin/env bash
# Writes samples/tracks.mkv: a 40-second Matroska file of a small still picture
# with three subtitle tracks, as a rip of a film carries them:
#   0  subrip         eng                  samples/film.srt
#   1  subrip         fre  default, titled a French translation, written here
#   2  dvd_subtitle   eng                  the pictures of samples/vobsub.idx/.sub
# Needs the ffmpeg command (cmake/install-deps.sh installs it).
# Usage: bash tools/make-sample-video.sh [OUT]   (default samples/tracks.mkv)
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
out=${1:-$root/samples/tracks.mkv}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat > "$work/fre.srt" <<'SRT'
1
00:00:01,200 --> 00:00:03,800
Le dernier ferry est parti il y a une heure.

2
00:00:04,100 --> 00:00:06,900
Alors on marche.
Le phare n'est qu'à six kilomètres.

3
00:00:07,300 --> 00:00:09,500
Six kilomètres, avec ce vent ?

4
00:00:10,000 --> 00:00:12,600
Tu voulais voir le phare.

5
00:00:13,000 --> 00:00:15,400
Je voulais le voir depuis l'hôtel, œuf compris.

6
00:00:16,200 --> 00:00:19,000
<i>Allô ? Il y a quelqu'un là-haut ?</i>

7
00:00:19,600 --> 00:00:22,100
La lampe tourne encore.
Quelqu'un doit l'entretenir.

8
00:00:22,500 --> 00:00:24,000
Élise ? Éloïse ?
SRT

ffmpeg -y -nostdin -loglevel error \
  -f lavfi -i "color=c=0x203040:s=160x90:r=1:d=40" \
  -i "$root/samples/film.srt" -i "$work/fre.srt" -i "$root/samples/vobsub.idx" \
  -map 0:v -map 1:s -map 2:s -map 3:s \
  -c:v ffv1 -c:s:0 srt -c:s:1 srt -c:s:2 copy \
  -metadata:s:s:0 language=eng -metadata:s:s:1 language=fre -metadata:s:s:1 "title=Français" \
  -metadata:s:s:2 language=eng \
  -disposition:s:0 0 -disposition:s:1 default -disposition:s:2 0 \
  -default_mode passthrough -fflags +bitexact -flags:v +bitexact -flags:s +bitexact \
  "$work/tracks.mkv"
mv "$work/tracks.mkv" "$out"
echo "wrote $out"
