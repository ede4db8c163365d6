# SPDX-License-Identifier: Apache-2.0
"""Tests of the steps that bench/trace/chart.py finds in a trace."""
import unittest
from xml.etree import ElementTree

import chart

# Milliseconds, process, program and event of an open; the serial numbers pair calls and returns.
STEPS = """
0 1 lectern start
1 1 lectern spawns keeper
2 2 lectern-keeper start
3 3 dbus-daemon start
5 1 lectern sends-call 7 1 Hello
6 1 lectern sends-call 7 2 create
8 4 service start
9 4 service spawns server
10 4 service sends-call 9 1 Hello
12 4 service received-call 9 2 create
13 4 service sends-packet 11
100 4 service received-packet 11
101 4 service sends-call 12 2 Open
180 4 service received-return 12 2
200 4 service sends-call 12 3 StretchPlace
220 4 service received-return 12 3
221 4 service sends-return 9 2
222 1 lectern received-return 7 2
223 1 lectern posts 1
224 4 service takes 1
225 4 service posts 101
226 1 lectern takes 101
230 1 lectern sends-call 7 3 destroy
240 4 service end
250 1 lectern end
"""


def trace(steps=STEPS):
    lines = (line.split(' ', 1) for line in steps.strip().splitlines())
    return '\n'.join(f'{5_000_000 + int(time) * 1000} {rest}' for time, rest in lines)


class ChartTest(unittest.TestCase):
    def spans(self, steps=STEPS):
        return {(span.part, span.label): (span.begin, span.end) for span in chart.spans_of(chart.events_of(trace(steps)))}

    def test_an_engines_calls_last_until_their_returns(self):
        spans = self.spans()
        self.assertEqual(spans['engine', 'the fork server starts the suite and forks'], (9, 100))
        self.assertEqual(spans['engine', 'the suite reads the file'], (101, 180))
        self.assertEqual(spans['engine', 'lays out and paints the first stretch'], (200, 220))

    def test_the_end_is_the_last_event(self):
        self.assertEqual(self.spans()['command', 'ends the service and the bus'], (230, 250))

    def test_lines_may_be_out_of_order(self):
        lines = STEPS.strip().splitlines()
        self.assertEqual(self.spans('\n'.join(reversed(lines))), self.spans())

    def test_a_trace_without_a_step_names_it(self):
        with self.assertRaisesRegex(ValueError, 'takes 101'):
            self.spans(STEPS.replace('takes 101', 'takes 102'))

    def test_the_run_in_the_middle_is_drawn(self):
        def run(shown):
            return [chart.Span('command', chart.WRITES, shown, shown + 1)]
        self.assertEqual(chart.middle([run(30), run(10), run(20)]), run(20))

    def test_the_picture_is_well_formed_and_has_every_step(self):
        spans = chart.spans_of(chart.events_of(trace()))
        texts = [text.text for text in ElementTree.fromstring(chart.draw(spans, 'a < b').split('?>')[1]).iter()]
        for span in spans:
            self.assertIn(f'{span.label}: {span.end - span.begin:.1f}', texts)
        self.assertIn('first picture: 226', texts)


if __name__ == '__main__':
    unittest.main()
