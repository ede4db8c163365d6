#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""bench/trace/chart.py OUT.svg [FILE]: draws where the time of "lectern open FILE" goes.

Opens the file several times without a session bus, traces the command, the keeper, the bus
daemon and the service on one clock, and draws the run whose time to the first picture is the
median. The default file is samples/tour.docx.
"""
import os
import pathlib
import subprocess
import sys
import tempfile
from collections.abc import Iterable, Iterator
from dataclasses import dataclass
from xml.sax.saxutils import escape

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = ROOT / 'build' / 'release'
RUNS = 15
SHORTEST = 0.3  # milliseconds; shorter calls of an engine are not drawn

COLOURS = {'command': '#38bdf8', 'bus': '#a78bfa', 'service': '#34d399', 'engine': '#f59e0b'}
ENGINE_CALLS = {'Open': 'the suite reads the file',
                'StretchPlace': 'lays out and paints the first stretch', 'RenderSlide': 'paints the slide'}
WRITES = 'writes the picture into a file'


@dataclass(frozen=True)
class Event:
    time: float  # milliseconds since the command's start
    process: int
    program: str
    what: str
    details: tuple[str, ...]


@dataclass(frozen=True)
class Span:
    part: str
    label: str
    begin: float
    end: float


def events_of(trace: str) -> list[Event]:
    """The lines of libmilestones, in the order of time."""
    lines = sorted((line.split() for line in trace.splitlines()), key=lambda words: int(words[0]))
    zero = int(lines[0][0])
    return [Event((int(time) - zero) / 1000, int(process), 'service' if program == 'lectern-service' else program, what,
                  tuple(details)) for time, process, program, what, *details in lines]


class Trace:
    def __init__(self, events: list[Event]):
        self.events = events

    def all(self, program: str, what: str, *details: str, after: float = 0) -> Iterator[Event]:
        """Events with these details; an empty detail stands for any."""
        return (event for event in self.events
                if event.time >= after and event.program == program and event.what == what and
                all(wanted in ('', found) for wanted, found in zip(details, event.details)))

    def time(self, program: str, what: str, *details: str, after: float = 0) -> float:
        found = next(self.all(program, what, *details, after=after), None)
        if found is None:
            raise ValueError(f'the trace has no {program} {what} {" ".join(details)}')
        return found.time

    def calls(self, socket: str) -> Iterator[tuple[str, float, float]]:
        """The service's calls on a socket: method, begin, end. One without a return lasts until the trace ends."""
        for call in self.all('service', 'sends-call', socket):
            returned = next(self.all('service', 'received-return', socket, call.details[1], after=call.time), None)
            yield call.details[2], call.time, returned.time if returned else self.events[-1].time


def spans_of(events: list[Event]) -> list[Span]:
    trace = Trace(events)
    keeper = trace.time('lectern', 'spawns')
    daemon = trace.time('dbus-daemon', 'start')
    hello = trace.time('lectern', 'sends-call', '', '', 'Hello')
    create = trace.time('lectern', 'sends-call', '', '', 'create')
    service = trace.time('service', 'start')
    joins = trace.time('service', 'sends-call', '', '', 'Hello')
    asked = trace.time('service', 'received-call', '', '', 'create')
    replied = trace.time('service', 'sends-return', after=asked)
    told = trace.time('lectern', 'received-return', after=replied)
    paint = trace.time('lectern', 'posts', '1')
    taken = trace.time('service', 'takes', '1', after=paint)
    painted = trace.time('service', 'posts', '101', after=taken)
    shown = trace.time('lectern', 'takes', '101', after=paint)
    destroy = trace.time('lectern', 'sends-call', '', '', 'destroy')
    spawned = trace.time('service', 'spawns')
    forked = trace.time('service', 'received-packet', after=asked)
    calls = _calls_of_engine(trace)
    spans = [Span('command', 'starts, and starts the keeper of the bus', 0, keeper),
             Span('bus', 'the keeper starts and writes the folder of the bus', keeper, daemon),
             Span('bus', 'the daemon starts', daemon, hello),
             Span('command', 'joins the bus and calls', hello, create),
             Span('bus', 'the daemon starts the service', create, service),
             Span('service', 'starts, and starts the fork server', service, spawned),
             Span('service', 'joins the bus', joins, asked),
             Span('engine', 'the fork server starts the suite and forks', spawned, forked),
             Span('engine', 'connects', forked, calls[0][1]),
             *_work(calls, replied),
             Span('service', 'replies', max((end for _, _, end in calls if end <= replied), default=replied), replied),
             Span('command', 'receives the reply, and asks for a paint', told, paint),
             Span('service', 'paints', taken, painted),
             Span('command', WRITES, shown, destroy),
             Span('command', 'ends the service and the bus', destroy, events[-1].time)]
    return sorted(spans, key=lambda span: span.begin)


def _calls_of_engine(trace: Trace) -> list[tuple[str, float, float]]:
    """The calls on the first connection that is not the one to the bus."""
    bus = next(trace.all('service', 'sends-call', '', '', 'Hello')).details[0]
    engine = next((event.details[0] for event in trace.all('service', 'sends-call') if event.details[0] != bus), None)
    if engine is None:
        raise ValueError('the trace has no call of an engine')
    return list(trace.calls(engine))


def _work(calls: list[tuple[str, float, float]], until: float) -> Iterable[Span]:
    for method, begin, end in calls:
        if begin < until and end - begin >= SHORTEST:
            yield Span('engine', ENGINE_CALLS.get(method, f'answers {method}'), begin, end)


def shown_at(spans: list[Span]) -> float:
    """When the client has the first picture."""
    return next(span.begin for span in spans if span.label == WRITES)


def middle(runs: list[list[Span]]) -> list[Span]:
    """The run that has its picture neither early nor late, so that the drawn steps belong together."""
    return sorted(runs, key=shown_at)[len(runs) // 2]


def trace_once(document: pathlib.Path, scratch: pathlib.Path) -> list[Span]:
    file = scratch / 'trace'
    file.unlink(missing_ok=True)
    environment = {**os.environ, 'DBUS_SESSION_BUS_ADDRESS': '', 'XDG_RUNTIME_DIR': '', 'LECTERN_MILESTONES': str(file),
                   'LD_PRELOAD': str(BUILD / 'lib' / 'libmilestones.so')}
    subprocess.run([BUILD / 'bin' / 'lectern', 'open', document, '-o', scratch / 'picture.png'], env=environment,
                   check=True, capture_output=True, timeout=120)
    return spans_of(events_of(file.read_text()))


WIDTH, LEFT, RIGHT, TOP, ROW = 960, 20, 30, 92, 24


def draw(spans: list[Span], title: str) -> str:
    last = max(span.end for span in spans)
    scale = (WIDTH - LEFT - RIGHT) / last
    bottom = TOP + ROW * len(spans)
    parts = [f'<?xml version="1.0" encoding="UTF-8"?>\n<!-- SPDX-License-Identifier: Apache-2.0 -->\n'
             f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {bottom + 40}" width="{WIDTH}" '
             f'height="{bottom + 40}" font-family="Liberation Sans, DejaVu Sans, Arial, sans-serif" font-size="13">\n'
             f'  <title>{escape(title)}</title>\n  <rect width="{WIDTH}" height="{bottom + 40}" fill="#ffffff"/>\n'
             f'  <text x="{LEFT}" y="28" font-size="17" font-weight="bold" fill="#0f172a">{escape(title)}</text>']
    for i, (part, colour) in enumerate(COLOURS.items()):
        x = LEFT + 130 * i
        parts.append(f'  <rect x="{x}" y="44" width="16" height="14" fill="{colour}"/>'
                     f'<text x="{x + 22}" y="56" fill="#334155">{part}</text>')
    step = next(step for step in (10, 20, 50, 100, 200, 500, 1000) if last / step <= 14)
    for tick in range(0, int(last) + 1, step):
        x = LEFT + tick * scale
        parts.append(f'  <line x1="{x:.1f}" y1="{TOP - 8}" x2="{x:.1f}" y2="{bottom}" stroke="#e2e8f0"/>'
                     f'<text x="{x:.1f}" y="{bottom + 20}" text-anchor="middle" fill="#64748b">{tick}</text>')
    parts.append(f'  <text x="{WIDTH - RIGHT}" y="{bottom + 36}" text-anchor="end" fill="#64748b">milliseconds</text>')
    x = LEFT + shown_at(spans) * scale
    parts.append(f'  <line x1="{x:.1f}" y1="{TOP - 8}" x2="{x:.1f}" y2="{bottom}" stroke="#dc2626" stroke-dasharray="4 3"/>'
                 f'<text x="{x:.1f}" y="{TOP - 14}" text-anchor="middle" fill="#dc2626">first picture: '
                 f'{shown_at(spans):.0f}</text>')
    parts += [_bar(span, TOP + ROW * i, scale) for i, span in enumerate(spans)]
    return '\n'.join([*parts, '</svg>']) + '\n'


def _bar(span: Span, y: float, scale: float) -> str:
    begin, end = LEFT + span.begin * scale, LEFT + span.end * scale
    text = escape(f'{span.label}: {span.end - span.begin:.1f}')
    width = 6.4 * len(text)
    if width < end - begin:  # in the bar, beside it on the right, or on the left
        place = f'x="{begin + 6:.1f}"'
    elif end + width + 6 < WIDTH:
        place = f'x="{end + 6:.1f}"'
    else:
        place = f'x="{begin - 6:.1f}" text-anchor="end"'
    return (f'  <rect x="{begin:.1f}" y="{y}" width="{max(end - begin, 1.5):.1f}" height="{ROW - 6}" '
            f'fill="{COLOURS[span.part]}"/><text {place} y="{y + 13}" fill="#0f172a">{text}</text>')


def main(words: list[str]) -> int:
    if len(words) not in (1, 2):
        print(__doc__, file=sys.stderr)
        return 2
    document = pathlib.Path(words[1]) if len(words) == 2 else ROOT / 'samples' / 'tour.docx'
    with tempfile.TemporaryDirectory(prefix='lectern-chart-') as scratch:
        runs = [trace_once(document, pathlib.Path(scratch)) for _ in range(RUNS)]
    pathlib.Path(words[0]).write_text(
        draw(middle(runs), f'lectern open {document.name}, without a bus and a service'), encoding='utf-8')
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
