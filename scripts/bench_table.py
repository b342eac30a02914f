#!/usr/bin/env python3
"""Turns the JSON of one benchmark program into the table that is kept in bench/results.

Usage: bench_table.py FILE.json PROGRAM
Repeated benchmarks give their median, others their only run.
"""

import json
import subprocess
import sys

LIBRARY_KEYS = {
    "name", "run_name", "run_type", "repetitions", "repetition_index", "threads", "iterations", "real_time", "cpu_time",
    "time_unit", "aggregate_name", "aggregate_unit", "family_index", "per_family_instance_index", "label",
    "error_occurred", "error_message",
}


def figure(value):
    return f"{value:,.0f}" if abs(value) >= 1000 else f"{value:.4g}"


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        document = json.load(file)
    context = document["context"]
    commit = subprocess.run(["git", "rev-parse", "--short", "HEAD"], capture_output=True, text=True).stdout.strip()
    print(f"# {sys.argv[2]}")
    print()
    print(f"{context['date'][:10]}, commit {commit}, {context['num_cpus']} cores of {context['mhz_per_cpu']} MHz, "
          f"load {context['load_avg'][0]:.1f} at the start. Made by `scripts/bench.sh {sys.argv[2]}`.")
    print()
    print("| benchmark | time | processor time | counters |")
    print("|---|---:|---:|---|")
    for run in document["benchmarks"]:
        if run.get("run_type") == "aggregate" and run.get("aggregate_name") != "median":
            continue
        if run.get("run_type") != "aggregate" and run.get("repetitions", 1) > 1:
            continue
        if run.get("error_occurred"):
            print(f"| {run['name']} | failed: {run['error_message']} | | |")
            continue
        name = run["run_name"].replace("/manual_time", "")
        counters = ", ".join(f"{key} {figure(value)}" for key, value in sorted(run.items())
                             if key not in LIBRARY_KEYS and isinstance(value, (int, float)))
        unit = run["time_unit"]
        print(f"| {name} | {figure(run['real_time'])} {unit} | {figure(run['cpu_time'])} {unit} | {counters} |")


if __name__ == "__main__":
    main()
