# SPDX-License-Identifier: Apache-2.0
"""Names the machine that was measured."""
import datetime
import os
import pathlib
import platform
import shutil
import subprocess
from collections.abc import Callable

from table.ways import PEERS


def _processor() -> str:
    for line in pathlib.Path('/proc/cpuinfo').read_text().splitlines():
        if line.startswith('model name'):
            return line.split(':', 1)[1].strip()
    return platform.machine()


def _suite() -> str:
    if shutil.which('soffice') is None:
        return 'no suite on the path'
    try:
        shown = subprocess.run(['soffice', '--version'], capture_output=True, text=True, timeout=60, check=False).stdout
    except (OSError, subprocess.TimeoutExpired):
        return 'a suite that does not tell its version'
    return ' '.join(shown.split()[:2])


def machine() -> str:
    memory = os.sysconf('SC_PAGE_SIZE') * os.sysconf('SC_PHYS_PAGES') / 2**30
    load = os.getloadavg()[0]
    return (f'{_processor()}, {os.cpu_count()} cores, {memory:.0f} GiB; Linux {platform.release()}; {_suite()}; '
            f'{datetime.date.today():%-d %B %Y}; load {load:.1f} at the end')


def missing_peers(installed: Callable[[str], bool]) -> list[str]:
    return [f'{name} is not installed ({what})' for name, what in PEERS.items() if not installed(name)]
