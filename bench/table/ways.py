# SPDX-License-Identifier: Apache-2.0
"""Runs the programs that are measured: Lectern's own, those of the benchmarks, and the peers."""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import time
from collections.abc import Callable

from table.experiment import Figures, WayFailed

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
SAMPLES = ROOT / 'samples'
LONGEST_SECONDS = 900.0
PATIENCE_SECONDS = 5.0

# The peers, and what the table says of them.
PEERS = {
    'soffice': 'the suite itself, soffice --convert-to png',
    'ssconvert': 'gnumeric, ssconvert to PDF; paints no picture',
    'abiword': 'abiword --to=pdf; paints no picture',
    'pixman': 'the same raster operations by pixman, built with libpixman-1-dev',
}


def run(command: list[str], environment: dict[str, str], longest: float = LONGEST_SECONDS) -> tuple[float, str]:
    """Runs a command; returns its milliseconds from start to end, and its output. When the wait ends early, by an
    interruption or the time limit, ends the command with all that it started."""
    start = time.monotonic()
    try:
        process = subprocess.Popen(command, env={**os.environ, **environment}, text=True, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, start_new_session=True)
    except OSError as failure:
        raise WayFailed(f'{command[0]}: {failure}') from failure
    try:
        output, errors = process.communicate(timeout=longest)
    except subprocess.TimeoutExpired as failure:
        raise WayFailed(f'{command[0]} takes more than {longest:g} s') from failure
    finally:
        if process.poll() is None:
            _end_group(process)
    if process.returncode != 0:
        raise WayFailed(f'{" ".join(command)} ended with status {process.returncode}: {errors.strip()}')
    return (time.monotonic() - start) * 1000, output


def _end_group(process: subprocess.Popen[str]) -> None:
    os.killpg(process.pid, signal.SIGTERM)
    try:
        process.communicate(timeout=PATIENCE_SECONDS)  # until no process of the group has the pipes open
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.communicate()


def figures_in(output: str) -> Figures:
    """Reads pairs of a name and a number, such as "load 174.2 paint 4.1"."""
    return {name: float(number) for name, number in re.findall(r'([a-z][\w.-]*) (-?\d+(?:\.\d+)?)(?!\S)', output)}


class Ways:
    """Makes the ways. Each function returns one that can be called many times."""

    def __init__(self, programs: pathlib.Path, scratch: pathlib.Path):
        self.programs = programs
        self.scratch = scratch
        self._profile = f'-env:UserInstallation=file://{scratch}/soffice'
        self._profile_is_made = False

    def has(self, peer: str) -> bool:
        if peer == 'pixman':
            return (self.programs / 'pixman_bench').exists()
        return shutil.which(peer) is not None

    def own(self, program: str, *arguments: object) -> Callable[[], Figures]:
        """A program of the benchmarks that prints figures; "whole" is its time from start to end."""
        command = [str(self.programs / program), *map(str, arguments)]

        def measure() -> Figures:
            whole, output = self._run(command)
            return {**figures_in(output), 'whole': whole}
        return measure

    def bare(self, document: pathlib.Path, width: int, height: int) -> Callable[[], Figures]:
        """The suite alone in a small program, until the first picture."""
        if document.suffix == '.docx':
            return self.own('bare_word', document, width, height, 72)
        return self.own('bare_open', document, width, height)

    def command(self, document: pathlib.Path, width: int, height: int) -> Callable[[], Figures]:
        """lectern open on a machine without a session bus: private bus, service, engine and picture."""
        return self._whole([str(self.programs / 'lectern'), 'open', str(document), '--size', f'{width}x{height}',
                            '-o', str(self.scratch / 'picture.png')],
                           {'DBUS_SESSION_BUS_ADDRESS': '', 'XDG_RUNTIME_DIR': ''})

    def soffice(self, document: pathlib.Path) -> Callable[[], Figures]:
        convert = self._whole(['soffice', self._profile, '--headless', '--convert-to', 'png',
                               '--outdir', str(self.scratch / 'converted'), str(document)])

        def measure() -> Figures:
            if not self._profile_is_made:  # which takes longer than a conversion
                self._profile_is_made = True
                convert()
            return convert()
        return measure

    def ssconvert(self, document: pathlib.Path) -> Callable[[], Figures]:
        return self._whole(['ssconvert', str(document), str(self.scratch / 'ssconvert.pdf')])

    def abiword(self, document: pathlib.Path) -> Callable[[], Figures]:
        return self._whole(['abiword', '--to=pdf', f'--to-name={self.scratch}/abiword.pdf', str(document)])

    def raster(self, program: str, rounds: int) -> Callable[[], Figures]:
        """The table of raster_bench or pixman_bench, as figures "OPERATION SIZE COLUMN"."""
        def measure() -> Figures:
            _, output = self._run([str(self.programs / program), str(rounds)])
            return raster_figures(output)
        return measure

    def _whole(self, command: list[str], environment: dict[str, str] | None = None) -> Callable[[], Figures]:
        return lambda: {'whole': self._run(command, environment)[0]}

    def _run(self, command: list[str], environment: dict[str, str] | None = None) -> tuple[float, str]:
        return run(command, {'TMPDIR': str(self.scratch), **(environment or {})})


def raster_figures(output: str) -> Figures:
    head, *lines = (re.split(r' {2,}', line.strip()) for line in output.splitlines() if line.strip())
    # An operation's name and its size may be only one space apart.
    found = {}
    for line in lines:
        words = ' '.join(line).split()
        numbers = words[-(len(head) - 2):]
        key = ' '.join(words[:-len(numbers)])
        found.update({f'{key} {column}': float(number) for column, number in zip(head[2:], numbers, strict=True)})
    return found
