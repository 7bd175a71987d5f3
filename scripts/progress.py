"""Progress of long Python scripts: the counterpart of scripts/progress.bash.

    with Step("build", log=path):            # with the count in the log of a build or a test program
    with Step("mutants", 120, "mutants") as step:
        step.advance()

While a step runs, its name, count and time are shown: on a terminal on one line that is updated every second, in a log on
a new line every fifteen seconds. At its end the time taken is printed. All output goes to standard error.
"""

import pathlib
import re
import subprocess
import sys
import threading
import time

LOG_INTERVAL = 15
NINJA_COUNT = re.compile(r"^\[(\d+)/(\d+)\]", re.MULTILINE)
TESTS = re.compile(r"^\[=+\] Running (\d+) tests?", re.MULTILINE)
TEST_END = re.compile(r"^\[ +(?:OK|FAILED) \]", re.MULTILINE)


def count_in(log):
    """The count in the log of a build (12 of 79 files) or of a test program (12 of 79 tests)."""
    if counts := NINJA_COUNT.findall(log):
        return "{} of {} files".format(*counts[-1])
    if tests := TESTS.search(log):
        return f"{len(TEST_END.findall(log))} of {tests[1]} tests"
    return ""


class Step:
    def __init__(self, name, total=0, unit="", log=None):
        self.name = name
        self.total = total
        self.unit = unit
        self.log = log and pathlib.Path(log)
        self.done = 0
        self.started = time.monotonic()
        self.ended = threading.Event()
        self.monitor = threading.Thread(target=self.show, daemon=True)

    def __enter__(self):
        self.monitor.start()
        return self

    def __exit__(self, kind, *_):
        self.ended.set()
        self.monitor.join()
        print(f"{self.name:16} {self.seconds():4.0f} s{'' if kind is None else '  failed'}", file=sys.stderr, flush=True)

    def advance(self):
        """Call under a lock, or on one thread."""
        self.done += 1

    def seconds(self):
        return time.monotonic() - self.started

    def count(self):
        if self.total:
            return f"{self.done} of {self.total} {self.unit}"
        return count_in(self.log.read_text(errors="replace")) if self.log and self.log.exists() else ""

    def show(self):
        live = sys.stderr.isatty()
        while not self.ended.wait(1 if live else LOG_INTERVAL):
            line = f"{self.name} {self.seconds():.0f} s [{self.count()}]".replace(" []", "")
            print(f"\r\033[K{line}" if live else f"... {line}", end="" if live else "\n", file=sys.stderr, flush=True)
        if live:
            print("\r\033[K", end="", file=sys.stderr, flush=True)


def run_logged(name, log, *commands, **options):
    """Runs the commands as one step with their output in a log; prints its end and exits when one fails."""
    log.parent.mkdir(parents=True, exist_ok=True)
    with open(log, "w") as output, Step(name, log=log):
        for command in commands:
            if subprocess.run(command, stdout=output, stderr=subprocess.STDOUT, **options).returncode != 0:
                sys.exit("\n".join([*log.read_text(errors="replace").splitlines()[-40:], f"{name} failed; see {log}"]))
