# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
"""Runs every benchmark of a build folder and writes one table of what they measured.

A program says what its limits are, here stands only how it says so: with a line "what  A us / B us = R (at most L)"
or "what  A, bare B: R (at most L)" for two figures of one run, or with counters of Google Benchmark named median_ms,
worst_step_ms, aim_ms and so on. What has no limit is printed beside what it is held against, or alone: also the times
of a line "20 foods: add A ms, select all B ms".
"""
import json
import os
import platform
import re
import subprocess
import sys
import tempfile
from datetime import datetime, timezone

# A figure without a limit of its own: what it is held against in the same run.
BESIDE = {
    "buildTheFoodCatalogue": "buildTheSameListWithCopies",
    "compareAllNeighboursNaturally": "compareAllNeighboursWithoutCase",
    "sortAllNamesNaturally": "sortAllNamesWithoutCase",
    "findEveryNutrient": "findEveryNutrientInAHash",
}
# Counters: the figure and the limit that goes with it.
LIMITED = [("median_ms", "median_limit_ms"), ("worst_step_ms", "worst_limit_ms"), ("median_ms", "aim_ms")]
# Limits of plain times, in milliseconds.
TIMES = {"buildTheFoodCatalogue": 1.0}
RATIO = re.compile(r"^(.+?) +([\d.]+) (\w+) / +([\d.]+) (\w+) = ([\d.]+) \(at most ([\d.]+)\)")
BARE = re.compile(r"^ +(.+?) +([\d.]+), bare +([\d.]+): +([\d.]+) \((?:at most ([\d.]+)|no limit)\)")
TIMED = re.compile(r"^ *(\d+ foods): (.+)")
# Programs that measure by themselves and know nothing of Google Benchmark's arguments.
PLAIN = {"daylog", "food", "startup"}
# What is told without a limit of a program that compares its other figures itself.
UNJUDGED = {"shutdownSave"}
MILLISECONDS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


def spelt(name):
    """A benchmark's name as words: openStoreAndDay/7 is "open store and day, 7"."""
    words = re.sub(r"(?<=[a-z])(?=[A-Z])|(?<=A)(?=[A-Z])", " ", name.split("/iterations")[0]).lower()
    return ", ".join(words.split("/"))


def from_lines(subject, text):
    setting = ""
    for line in text.splitlines():
        heading = re.match(r"^(\w+): \d+ runs", line)
        if heading:
            setting = heading.group(1) + ", "
        found = BARE.match(line)
        if found:
            what, value, beside, compared, limit = found.groups()
            yield {"subject": subject, "what": setting + what, "value": float(compared),
                   "unit": "MiB" if "MiB" in what else "times", "limit": float(limit) if limit else None,
                   "of": f"{value}, bare {beside}", "over": line.endswith("OVER")}
        found = TIMED.match(line)
        if found:
            for what, value in re.findall(r"([a-z ]+?) +([\d.]+) ms", found.group(2)):
                yield {"subject": subject, "what": f"{found.group(1)}: {what.strip()}", "value": float(value),
                       "unit": "ms", "limit": None}
        found = RATIO.match(line)
        if found:
            what, value, unit, beside, besideunit, ratio, limit = found.groups()
            yield {"subject": subject, "what": what, "value": float(ratio), "unit": "times", "limit": float(limit),
                   "of": f"{value} {unit} / {beside} {besideunit}", "over": line.endswith("OVER")}


def from_results(subject, results):
    times = {each["name"].split("/iterations")[0]: each["real_time"] * MILLISECONDS[each["time_unit"]]
             for each in results if each.get("run_type") == "iteration" and "real_time" in each}
    for each in results:
        if each.get("error_occurred"):
            yield {"subject": subject, "what": spelt(each["name"]) + ": " + each["error_message"], "value": 1.0,
                   "unit": "failure", "limit": 0.0}
        for figure, limit in LIMITED:
            if figure in each and limit in each:
                what = spelt(each["name"]) + ", " + figure.split("_ms")[0].replace("_", " ")
                yield {"subject": subject, "what": what, "value": each[figure], "unit": "ms", "limit": each[limit]}
    judged = {each["name"].split("/iterations")[0] for each in results if "median_ms" in each}
    against = set(BESIDE.values())
    for name, time in times.items():
        other = BESIDE.get(name)
        if other in times:
            yield {"subject": subject, "what": spelt(name) + " against " + spelt(other), "value": time / times[other],
                   "unit": "times", "limit": None, "of": f"{time:.4f} ms / {times[other]:.4f} ms"}
        if name in TIMES or not (name in judged or name in BESIDE or name in against):
            yield {"subject": subject, "what": spelt(name), "value": time, "unit": "ms", "limit": TIMES.get(name)}


def medians(subject, results):
    for each in results:
        if each.get("aggregate_name") == "median" and each["run_name"].split("/")[0] in UNJUDGED:
            yield {"subject": subject, "what": spelt(each["run_name"]), "unit": "ms", "limit": None,
                   "value": each["real_time"] * MILLISECONDS[each["time_unit"]]}


def measure(program):
    subject = os.path.basename(program).removeprefix("bench_")
    print(f"measuring {subject} ...", file=sys.stderr, flush=True)
    with tempfile.TemporaryDirectory() as folder:
        out = os.path.join(folder, "out.json")
        arguments = [] if subject in PLAIN else ["--benchmark_out=" + out, "--benchmark_out_format=json"]
        run = subprocess.run([os.path.abspath(program), *arguments], cwd=os.path.dirname(program), capture_output=True,
                             text=True, check=False)
        figures = list(from_lines(subject, run.stdout))
        if os.path.exists(out):
            with open(out, encoding="utf-8") as file:
                results = json.load(file)["benchmarks"]
            # A program that compares its own figures has said what there is to say of them.
            figures += medians(subject, results) if figures else from_results(subject, results)
    for each in figures:
        # The program knows its figure with all its digits.
        each["over"] = each.get("over") or (each["limit"] is not None and each["value"] > each["limit"])
    # A program fails when a figure of its own is over its limit; anything else leaves figures out.
    if not figures or (run.returncode and not any(each["over"] for each in figures)):
        print(run.stdout + run.stderr, file=sys.stderr)
        figures.append({"subject": subject, "what": f"ended with code {run.returncode}", "value": 1.0, "unit": "failure",
                        "limit": 0.0, "over": True})
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
    over = "  OVER" if figure["over"] else ""
    return f"{figure['subject']:<9} {figure['what']:<66} {figure['value']:>9.3f} {figure['unit']:<6} {beside:<13}" \
           f"{figure.get('of', '')}{over}".rstrip()


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
