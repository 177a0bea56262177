#!/usr/bin/env bash
# Runs a list of commands as an array of jobs, a part in each:
#   sbatch --array=1-8 slurm.sh LIST.jsonl RESULTS.jsonl
# The array's indices count from 1. Once all jobs have ended, join the parts in order:
#   for part in $(seq 8); do cat RESULTS.jsonl.$part; done > RESULTS.jsonl
# A job that was stopped goes on where it was when it is submitted again.
#SBATCH --job-name=velmora
#SBATCH --ntasks=1
#SBATCH --cpus-per-task=1
#SBATCH --time=01:00:00
set -euo pipefail
list=$1 results=$2
srun velmora-cli batch "$list" \
  --shard "$SLURM_ARRAY_TASK_ID/$SLURM_ARRAY_TASK_COUNT" -o "$results.$SLURM_ARRAY_TASK_ID"
