"""Counts the instructions of one run of a workload, on one side, with callgrind.

Two runs of different length are subtracted, so that start-up and end of the program are not counted. Workloads depend on
neither time nor the processor: the counts are exact for one version of compiler and C library.
"""

import pathlib
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
FOLDERS = {"library": ROOT / "src", "baseline": ROOT / "bench" / "baseline"}
RUNS = (100, 1100)
RUNS_OF_LONG_WORKLOADS = {"menu/10000": (1, 3), "select/1000": (10, 60)}

# The workload whose count is in instructions_per_rotation.txt.
GUARDED = "rotation/menu, selection and contact"


def own_cost(profile, folder):
    """The instructions of functions that the folder's files define, inlined code included and callees excluded."""
    total, is_own, is_call = 0, False, False
    for line in profile.splitlines():
        if line.startswith("fl="):
            is_own = line[3:].startswith(f"{folder}/")
        elif line.startswith("calls="):
            is_call = True
        elif line[:1].isdigit():
            total += int(line.split()[1]) if is_own and not is_call else 0
            is_call = False
    return total


def total_cost(profile, _):
    return int(next(line.split()[1] for line in profile.splitlines() if line.startswith("totals:")))


def profile_of(program, workload, side, runs):
    with tempfile.TemporaryDirectory() as folder:
        profile = pathlib.Path(folder) / "profile"
        subprocess.run(["valgrind", "--tool=callgrind", "--compress-strings=no", "--compress-pos=no",
                        f"--callgrind-out-file={profile}", program, workload, side, str(runs)],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return profile.read_text()


def count(program, workload, side, *costs):
    """For each of the costs the difference of two runs, divided by the number of runs between them."""
    short, long = RUNS_OF_LONG_WORKLOADS.get(workload, RUNS)
    profiles = [profile_of(program, workload, side, runs) for runs in (short, long)]
    return [(cost(profiles[1], FOLDERS[side]) - cost(profiles[0], FOLDERS[side])) / (long - short) for cost in costs]


def own_instructions(program, workload, side):
    return count(program, workload, side, own_cost)[0]


def instructions(program, workload, side):
    """Own instructions, and those with all callees: the stub platform and the heap."""
    return count(program, workload, side, own_cost, total_cost)
