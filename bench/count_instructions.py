"""Counts the instructions of one side for one piece of work, with callgrind.

Counted is what the functions compiled from that side's own files execute, and what was inlined into them; what they call
is not, nor are the jumps into other libraries. Two runs of different length are subtracted, so start and end of the
program are not in the count. No instruction of the side depends on time, memory or the processor: the count is exact and
the same on every machine, for one compiler.
"""

import pathlib
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
FOLDERS = {"library": ROOT / "src", "baseline": ROOT / "bench" / "baseline"}
SHORT, LONG = 100, 1100

# The pair whose count is kept in data/instructions_per_rotation.txt.
GUARDED = "rotation/menu, selection and contact"


def own_cost(profile, folder):
    """The instructions of functions of the folder's files, without those of calls."""
    total, is_own, is_call = 0, False, False
    for line in profile.read_text().splitlines():
        if line.startswith("fl="):
            is_own = line[3:].startswith(f"{folder}/")
        elif line.startswith("calls="):
            is_call = True
        elif line[:1].isdigit():
            total += int(line.split()[1]) if is_own and not is_call else 0
            is_call = False
    return total


def cost(program, pair, side, runs):
    with tempfile.TemporaryDirectory() as folder:
        profile = pathlib.Path(folder) / "profile"
        subprocess.run(["valgrind", "--tool=callgrind", "--compress-strings=no", "--compress-pos=no",
                        f"--callgrind-out-file={profile}", program, pair, side, str(runs)],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return own_cost(profile, FOLDERS[side])


def instructions(program, pair, side):
    return (cost(program, pair, side, LONG) - cost(program, pair, side, SHORT)) / (LONG - SHORT)
