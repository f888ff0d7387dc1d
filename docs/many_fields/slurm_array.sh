#!/usr/bin/env bash
# Works a table of fields as a Slurm array, one task a part, and joins the results when all tasks have ended.
#
#   slurm_array.sh TABLE OUT PARTS [OPTION...]
#
# OPTION... go to torvale_batch as they are. SBATCH_OPTIONS holds what your cluster wants beside (--partition, --time,
# --account). TABLE, the surveys and OUT must lie on a disk that all nodes see. The script waits for the end. Killed or
# timed out, a task is worked again by the same command: it goes on where it stood.
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
batch=$(command -v "${TORVALE_BATCH:-torvale_batch}") || exit 2

job=$out/part.sbatch
{
  echo '#!/usr/bin/env bash'
  # A refused field (1) is told of in its row and is no failure of the task.
  printf '%q ' "$batch" "$table" --out "$out" --threads 1 --progress none "$@"
  printf '%s\n' "--shard \"\$SLURM_ARRAY_TASK_ID/$parts\""
  echo 'status=$?; [ "$status" -le 1 ] && exit 0; exit "$status"'
} >"$job"
# shellcheck disable=SC2086  # the options are words
sbatch --wait --array="1-$parts" --output="$out/part-%a.log" ${SBATCH_OPTIONS:-} "$job" || exit 3

results=()
for ((i = 1; i <= parts; ++i)); do results+=("$out/results-$i-of-$parts.csv"); done
[ "$parts" -eq 1 ] && exit 0
"$batch" merge "$out/results.csv" "${results[@]}"
