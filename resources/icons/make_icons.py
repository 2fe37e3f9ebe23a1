#!/usr/bin/env python3
# Writes the module's small icons (16 x 16 XPM, as C arrays the window backend includes):
# the letters of the assignment buttons, plus and minus of the favourites, the exclamation
# mark of the information line. Run it from this folder after changing a glyph.

GLYPHS = {  # 8 x 8 cells, each cell two pixels; '#' draws
    'L': ["##......", "##......", "##......", "##......", "##......", "##......", "#######.", "#######."],
    'S': [".######.", "##....##", "##......", ".#####..", "......##", "##....##", ".######.", "........"],
    'B': ["######..", "##...##.", "##...##.", "######..", "##...##.", "##...##.", "######..", "........"],
    '+': ["........", "...##...", "...##...", ".######.", ".######.", "...##...", "...##...", "........"],
    '-': ["........", "........", "........", ".######.", ".######.", "........", "........", "........"],
    '!': ["...##...", "...##...", "...##...", "...##...", "...##...", "........", "...##...", "........"],
}

ICONS = [  # resource number, glyph, colour
    (10308, 'L', '#1F4E9A'), (10304, 'S', '#1F4E9A'), (10305, 'B', '#1F4E9A'),
    (10302, 'L', '#1F4E9A'), (10300, 'S', '#1F4E9A'), (10301, 'B', '#1F4E9A'),
    (10321, '+', '#1E7B34'), (10322, '-', '#B3261E'), (10112, '!', '#C77700'),
]


def xpm(number, glyph, colour):
    rows = []
    for line in GLYPHS[glyph]:
        row = ''.join(('X' if c == '#' else ' ') * 2 for c in line)
        rows += [row, row]
    body = ',\n'.join('"%s"' % r for r in rows)
    return ('/* XPM */\n// Icon %d of the module: "%s".\n'
            'static const char* const icon_%d_xpm[] = {\n"16 16 2 1",\n"  c None",\n"X c %s",\n%s};\n'
            % (number, glyph, number, colour, body))


if __name__ == '__main__':
    for number, glyph, colour in ICONS:
        with open('icon_%d.xpm' % number, 'w') as f:
            f.write(xpm(number, glyph, colour))
