#!/usr/bin/env bash
# Speaks the sample scene's line and writes the sound and its mouth cues to samples/greeting.wav and
# samples/greeting.json. Needed only when the line is to be another one; the results are committed.
source "$(dirname "$0")/../../scripts/common.sh"

line="Good morning! I love walking home the long way."
rate=16000   # samples a second, as the voice speaks
seconds=3    # the line with the pause behind it, cut or filled up with silence
sound=samples/greeting.wav

install_missing flite
spoken=$(mktemp --suffix=.wav)
trap 'rm -f "$spoken"' EXIT
phones=$(flite -voice slt -t "$line" -psdur -o "$spoken")

# number VALUE BYTES: the number as a sound file holds it, its lowest byte first
number() {
    local value=$1 i
    for ((i = 0; i < $2; ++i)); do
        printf "\\x$(printf %02x $((value >> (8 * i) & 255)))"
    done
}

header=44
bytes=$((rate * seconds * 2))
{
    printf RIFF; number $((bytes + header - 8)) 4; printf 'WAVEfmt '; number 16 4
    number 1 2; number 1 2; number $rate 4; number $((rate * 2)) 4; number 2 2; number 16 2
    printf data; number $bytes 4
    head -c "$bytes" <(tail -c +$((header + 1)) "$spoken"; head -c "$bytes" /dev/zero)
} >"$sound"

echo "$phones" | awk -v line="$line" -v seconds="$seconds" -v sound="$(basename "$sound")" \
    -f tools/sample_line/cues.awk >samples/greeting.json
