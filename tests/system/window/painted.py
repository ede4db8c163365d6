# SPDX-License-Identifier: Apache-2.0
"""What the service paints, to compare the screen with, and documents of more formats."""
import subprocess
import zipfile

from PIL import Image

from window.session import BUILD

RTF = r'{\rtf1\ansi\deff0{\fonts{\f0 Liberation Serif;}}' + ''.join(
    rf'\pard\f0\fs24 Paragraph {number} of a rich text.\par ' for number in range(80)) + '}'
HTML = '<!DOCTYPE html><html><body><h1>A page</h1>' + '<p>A paragraph of a page.</p>' * 80 + '</body></html>'
CSV = ''.join(f'{row},{row * row},a value\n' for row in range(200))

NAMESPACES = ' '.join(f'xmlns:{name}="urn:oasis:names:tc:opendocument:xmlns:{name}:1.0"' for name in (
    'office', 'text', 'table', 'presentation')) + ' xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"'\
    ' xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"'
BODIES = {
    'odt': ('text', '<office:text>' + '<text:p>A paragraph of an open text.</text:p>' * 80 + '</office:text>'),
    'ods': ('spreadsheet', '<office:spreadsheet><table:table table:name="One">' +
            '<table:table-row><table:table-cell office:value-type="string"><text:p>a cell</text:p></table:table-cell>'
            '</table:table-row>' * 200 + '</table:table></office:spreadsheet>'),
    'odp': ('presentation', '<office:presentation>' + ''.join(
        f'<draw:page draw:name="{number}"><draw:frame svg:x="2cm" svg:y="2cm" svg:width="20cm" svg:height="5cm">'
        f'<draw:text-box><text:p>Slide {number}</text:p></draw:text-box></draw:frame></draw:page>'
        for number in range(3)) + '</office:presentation>'),
}
MANIFEST = ('<manifest:manifest xmlns:manifest="urn:oasis:names:tc:opendocument:xmlns:manifest:1.0">'
            '<manifest:file-entry manifest:full-path="/" manifest:media-type="{kind}"/>'
            '<manifest:file-entry manifest:full-path="content.xml" manifest:media-type="text/xml"/></manifest:manifest>')


def write_document(folder, extension):
    """Writes a small document, longer than a screen, and returns its path. extension: rtf, html, csv, odt, ods or odp."""
    path = folder / f'made.{extension}'
    texts = {'rtf': RTF, 'html': HTML, 'csv': CSV}
    if extension in texts:
        path.write_text(texts[extension], encoding='utf-8')
        return path
    name, body = BODIES[extension]
    kind = f'application/vnd.oasis.opendocument.{name}'
    with zipfile.ZipFile(path, 'w') as archive:
        archive.writestr('mimetype', kind)
        archive.writestr('META-INF/manifest.xml', MANIFEST.format(kind=kind))
        archive.writestr('content.xml', f'<office:document-content {NAMESPACES} office:version="1.2"><office:body>{body}'
                                        '</office:body></office:document-content>')
    return path


def painted(session, path, size, *options, dpi=96):
    """What the service paints of a document for `lectern open` with these options, in another view of the same size."""
    out = session.folder / 'painted.png'
    subprocess.run([BUILD / 'bin/lectern', 'open', path, '-o', out, '--dpi', str(dpi),
                    '--size', f'{size[0]}x{size[1]}', *options], check=True, stdout=subprocess.DEVNULL)
    with Image.open(out) as image:
        return image.convert('RGB')


def height_of_title(picture):
    """How many rows of pixels the first line of a text has."""
    grey = picture.convert('L')
    rows = [grey.crop((0, y, grey.width, y + 1)).getextrema()[0] < 128 for y in range(grey.height)]
    begin = rows.index(True) if True in rows else 0
    return rows.index(False, begin) - begin if False in rows[begin:] else 0
