"""Counts the instructions of one run of a workload, on both sides, with callgrind.

Workloads depend on neither time nor the processor: the counts are exact for one version of compiler and C library.
"""

import concurrent.futures
import os
import pathlib
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
BENCH = ROOT / "bench"
SIDES = ("library", "baseline")

SLEEPING = "presence/after"

# Runs before the measurement, and in it. The first runs fill caches and settings.
RUNS = (10, 1000)
RUNS_OF_LONG_WORKLOADS = {"menu/": (1, 10), "select/1000": (1, 20)}
ITEMS_OF_A_MENU = 100


def belongs_to_side(program, object_file, file):
    """Whether a function is the side's own: part of the program, and not of the benchmark around both sides.

    Instances of the standard library's templates are part of the side; the stub platform, the C library and the C++ library
    are objects of their own, and the linker's stubs have no file.
    """
    if object_file != str(program) or file == "???":
        return False
    path = pathlib.Path(file)
    return not path.is_relative_to(BENCH) or path.is_relative_to(BENCH / "baseline")


def costs(program, profile):
    """Own instructions, and those with all callees: the stub platform and the heap."""
    own = total = 0
    object_file = file = ""
    is_call = False
    for line in profile.splitlines():
        if line.startswith("ob="):
            object_file = line[3:]
        elif line.startswith("fl="):
            file = line[3:]
        elif line.startswith("calls="):
            is_call = True
        elif line[:1].isdigit():
            if not is_call:
                cost = int(line.split()[1])
                total += cost
                own += cost if belongs_to_side(program, object_file, file) else 0
            is_call = False
    return own, total


def instructions(program, workload):
    """Side -> own instructions of a run, and those with all callees. For a menu, those of an item."""
    warm_up, measured = next((runs for prefix, runs in RUNS_OF_LONG_WORKLOADS.items() if workload.startswith(prefix)), RUNS)
    with tempfile.TemporaryDirectory() as folder:
        profile = pathlib.Path(folder) / "profile"
        # A profile for each call of the function.
        subprocess.run(["valgrind", "--tool=callgrind", "--compress-strings=no", "--compress-pos=no",
                        "--toggle-collect=MeasuredRuns", "--dump-after=MeasuredRuns", f"--callgrind-out-file={profile}",
                        program, workload, str(warm_up), str(measured)],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        counted = {side: costs(program, pathlib.Path(f"{profile}.{number}").read_text())
                   for number, side in enumerate(SIDES, start=1)}
    for side, both in counted.items():
        if 0 in both:
            raise RuntimeError(f"{workload}, {side}: no own instructions of {program} in the profile")
    runs = measured * (ITEMS_OF_A_MENU if workload.startswith("menu/") else 1)
    return {side: tuple(cost / runs for cost in both) for side, both in counted.items()}


def names_of_workloads(program):
    """Without the one that lasts as long as the sleeps of both sides."""
    listed = subprocess.run([program, "--list"], check=True, stdout=subprocess.PIPE, text=True).stdout.splitlines()
    return [name for name in listed if not name.startswith(SLEEPING)]


def count_all(program, names, advance=lambda: None):
    """Name -> side -> own instructions, and those with all callees."""
    counts = {}
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for name, counted in zip(names, pool.map(lambda name: instructions(program, name), names)):
            counts[name] = counted
            advance()
    return counts
