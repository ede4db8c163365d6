# SPDX-License-Identifier: Apache-2.0
"""The content of the sample presentation: one of each thing that slides can contain."""
from docx_writer import png
from pptx_writer import WIDE, Pptx


def painting(x, y):
    if (x - 250) ** 2 + (y - 50) ** 2 < 28 ** 2:
        return 255, 214, 102
    return (150 + y // 3, 190, 230) if y < 110 - (x % 120) // 4 else (40, 100 + (x // 9 + y // 3) % 5 * 9, 150)


def tour():
    deck = Pptx(WIDE, title='The Harbour in Slides', author='The Lectern makers',
                description='One of everything that slides are made of.',
                created='2026-01-05T08:30:00Z', modified='2026-02-11T16:05:00Z', on_master='Harbour office')
    wide = (48, 22, 864, 80)
    first = deck.slide()
    first.title('The Harbour in Slides', (80, 150, 800, 90), size=48)
    first.box('What boats, tides and ferries have to do with each other', (80, 260, 800, 50), size=24)
    first.note = 'Wait until the last ferry is in.\nThen begin.'
    points = deck.slide()
    points.title('What you will see', wide)
    points.body(['The quay and the boats that lie at it, from the smallest rowing boat to the ferry that crosses twice a day',
                 ('Rowing boats', 1), ('Sailing boats', 1), 'The tides', 'The lighthouse'], (48, 120, 864, 360))
    points.note = 'Point at the lighthouse.'
    table = deck.slide()
    table.title('Who sails when', wide)
    table.table([['Boat', 'Leaves', 'Returns'], ['Ferry', '06:00', '22:15'], ['Mail boat', '07:30', '12:00'],
                 ['Gull', 'always', 'never']], (48, 130, 864, 260), size=18)
    chart = deck.slide()
    chart.title('Guests of the ferry', wide)
    chart.bar_chart('Guests in a week', [('Mon', 40), ('Tue', 52), ('Wed', 31), ('Thu', 66), ('Fri', 80)], (48, 120, 500, 360))
    chart.picture(png(320, 200, painting), (580, 150, 320, 200))
    hidden = deck.slide(hidden=True)
    hidden.title('Only for the harbour master', wide)
    hidden.body(['This slide is hidden in a slide show, and shown here.'], (48, 120, 864, 100))
    words = deck.slide()
    words.title('In other words', wide)
    words.box('صباح الخير وأهلا بكم في الميناء', (48, 120, 420, 50), size=28, rtl=True)
    words.box('בוקר טוב וברוכים הבאים לנמל', (48, 190, 420, 50), size=28, rtl=True)
    words.box('早上好，欢迎来到港口', (48, 260, 420, 50), size=28)
    words.box('Καλημέρα και καλώς ήρθατε', (48, 330, 420, 50), size=28)
    words.box('a sign on the quay', (560, 220, 300, 60), size=28, angle=-20, fill='FFE9A8')
    untitled = deck.slide()
    untitled.title('', wide)
    untitled.box('A slide without a title', (300, 230, 400, 60), size=28)
    gone = untitled.box('This has gone away', (300, 330, 400, 60), size=28, fill='C8553D')
    untitled.goes_away(gone)
    return deck
