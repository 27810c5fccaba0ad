# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
"""Runs every benchmark of a build folder and writes one table of what they measured.

A program prints one line a figure, as Turns.h says, and knows its limits; here stands only how they are read.
"""
import json
import os
import platform
import subprocess
import sys
from datetime import datetime, timezone


def from_line(subject, line):
    what, value, unit, limit, beside, verdict = line.split("\t")
    figure = {"subject": subject, "what": what, "value": float(value), "unit": unit,
              "limit": float(limit) if limit else None, "over": verdict == "OVER", "verdict": verdict}
    return figure | ({"of": beside} if beside else {})


def measure(program):
    subject = os.path.basename(program).removeprefix("bench_")
    print(f"measuring {subject} ...", file=sys.stderr, flush=True)
    run = subprocess.run([os.path.abspath(program)], cwd=os.path.dirname(program), capture_output=True, text=True,
                         check=False)
    figures = [from_line(subject, line) for line in run.stdout.splitlines() if line.count("\t") == 5]
    # A program fails when a figure of its own is over its limit; anything else leaves figures out.
    if not figures or run.returncode != int(any(each["over"] for each in figures)):
        print(run.stdout + run.stderr, file=sys.stderr)
        figures.append({"subject": subject, "what": f"ended with code {run.returncode}", "value": 1.0, "unit": "failure",
                        "limit": 0.0, "over": True, "verdict": "OVER"})
    return figures


def first_line(*command):
    try:
        return subprocess.run(command, capture_output=True, text=True, check=True).stdout.splitlines()[0].strip()
    except (OSError, subprocess.CalledProcessError, IndexError):
        return "unknown"


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        models = [line.split(":", 1)[1].strip() for line in file if line.startswith("model name")]
    return models[0] if models else platform.machine()


def surroundings():
    with open("/proc/meminfo", encoding="utf-8") as file:
        memory = int(file.readline().split()[1]) // 1024
    with open("/etc/os-release", encoding="utf-8") as file:
        system = dict(line.strip().split("=", 1) for line in file if "=" in line)["PRETTY_NAME"].strip('"')
    return {
        "measured": datetime.now(timezone.utc).strftime("%Y-%m-%d %H:%M UTC"),
        "commit": first_line("git", "describe", "--always", "--dirty"),
        "processor": processor(), "cores": os.cpu_count(), "memory_MiB": memory,
        "load": round(os.getloadavg()[0], 1), "system": system, "kernel": platform.release(),
        "compiler": first_line("c++", "--version"), "qt": first_line("dpkg-query", "-Wf", "${Version}", "libqt6core6"),
        "expat": first_line("dpkg-query", "-Wf", "${Version}", "libexpat1"),
        "sqlite": first_line("dpkg-query", "-Wf", "${Version}", "libsqlite3-0"),
    }


def row(figure):
    limit = figure["limit"]
    beside = "" if limit is None else f"at most {limit:g}"
    verdict = "  " + figure["verdict"]
    return f"{figure['subject']:<9} {figure['what']:<66} {figure['value']:>9.3f} {figure['unit']:<6} {beside:<13}" \
           f"{figure.get('of', '')}{verdict}".rstrip()


def main(build):
    programs = sorted(os.path.join(build, "bin", name) for name in os.listdir(os.path.join(build, "bin"))
                      if name.startswith("bench_"))
    where = surroundings()
    figures = [figure for program in programs for figure in measure(program)]
    lines = [f"{key}: {value}" for key, value in where.items()] + [""] + [row(figure) for figure in figures]
    text = "\n".join(lines) + "\n"
    print(text, end="")
    with open(os.path.join(build, "figures.txt"), "w", encoding="utf-8") as file:
        file.write(text)
    with open(os.path.join(build, "figures.json"), "w", encoding="utf-8") as file:
        json.dump({"machine": where, "figures": figures}, file, indent=1)
        file.write("\n")
    return 1 if any(figure["over"] for figure in figures) else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
