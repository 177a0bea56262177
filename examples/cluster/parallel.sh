#!/usr/bin/env bash
# Runs a list of commands in parts with GNU parallel, on this machine or, with --sshloginfile in
# PARALLEL, on others that see the same files.
#   parallel.sh LIST.jsonl PARTS RESULTS.jsonl
# Started again after it was stopped, it goes on where it was: the parts stay beside the results until
# all are done.
set -euo pipefail
list=$1 parts=$2 results=$3
cli=${VELMORA_CLI:-velmora-cli}

failed=0
parallel --will-cite "$cli" batch "$list" --shard {}/"$parts" -o "$results".{} ::: $(seq "$parts") ||
  failed=$?
for part in $(seq "$parts"); do cat "$results.$part"; done >"$results.part"
if [ "$(wc -l <"$results.part")" -ne "$(grep -c '[^[:blank:]]' "$list")" ]; then
  rm "$results.part"
  echo "$0: not every line is done; start it again" >&2
  exit 1
fi
mv "$results.part" "$results"
for part in $(seq "$parts"); do rm "$results.$part"; done
exit "$((failed > 0))"
