#!/usr/bin/env bash
# Runs the scripts of docs/many_fields with the program that was built: with GNU parallel on this machine, and with a
# Slurm of one node that is started here on the loopback, with a configuration of its own. What can't start is skipped
# with a word. The joined tables must be those of one run, byte for byte.
#
#   many_machines.sh TORVALE_BATCH
set -uo pipefail
source_folder=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
TORVALE_BATCH=$(realpath -- "$1")
export TORVALE_BATCH
work=$(mktemp -d)
started=()
trap 'for pid in "${started[@]:-}"; do [ -n "$pid" ] && kill "$pid" 2>/dev/null; done; sleep 0.3; rm -rf "$work"' EXIT

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# Twenty fields of which two are refused.
printf '0,100,600,20,10,1/2,1,7,20\n40,100,600,20,10,1/2,1,7,20\n60,100.1,600,20,10,1/2,1,7,20\n' >"$work/level.csv"
{
  echo 'name,gpm,target head,survey kind,survey,holes,designs'
  for i in $(seq 20); do
    flow=$((30 + i))
    [ $((i % 10)) -eq 0 ] && flow=
    echo "Field $i,$flow,4,E,level.csv,1/2 3/8,planned existing limited"
  done
} >"$work/fields.csv"
"$TORVALE_BATCH" "$work/fields.csv" --out "$work/whole" --write designs --progress none >/dev/null
[ $? -eq 1 ] || fail "the whole table has refused fields"

same() {
  cmp "$work/whole/results.csv" "$work/$1/results.csv" || fail "$1: the joined table differs"
  cmp "$work/whole/00007-Field_7/existing.XFD" "$work/$1/00007-Field_7/existing.XFD" || fail "$1: a design differs"
}

if command -v parallel >/dev/null; then
  JOBS=2 "$source_folder/docs/many_fields/local_shards.sh" "$work/fields.csv" "$work/parallel" 4 --write designs \
    >/dev/null || fail "local_shards.sh"
  same parallel
  # A part that is lost is worked again, the others are as they were.
  rm "$work/parallel/results-3-of-4.csv" "$work/parallel/results-3-of-4.journal"
  JOBS=2 "$source_folder/docs/many_fields/local_shards.sh" "$work/fields.csv" "$work/parallel" 4 --write designs \
    >/dev/null || fail "local_shards.sh again"
  same parallel
  echo "GNU parallel: the same files"
else
  echo "skipped: there is no GNU parallel"
fi

skip() {
  echo "skipped, no Slurm here: $*"
  exit 0
}

# A free port of this machine.
port() {
  python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])'
}

slurm_configuration() {
  local user
  user=$(id -un)
  cat <<END
ClusterName=torvale
SlurmctldHost=$(hostname -s)(127.0.0.1)
SlurmctldPort=$1
SlurmdPort=$2
SlurmUser=$user
SlurmdUser=$user
AuthType=auth/munge
AuthInfo=socket=$work/munge.socket
StateSaveLocation=$work/state
SlurmdSpoolDir=$work/spool
SlurmctldPidFile=$work/slurmctld.pid
SlurmdPidFile=$work/slurmd.pid
SlurmctldLogFile=$work/slurmctld.log
SlurmdLogFile=$work/slurmd.log
ProctrackType=proctrack/pgid
TaskPlugin=task/none
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
ReturnToService=2
MpiDefault=none
SwitchType=switch/none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
NodeName=$(hostname -s) NodeAddr=127.0.0.1 CPUs=2 State=UNKNOWN
PartitionName=all Nodes=ALL Default=YES MaxTime=INFINITE State=UP
END
}

for tool in munged slurmctld slurmd sbatch sinfo; do
  command -v "$tool" >/dev/null || skip "there is no $tool"
done
[ "$(id -u)" -eq 0 ] || skip "a node of its own wants to be started by root"
mkdir -m 700 "$work/state" "$work/spool"
chmod 755 "$work"
dd if=/dev/urandom of="$work/munge.key" bs=1 count=1024 status=none
chmod 400 "$work/munge.key"
munged --foreground --force --key-file="$work/munge.key" --socket="$work/munge.socket" \
  --pid-file="$work/munged.pid" --log-file="$work/munged.log" --seed-file="$work/munged.seed" >"$work/munged.out" 2>&1 &
started+=($!)
export SLURM_CONF=$work/slurm.conf
slurm_configuration "$(port)" "$(port)" >"$SLURM_CONF"
for _ in $(seq 50); do [ -S "$work/munge.socket" ] && break; sleep 0.1; done
[ -S "$work/munge.socket" ] || skip "munged did not start: $(tail -n 1 "$work/munged.log" "$work/munged.out" 2>/dev/null)"
slurmctld -D >"$work/slurmctld.out" 2>&1 &
started+=($!)
slurmd -D >"$work/slurmd.out" 2>&1 &
started+=($!)
up=no
for _ in $(seq 100); do
  case $(sinfo --noheader --format=%t 2>/dev/null) in
    idle*) up=yes; break ;;
  esac
  sleep 0.3
done
[ "$up" = yes ] || skip "the node did not come up: $(tail -n 2 "$work/slurmctld.log" "$work/slurmd.log" 2>/dev/null)"
timeout 120 "$source_folder/docs/many_fields/slurm_array.sh" "$work/fields.csv" "$work/slurm" 4 --write designs \
  >"$work/array.out" 2>&1 || fail "slurm_array.sh: $(cat "$work/array.out" "$work"/slurm/part-*.log)"
same slurm
echo "Slurm: the same files"
