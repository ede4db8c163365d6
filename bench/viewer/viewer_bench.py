#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""bench/viewer/viewer_bench.py [--short]: measures the viewer in a session of its own, beside `lectern open`
and beside the suite's own widget, and prints a table. docs/performance.md explains the rows."""
import os
import pathlib
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / 'tests/system'))

from window.processes import descendants, private_memory, wake_ups  # noqa: E402
from window.screen import difference  # noqa: E402
from window.session import BUILD, Session  # noqa: E402

SIZE = (480, 800)
WIDGET = ROOT / 'bench/viewer/suite_widget.py'
FRAME = 1 / 60


def document(session, name):
    """A copy that no program has opened before."""
    path = session.folder / f'{name}.docx'
    path.write_bytes((ROOT / 'samples/tour.docx').read_bytes())
    return path


def shows(session, box=(20, 100, 460, 400)):
    """Whether the screen shows something dark on white: letters."""
    low, high = session.screen.picture(box).convert('L').getextrema()
    return low < 100 and high > 250


def until(condition, seconds=30):
    """Milliseconds until it is true, looking 500 times a second."""
    begin = time.monotonic()
    while not condition():
        if time.monotonic() - begin > seconds:
            raise RuntimeError('too long')
        time.sleep(0.002)
    return (time.monotonic() - begin) * 1000


def clear(session):
    """Waits until no window and no service is left."""
    session.wait(lambda: not session.manager.windows, 'no window')


def first_pictures(rounds):
    """Medians in ms: the command, the viewer from nothing, a second window, the suite's widget."""
    found = {'command': [], 'viewer': [], 'second': [], 'widget': []}
    for number in range(rounds):
        with Session(*SIZE) as session:
            begin = time.monotonic()
            subprocess.run([BUILD / 'bin/lectern', 'open', document(session, 'a'), '-o', session.folder / 'a.png',
                            '--size', f'{SIZE[0]}x{SIZE[1]}'], check=True, stdout=subprocess.DEVNULL)
            found['command'].append((time.monotonic() - begin) * 1000)
        with Session(*SIZE) as session:
            begin = time.monotonic()
            session.start('lectern-view', document(session, f'b{number}'))
            until(lambda: shows(session))
            found['viewer'].append((time.monotonic() - begin) * 1000)
            before = session.screen.picture()
            begin = time.monotonic()
            session.start('lectern-view', document(session, f'c{number}'))
            until(lambda: len(session.manager.windows) > 1 and shows(session)
                  and difference(session.screen.picture((0, 0, SIZE[0], 47)), before.crop((0, 0, SIZE[0], 47))) > 0)
            found['second'].append((time.monotonic() - begin) * 1000)
        with Session(*SIZE) as session:
            begin = time.monotonic()
            session.start(sys.executable, WIDGET, document(session, 'd'), *SIZE, environment=WIDGET_ENVIRONMENT)
            until(lambda: shows(session))
            found['widget'].append((time.monotonic() - begin) * 1000)
    return {name: statistics.median(values) for name, values in found.items()}


def steps(session, count):
    """Times in ms from a step of the wheel to changed pixels on the screen."""
    box = (20, 300, 460, 420)
    session.screen.point(240, 400)
    times = []
    for number in range(count):
        before = session.screen.picture(box)
        session.screen.press(5 if number % 20 < 10 else 4)
        begin = time.monotonic()
        session.screen.release(5 if number % 20 < 10 else 4)
        until(lambda: session.screen.picture(box).tobytes() != before.tobytes())  # pylint: disable=cell-var-from-loop
        times.append((time.monotonic() - begin) * 1000)
        last = session.screen.picture(box).tobytes()
        while True:  # until it is still, so that the next change is the next step's
            time.sleep(0.1)
            now = session.screen.picture(box).tobytes()
            if now == last:
                break
            last = now
    return times


def percentile(values, share):
    """The value that this share of the values does not exceed."""
    return sorted(values)[min(len(values) - 1, int(len(values) * share))]


WIDGET_ENVIRONMENT = {'SAL_USE_VCLPLUGIN': 'svp'}


def running(command, count, rest):
    """Steps of the wheel, wake-ups a minute at rest and private memory in MiB of a program with the sample open."""
    with Session(*SIZE) as session:
        program = session.start(*command, document(session, 'e'), *(SIZE if len(command) > 1 else ()),
                                environment=WIDGET_ENVIRONMENT)
        until(lambda: shows(session))
        time.sleep(1)
        found = {'steps': steps(session, count)}
        time.sleep(3)
        before = wake_ups(program.pid)
        time.sleep(rest)
        after = wake_ups(program.pid)  # threads that end meanwhile are not counted
        found['wakes'] = sum(count - before.get(thread, 0) for thread, count in after.items()) * 60 / rest
        found['memory'] = private_memory(program.pid) / 2**20
        found['engine'] = sum(map(private_memory, descendants('lectern-engine') + descendants('lectern-service')
                                  + descendants('lectern-forksrv'))) / 2**20
        return found


def empty_memory():
    """Private memory in MiB of the viewer without a document."""
    with Session(*SIZE) as session:
        program = session.start('lectern-view')
        session.wait(lambda: session.manager.windows, 'a window')
        time.sleep(2)
        return private_memory(program.pid) / 2**20


def row(title, value, beside='', goal=''):
    """A line of the table."""
    print(f'| {title} | {value} | {beside} | {goal} |', flush=True)


def main():
    """Measures and prints."""
    short = '--short' in sys.argv
    rounds, count, rest = (1, 5, 2) if short else (5, 60, 60)
    print('| Row | Viewer | Compared with | Goal |\n|---|--:|--:|--:|')
    opens = first_pictures(rounds)
    row('from the click to the first picture; `lectern open`', f'{opens["viewer"]:.0f} ms',
        f'{opens["command"]:.0f} ms, ratio {opens["viewer"] / opens["command"]:.2f}', '1.2')
    row('the same, the service and the viewer run; `lectern open`', f'{opens["second"]:.0f} ms',
        f'ratio {opens["second"] / opens["command"]:.2f}', '1.2')
    row('from the click to the first picture; suite\'s widget', f'{opens["viewer"]:.0f} ms', f'{opens["widget"]:.0f} ms')
    ours, widget = running(['lectern-view'], count, rest), running([sys.executable, WIDGET], count, rest)
    for share in (0.5, 0.95):
        row(f'a step of the wheel to changed pixels, {share:.0%} of the steps; suite\'s widget',
            f'{percentile(ours["steps"], share):.0f} ms, {percentile(ours["steps"], share) / 1000 / FRAME:.1f} frames',
            f'{percentile(widget["steps"], share):.0f} ms', '2 frames' if share > 0.9 else '')
    row('wake-ups a minute at rest; suite\'s widget', f'{ours["wakes"]:.0f}', f'{widget["wakes"]:.0f}', '6')
    row('private memory without a document', f'{empty_memory():.0f} MiB', '', '60 MiB')
    row('private memory with the document; suite\'s widget', f'{ours["memory"]:.0f} MiB, {ours["engine"]:.0f} MiB more in '
        'the service and its engines', f'{widget["memory"]:.0f} MiB')


if __name__ == '__main__':
    os.environ.setdefault('LECTERN_BUILD', str(ROOT / 'build/release'))
    main()
