#!/usr/bin/env bash
# Works a table of fields in parts with GNU parallel, on this machine or on several, and joins the results.
#
#   local_shards.sh TABLE OUT PARTS [OPTION...]
#
# OPTION... go to torvale_batch as they are (--write reports, --data DIR). With HOSTS set (the names that ssh knows,
# separated by commas; ":" is this machine) the parts go there; the table, the surveys and OUT must lie on a disk that
# all of them see under the same path. JOBS is how many parts a machine works at a time, by default one for each
# processor. A part that fails otherwise than by a refused field, or whose machine goes away, is worked again up to twice.
set -uo pipefail

if [ $# -lt 3 ]; then
  sed -n '2,/^set/{/^#/s/^# \{0,1\}//p}' "$0" >&2
  exit 2
fi
table=$(realpath -- "$1")
mkdir -p -- "$2" || exit 3
out=$(realpath -- "$2")
parts=$3
shift 3

# 0 and 1 are ends of a part that was worked through: 1 tells of fields that were refused, which their rows explain.
export TORVALE_BATCH=${TORVALE_BATCH:-torvale_batch}
work_part='"$1" "$2" --out "$3" --shard "$4/$5" --threads 1 --progress none "${@:6}"; status=$?
  [ "$status" -le 1 ] && exit 0; exit "$status"'

options=(--jobs "${JOBS:-100%}" --retries 3 --halt soon,fail=20%)
[ -n "${HOSTS:-}" ] && options+=(--sshlogin "$HOSTS" --workdir "$PWD")
seq "$parts" | parallel --quote "${options[@]}" \
  bash -c "$work_part" part "$TORVALE_BATCH" "$table" "$out" {} "$parts" "$@" || exit 3

results=()
for ((i = 1; i <= parts; ++i)); do results+=("$out/results-$i-of-$parts.csv"); done
[ "$parts" -eq 1 ] && exit 0
"$TORVALE_BATCH" merge "$out/results.csv" "${results[@]}"
