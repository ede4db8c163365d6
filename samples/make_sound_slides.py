#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes a presentation with a sound: make_sound_slides.py OUT.fodp

One slide, "The bell", which comes with a sound. That is bell.wav beside OUT.fodp;
saved as a .ppt by the office suite, the file holds it.
"""
import pathlib
import sys
import wave

NAMES = 'urn:oasis:names:tc:opendocument:xmlns:'
SLIDES = f'''<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="{NAMES}office:1.0" xmlns:style="{NAMES}style:1.0" xmlns:draw="{NAMES}drawing:1.0"
 xmlns:presentation="{NAMES}presentation:1.0" xmlns:svg="{NAMES}svg-compatible:1.0" xmlns:text="{NAMES}text:1.0"
 xmlns:xlink="http://www.w3.org/1999/xlink" office:version="1.2"
 office:mimetype="application/vnd.oasis.opendocument.presentation">
<office:automatic-styles><style:style style:name="sounding" style:family="drawing-page"><style:drawing-page-properties
 presentation:transition-style="fade-from-left"><presentation:sound xlink:href="bell.wav" xlink:type="simple"/>
</style:drawing-page-properties></style:style></office:automatic-styles>
<office:body><office:presentation><draw:page draw:name="one" draw:style-name="sounding">
<draw:frame svg:x="2cm" svg:y="2cm" svg:width="20cm" svg:height="2cm"><draw:text-box><text:p>The bell</text:p></draw:text-box></draw:frame>
</draw:page></office:presentation></office:body></office:document>
'''


def main():
    out = pathlib.Path(sys.argv[1])
    with wave.open(str(out.with_name('bell.wav')), 'wb') as sound:
        sound.setnchannels(1)
        sound.setsampwidth(2)
        sound.setframerate(8000)
        sound.writeframes(bytes(1600))
    out.write_text(SLIDES, encoding='utf-8')


if __name__ == '__main__':
    main()
