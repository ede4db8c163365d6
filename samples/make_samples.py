#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the stored samples again, into the folder of this file: tour.docx, .doc, .txt,
.xlsx, .xls, .pptx and .ppt; and locked.docx, .doc, .xlsx, .xls and .pptx, with the
password "harbour".

LibreOffice saves the .doc, .xls and .ppt files and all locked ones; install it together
with python3-uno. python3-openpyxl writes the workbooks.
"""
import contextlib
import pathlib
import subprocess
import tempfile
import time

from docx_writer import Docx, png
from pptx_tour import tour as slides
from xlsx_tour import tour as workbook

HERE = pathlib.Path(__file__).resolve().parent


def harbour(x, y):
    """Returns the colour of a pixel of a small painting: sky, sun, hills and water."""
    if (x - 470) ** 2 + (y - 90) ** 2 < 45 ** 2:
        return 255, 214, 102
    ridge = 200 - abs((x * 3) % 400 - 200) // 4 - (x % 97) // 12
    if y < ridge:
        return 150 + y // 4, 190 + y // 6, 230
    if y < 240:
        return 92, 120 + (x % 23), 88
    return 40, 90 + ((x // 7 + y // 3) % 5) * 9, 140 + (y - 240) // 3


def tour():
    d = Docx(title='A Tour of the Harbour', author='The Lectern makers',
             description='One page of everything that a word-processing document is made of.',
             created='2026-01-05T08:30:00Z', modified='2026-02-11T16:05:00Z')
    d.heading('A Tour of the Harbour', 1, bookmark='start')
    d.paragraph(['This document shows ', d.text('bold', bold=True), ', ', d.text('italic', italic=True), ' and ',
                 d.text('coloured', colour='B00020'), ' text, a note at the foot',
                 d.footnote('The first ferry leaves at six; on Sundays it sleeps until eight.'),
                 ' and another at the end', d.endnote('Harbour masters keep their own clocks.'),
                 ', a link to ', d.link('a page elsewhere', 'https://example.org/harbour'), ' and one to ',
                 d.jump('the table below', 'tides'), '.'])
    d.heading('What to bring', 2)
    for words in ('A coat that forgives rain', 'Bread for the gulls', 'Time'):
        d.item(words)
    d.item('More of it than you think', depth=1)
    d.heading('How to get there', 2)
    for words in ('Follow the river until it stops being one.', 'Turn towards the sound of ropes.',
                  'Ask for the blue boat.'):
        d.item(words, numbered=True)
    d.heading('What you will see', 2)
    d.picture(png(640, 320, harbour), 640, 320)
    d.paragraph('The hills stand close to the water here, and on clear mornings the whole row of houses is seen '
                'twice: once on the quay, and once upside down between the boats.')
    d.heading('Tides and times', 2, bookmark='tides')
    days = ['Monday', 'Tuesday', 'Wednesday', 'Thursday', 'Friday', 'Saturday', 'Sunday']
    rows = [['Day', 'High water', 'Low water', 'First boat', 'Last boat', 'Moorings', 'Café', 'Remarks']]
    for i, day in enumerate(days):
        rows.append([day, f'{(4 + i * 50 // 60) % 12:02d}:{(i * 50) % 60:02d}', f'{(10 + i * 50 // 60) % 12:02d}:{(i * 50) % 60:02d}',
                     '06:00' if i < 6 else '08:00', '22:15', str(40 + i * 3), 'open' if i else 'closed',
                     'Market on the quay' if i == 5 else '–'])
    d.table(rows, column_twips=[1900] * 8)
    d.heading('In other words', 2)
    d.paragraph('English: Good morning, and welcome to the harbour.')
    d.paragraph('Deutsch: Guten Morgen und willkommen im schönen Hafen – für alle, groß und klein.')
    d.paragraph('Ελληνικά: Καλημέρα και καλώς ήρθατε στο λιμάνι.')
    d.paragraph('Русский: Доброе утро и добро пожаловать в гавань.')
    d.paragraph('صباح الخير وأهلا بكم في الميناء. يغادر القارب الأول في الساعة 6 صباحا.', rtl=True)
    d.paragraph('בוקר טוב וברוכים הבאים לנמל.', rtl=True)
    d.paragraph('中文：早上好，欢迎来到港口。第一班船早上六点出发。')
    d.paragraph('日本語：おはようございます。港へようこそ。最初の船は朝六時に出ます。')
    d.paragraph('한국어: 좋은 아침입니다. 항구에 오신 것을 환영합니다.')
    d.paragraph('हिन्दी: सुप्रभात, और बंदरगाह में आपका स्वागत है।')
    d.heading('And back again', 2)
    d.paragraph(['The way home begins at ', d.jump('the first page', 'start'), ', as it always does.'])
    return d


TEXT = '''A Tour of the Harbour

This is plain text in UTF-8: no fonts, no tables, only words and line breaks.
A long line is wrapped to the width of the screen, however wide or narrow that screen may be, and stays one paragraph.

What to bring:
- a coat that forgives rain
- bread for the gulls
- time

Guten Morgen! Καλημέρα! Доброе утро! صباح الخير! 早上好！おはようございます！좋은 아침!
'''


@contextlib.contextmanager
def office():
    """Provides the desktop object of a LibreOffice process with a new profile."""
    import uno
    with tempfile.TemporaryDirectory() as profile:
        process = subprocess.Popen(['soffice', f'-env:UserInstallation=file://{profile}', '--headless', '--norestore',
                                    '--accept=pipe,name=lectern-samples;urp;'])
        resolver = uno.getComponentContext().ServiceManager.createInstance('com.sun.star.bridge.UnoUrlResolver')
        for _ in range(100):
            with contextlib.suppress(Exception):
                context = resolver.resolve('uno:pipe,name=lectern-samples;urp;StarOffice.ComponentContext')
                break
            time.sleep(0.2)
        desktop = context.ServiceManager.createInstance('com.sun.star.frame.Desktop')
        try:
            yield desktop
        finally:
            with contextlib.suppress(Exception):
                desktop.terminate()
            process.wait()


def save_as(desktop, source, target, **properties):
    import uno

    def values(entries, kind='PropertyValue'):
        made = []
        for name, value in entries.items():
            entry = uno.createUnoStruct(f'com.sun.star.beans.{kind}')
            entry.Name, entry.Value = name, value
            made.append(entry)
        return tuple(made)

    if 'Password' in properties and target.suffix in ('.docx', '.xlsx', '.pptx'):
        # These formats take the password in another wrapping.
        secret = values({'CryptoType': 'Standard', 'OOXPassword': properties.pop('Password')}, 'NamedValue')
        properties['EncryptionData'] = uno.Any('[]com.sun.star.beans.NamedValue', secret)
    document = desktop.loadComponentFromURL(source.as_uri(), '_blank', 0, values({'Hidden': True}))
    uno.invoke(document, 'storeToURL', (target.as_uri(), uno.Any('[]com.sun.star.beans.PropertyValue', values(properties))))
    document.close(True)


def save_slides(desktop):
    source = HERE / 'tour.pptx'
    slides().save(source)
    save_as(desktop, source, HERE / 'tour.ppt', FilterName='MS PowerPoint 97')
    save_as(desktop, source, HERE / 'locked.pptx', FilterName='Impress MS PowerPoint 2007 XML', Password='harbour')


def main():
    source = HERE / 'tour.docx'
    tour().save(source)
    (HERE / 'tour.txt').write_text(TEXT, encoding='utf-8')
    with office() as desktop:
        save_as(desktop, source, HERE / 'tour.doc', FilterName='MS Word 97')
        save_as(desktop, source, HERE / 'locked.doc', FilterName='MS Word 97', Password='harbour')
        save_as(desktop, source, HERE / 'locked.docx', FilterName='MS Word 2007 XML', Password='harbour')
        save_slides(desktop)
        book = HERE / 'tour.xlsx'
        workbook(book)
        save_as(desktop, book, HERE / 'tour.xls', FilterName='MS Excel 97')
        save_as(desktop, book, HERE / 'locked.xls', FilterName='MS Excel 97', Password='harbour')
        save_as(desktop, book, HERE / 'locked.xlsx', FilterName='Calc MS Excel 2007 XML', Password='harbour')


if __name__ == '__main__':
    main()
