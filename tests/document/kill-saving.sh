#!/usr/bin/env bash
# SPDX-FileCopyrightText: The Tavrin authors
# SPDX-License-Identifier: MIT
#
# Kills a program that saves a datafile again and again, at many moments, and looks at the datafile after each:
# it has to be the old content or the new one, whole.
#
# usage: kill-saving.sh PATH-OF-SavingLoop [KILLS] [SEED]
set -euo pipefail

saving_loop=$1
kills=${2:-200}
RANDOM=${3:-4711}

folder=$(mktemp -d)
saver=
clean_up() {
    [ -z "$saver" ] || kill -KILL "$saver" 2>/dev/null || true
    rm -rf "$folder"
}
trap clean_up EXIT

datafile=$folder/this.tv3
mkfifo "$folder/begun"
"$saving_loop" --make "$folder/even" "$folder/odd"
"$saving_loop" --check "$folder/even"
"$saving_loop" --check "$folder/odd"
cp "$folder/even" "$datafile"

interrupted=0
for ((round = 1; round <= kills; ++round)); do
    "$saving_loop" "$datafile" >"$folder/begun" &
    saver=$!
    # The moments are to fall into the saving, on a slow machine too, and opening takes its time.
    read -r two_saves <"$folder/begun"
    milliseconds=$((RANDOM % (two_saves + 1)))
    sleep "$(printf '0.%03d' "$milliseconds")"
    if ! kill -KILL "$saver"; then
        echo "round $round: the saving ended by itself" >&2
        exit 1
    fi
    wait "$saver" 2>/dev/null || true
    saver=

    if ! cmp -s "$datafile" "$folder/even" && ! cmp -s "$datafile" "$folder/odd"; then
        echo "round $round: the datafile is damaged after a kill $milliseconds ms into the saving" >&2
        exit 1
    fi
    for leftover in "$datafile".*; do
        [ -e "$leftover" ] || continue
        interrupted=$((interrupted + 1))
        rm -f "$leftover"
    done
done

"$saving_loop" --check "$datafile"
echo "$kills kills, $interrupted of them in the middle of writing; the datafile was whole each time."
# Without any the test would have proved nothing.
[ "$interrupted" -ge $((kills / 20)) ]
