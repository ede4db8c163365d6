# SPDX-License-Identifier: Apache-2.0
"""What scripts/bench measures. Each function makes one group of experiments; a new row goes into an experiment's `rows`.

Goals are upper limits. Those of opens are ratios to the suite's own conversion of the file, and of steps and zooms to
the suite's own time for the pixels on screen. Growth compares the largest size with the smallest; 1 would be none,
and half as much again is left for the noise of a machine that does other work.
"""
from collections.abc import Callable
from dataclasses import dataclass
from pathlib import Path

from table.documents import HIT, Documents
from table.experiment import Experiment, Figures, Row, Way, figure
from table.ways import SAMPLES, Ways

PHONE = (480, 800)
TABLET = (1080, 1920)
GROWTH = 1.5
NOISE = 1.05  # of a goal to be as fast as another program
AS_FAST = 1.25  # of frames that take a fraction of a millisecond, measured one after the other


@dataclass(frozen=True)
class Sizes:
    """How much is measured. The short form shows only that everything still works."""
    rounds: int
    long_text: int
    long_sheet: int
    crowd: tuple[int, ...]
    pages: tuple[int, ...]
    rows: tuple[int, ...]
    seconds: float
    screens: tuple[tuple[int, int], ...]  # on which frames are measured
    raster_rounds: int


FULL = Sizes(7, 200, 20_000, (1, 2, 10, 50), (10, 100, 1_000), (1_000, 10_000, 100_000), 60, (PHONE, TABLET), 41)
SHORT = Sizes(1, 6, 300, (1, 2), (2, 4), (100, 200), 1, (PHONE,), 1)


def experiments(ways: Ways, documents: Documents, sizes: Sizes) -> list[Experiment]:
    return [*_opens(ways, documents, sizes), _crowd(ways, sizes), *_scales(ways, documents, sizes),
            *_frames(ways, documents, sizes), *_engine(ways, documents, sizes), _channels(ways, sizes),
            _raster(ways, sizes), _idle(ways, sizes)]


def _open(name: str, title: str, document: Path, goals: tuple[float, float], ways: Ways, rounds: int,
          other: tuple[str, Callable[[Path], Callable[[], Figures]]] | None) -> Experiment:
    ready, demand = goals
    suite = figure('soffice.whole')
    rows = [Row('service ready; soffice', figure('service.ready'), suite, ready),
            Row('service started for it; soffice', figure('service.demand'), suite, demand),
            Row('whole command, private bus and picture included; soffice', figure('command.whole'), suite, demand),
            Row('service ready; bare engine program', figure('service.ready'), figure('bare.whole'))]
    measured = {'soffice': Way(ways.soffice(document), 'soffice'), 'bare': Way(ways.bare(document, *PHONE)),
                'command': Way(ways.command(document, *PHONE)),
                'service': Way(ways.own('service_bench', 'open', document, *PHONE))}
    if other:
        measured[other[0]] = Way(other[1](document), other[0])
        rows.append(Row(f'service ready; {other[0]}', figure('service.ready'), figure(f'{other[0]}.whole')))
    return Experiment(name, f'Open to first picture, {title}, {PHONE[0]}x{PHONE[1]}', rounds, measured, rows)


def _opens(ways: Ways, documents: Documents, sizes: Sizes) -> list[Experiment]:
    abiword, ssconvert = ('abiword', ways.abiword), ('ssconvert', ways.ssconvert)
    text, sheet = sizes.long_text, sizes.long_sheet
    return [
        _open('open-text', 'tour.docx', SAMPLES / 'tour.docx', (0.10, 0.35), ways, sizes.rounds, abiword),
        _open('open-long-text', f'text of {text} pages', documents.pages(text), (0.45, 0.60), ways, sizes.rounds, abiword),
        _open('open-sheet', 'tour.xlsx', SAMPLES / 'tour.xlsx', (0.10, 0.35), ways, sizes.rounds, ssconvert),
        _open('open-long-sheet', f'{sheet:,} rows', documents.rows(sheet), (0.20, 0.40), ways, sizes.rounds, ssconvert),
        _open('open-slides', 'tour.pptx', SAMPLES / 'tour.pptx', (0.10, 0.35), ways, sizes.rounds, None)]


def _crowd(ways: Ways, sizes: Sizes) -> Experiment:
    """Memory is the sum over the service and all its processes, the fork server included."""
    most = sizes.crowd[-1]
    limit = 1.5 * 1024 if most == FULL.crowd[-1] else None

    def each(kind: str) -> Callable[[Figures], float]:
        return lambda all_: (all_[f'crowd.{kind}-{most}'] - all_[f'crowd.{kind}-1']) / (most - 1)
    rows = [Row('service without a document, private', figure('crowd.private-0'), unit='MiB'),
            Row('with the first document, private', figure('crowd.private-1'), unit='MiB'),
            Row('with the first document, PSS', figure('crowd.pss-1'), unit='MiB'),
            Row('each document after the first, private', each('private'), goal=25, unit='MiB'),
            Row('each document after the first, PSS', each('pss'), goal=25, unit='MiB'),
            Row(f'{most} documents, private', figure(f'crowd.private-{most}'), unit='MiB'),
            Row(f'{most} documents, PSS', figure(f'crowd.pss-{most}'), goal=limit, unit='MiB')]
    rows += [Row(f'open of document {count}; of document 2', figure(f'crowd.open-{count}'), figure('crowd.open-2'), GROWTH)
             for count in sizes.crowd[2:]]
    crowd = ways.own('service_bench', 'crowd', SAMPLES / 'tour.docx', *PHONE, *sizes.crowd)
    return Experiment('crowd', 'Many small documents open, tour.docx', 1, {'crowd': Way(crowd)}, rows)


def _scale(name: str, title: str, counts: tuple[int, ...], make: Callable[[int], Path], ways: Ways,
           rounds: int) -> Experiment:
    measured, rows = {}, []
    for count in counts:
        document = make(count)
        measured[f'bare{count}'] = Way(ways.own('bare_read', document))
        measured[f'service{count}'] = Way(ways.own('service_bench', 'open', document, *PHONE))
        rows.append(Row(f'{count:,} {title}, service ready; suite reads the file', figure(f'service{count}.ready'),
                        figure(f'bare{count}.read')))

    def rest(count: int) -> Callable[[Figures], float]:
        """An open's time without that of reading the file; a millisecond at least, to divide by."""
        return lambda all_: max(all_[f'service{count}.ready'] - all_[f'bare{count}.read'], 1)
    rows.append(Row(f'all but reading the file, {counts[-1]:,} {title}; {counts[0]:,}', rest(counts[-1]), rest(counts[0]),
                    GROWTH))
    return Experiment(name, f'Open of more and more {title}', rounds, measured, rows)


def _scales(ways: Ways, documents: Documents, sizes: Sizes) -> list[Experiment]:
    rounds = min(3, sizes.rounds)
    return [_scale('scale-pages', 'pages', sizes.pages, documents.pages, ways, rounds),
            _scale('scale-rows', 'rows', sizes.rows, documents.rows, ways, rounds)]


def _frames(ways: Ways, documents: Documents, sizes: Sizes) -> list[Experiment]:
    kinds = [('text', documents.pages(sizes.long_text, hits=1_000), HIT, 'word'),
             ('sheet', documents.rows(min(5_000, sizes.long_sheet)), HIT, 'excel'),
             ('slides', documents.slides(40), 'needle', 'ppt')]
    made = []
    for kind, document, word, touch_kind in kinds:
        for width, height in sizes.screens:
            moves = [document, width, height, sizes.seconds, word]
            measured = {'frames': Way(ways.own('service_bench', 'frames', *moves)),
                        'touch': Way(ways.own('service_bench', 'frames', *moves, touch_kind))}
            rows = [Row('frames over 8.3 ms', figure('frames.over-8.3'), goal=0.5, unit='%'),
                    Row('frames over 16 ms', figure('frames.over-16'), unit='%'),
                    Row('longest frame', figure('frames.longest'), goal=16),
                    Row('median frame', figure('frames.median')),
                    Row('frames', figure('frames.frames'), unit=''),
                    Row('touch manners, frames over 8.3 ms', figure('touch.over-8.3'), goal=0.5, unit='%'),
                    Row('touch manners, frames over 16 ms', figure('touch.over-16'), unit='%'),
                    Row('touch manners, longest frame; the classic view', figure('touch.longest'), figure('frames.longest')),
                    Row('touch manners, median frame; the classic view', figure('touch.median'), figure('frames.median'),
                        AS_FAST),
                    Row('touch manners, frames', figure('touch.frames'), unit='')]
            made.append(Experiment(f'frames-{kind}-{width}x{height}',
                                   f'{sizes.seconds:g} s of drags, flings, pinches and steps to hits, {kind}, {width}x{height}',
                                   1, measured, rows))
    return made


def _engine(ways: Ways, documents: Documents, sizes: Sizes) -> list[Experiment]:
    text = documents.pages(sizes.long_text, hits=1_000)
    search = Experiment(
        'search', f'Search in {sizes.long_text} pages, 320x480', min(3, sizes.rounds),
        {'bare': Way(ways.own('bare_find', text, 320, 1562, 72, HIT)),
         'service': Way(ways.own('service_bench', 'search', text, HIT, 150))},
        [Row("search, call to reply; the suite's own", figure('service.search'), figure('bare.find')),
         Row("step to another stretch with its paint; the suite's paint", figure('service.step'), figure('bare.paint'), 1.1),
         Row('the same, places known', figure('service.again'), figure('bare.paint'), 1.1)])
    zoom = Experiment(
        'zoom', f'Layout of {sizes.long_text} pages for another width', min(3, sizes.rounds),
        {'bare': Way(ways.bare(documents.pages(4), *PHONE)),
         'service': Way(ways.own('service_bench', 'zoom', text, *PHONE))},
        [Row(f"{change}; the suite's layout and paint of 4 pages", figure(f'service.{change}'),
             lambda all_: all_['bare.reflow'] + all_['bare.paint'], 1.5) for change in ('zoom', 'wide')])
    sheet = Experiment(
        'sheet', 'Sheet module, 1500x1500', min(3, sizes.rounds),
        {'module': Way(ways.own('sheet_figures', documents.rows(min(5_000, sizes.long_sheet)), HIT))},
        [Row(f"{work}; the suite's own", figure(f'module.{work}'), figure(f'module.suite-{work}'), goal)
         for work, goal in (('render', 1.1), ('find', None), ('sort', None))])
    slides = Experiment(
        'slides', f'Slide module, {PHONE[0]}x{PHONE[1]}', min(3, sizes.rounds),
        {'module': Way(ways.own('slide_figures', documents.slides(40), *PHONE))},
        [Row("another slide; the suite's own", figure('module.module'), figure('module.suite'), 1.1),
         Row("a slide shown before; the suite's own", figure('module.kept'), figure('module.suite'))])
    return [search, zoom, sheet, slides]


def _channels(ways: Ways, sizes: Sizes) -> Experiment:
    tour = SAMPLES / 'tour.docx'
    count = 300 * sizes.rounds
    return Experiment(
        'channels', 'Round trips between client and service', 1,
        {'paint': Way(ways.own('service_bench', 'paint', tour, *PHONE, count)),
         'bus': Way(ways.own('service_bench', 'call', tour, count))},
        [Row('paint of a rendered part, 480x800; two copies of the frame', figure('paint.trip'), figure('paint.copies'), 1.6),
         Row('bus call; a call to the bus daemon itself', figure('bus.call'), figure('bus.daemon'), 2.2)])


# Of raster_bench's rows: the most that an operation may take, in copies of as many pixels.
COPIES = {'copy, whole': 1.05, 'copy, scrolled': 1.15, 'paint, covered': 1.7, 'paint, in a wider one': 1.7,
          'paint, half outside': 1.4, 'turn to the left': 1.45, 'turn to the right': 1.45, 'half turn': 1.05,
          'translucent fill': 0.96, 'erase': 0.47, 'scale x2': 0.75, 'scale x1.25': 0.95, 'scale x1': 1.05,
          'scale x0.7': 2.95, 'scale x0.4': 6}


def _raster(ways: Ways, sizes: Sizes) -> Experiment:
    size = f'{PHONE[0]}x{PHONE[1]}'

    def ours(operation: str) -> Callable[[Figures], float]:
        return figure(f'raster.{operation} {size} ours/memcpy')
    rows = [Row(operation, ours(operation), goal=goal, unit='copies') for operation, goal in COPIES.items()]
    rows += [Row(f'{operation}; pixman', ours(operation), figure(f'pixman.{operation} {size} pixman/memcpy'), NOISE, 'copies')
             for operation in COPIES if not operation.startswith('paint')]
    return Experiment('raster', f'Raster operations, {size}, in copies of as many pixels', 1,
                      {'raster': Way(ways.raster('raster_bench', sizes.raster_rounds)),
                       'pixman': Way(ways.raster('pixman_bench', sizes.raster_rounds), 'pixman')}, rows)


def _idle(ways: Ways, sizes: Sizes) -> Experiment:
    rest = ways.own('service_bench', 'idle', SAMPLES / 'tour.docx', *PHONE, max(1, int(sizes.seconds / 3)))
    return Experiment('idle', 'At rest', 1, {'idle': Way(rest)},
                      [Row('wake-ups of all threads with an open document', figure('idle.wakeups'), goal=0, unit='/s')])
