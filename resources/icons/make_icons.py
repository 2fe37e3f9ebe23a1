#!/usr/bin/env python3
# Writes the module's small icons (16 x 16 XPM, as C arrays the window backend includes):
# the letters of the assignment buttons, plus and minus of the favourites, the exclamation
# mark of the information line, and the view pictograms of the standard parts (a wire cube
# with the viewed face filled, the 3D view as a shaded cube; the icon of the view an edited
# part was stored in carries an orange dot). Run it from this folder after changing a glyph.

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

VIEW_ICONS = [  # view, its icon, the icon of the view an edited part was stored in
    ('left', 10181, 10164), ('top', 10116, 10115), ('front', 10155, 10154), ('3D', 10132, 10130),
    ('right', 10287, 10286), ('bottom', 10153, 10135), ('back', 10134, 10110),
]

# The pixels' colours; '.' is transparent.
PALETTE = {
    '.': 'None',
    'E': '#303030',  # edges in front
    'H': '#8C8C8C',  # edges behind
    'F': '#3A76D0',  # the viewed face
    'T': '#A9C8F0',  # 3D: top face
    'S': '#5A8FDA',  # 3D: left face
    'D': '#2A5AA8',  # 3D: right face
    'O': '#F07800',  # the stored view's dot
    'o': '#F7BB80',  # its rounded corners
}

# The wire cube in oblique view: the front square lower left, the back square up and right.
FRONT = [(0, 5), (9, 5), (9, 14), (0, 14)]
BACK = [(4, 1), (13, 1), (13, 10), (4, 10)]
FACES = {  # each face by its corners (pixel numbers)
    'front': FRONT,
    'back': BACK,
    'top': [FRONT[0], FRONT[1], BACK[1], BACK[0]],
    'bottom': [FRONT[3], FRONT[2], BACK[2], BACK[3]],
    'left': [FRONT[0], FRONT[3], BACK[3], BACK[0]],
    'right': [FRONT[1], FRONT[2], BACK[2], BACK[1]],
}
# The three edges of the corner behind (back, bottom, left) are drawn lighter.
HIDDEN_EDGES = [(BACK[3], BACK[0]), (BACK[3], BACK[2]), (BACK[3], FRONT[3])]
VISIBLE_EDGES = [(FRONT[i], FRONT[(i + 1) % 4]) for i in range(4)] + \
                [(BACK[0], BACK[1]), (BACK[1], BACK[2])] + \
                [(FRONT[0], BACK[0]), (FRONT[1], BACK[1]), (FRONT[2], BACK[2])]

# The 3D view: an isometric cube, its top, left and right faces shaded.
ISO_TOP, ISO_UL, ISO_UR = (6, 1), (0, 4), (12, 4)
ISO_MID, ISO_LL, ISO_LR, ISO_BOTTOM = (6, 7), (0, 11), (12, 11), (6, 14)
ISO_FACES = [
    ('T', [ISO_TOP, ISO_UR, ISO_MID, ISO_UL]),
    ('S', [ISO_UL, ISO_MID, ISO_BOTTOM, ISO_LL]),
    ('D', [ISO_MID, ISO_UR, ISO_LR, ISO_BOTTOM]),
]
# The edges of the left half; the right half mirrors them, so that the cube stands straight.
ISO_EDGES = [(ISO_UL, ISO_TOP), (ISO_UL, ISO_LL), (ISO_LL, ISO_BOTTOM), (ISO_UL, ISO_MID), (ISO_MID, ISO_BOTTOM)]
ISO_AXIS = 12  # x of a pixel plus x of its mirror

# The dot of the stored view in the lower right corner, which both cubes leave free.
DOT = ["oOOo", "OOOO", "OOOO", "oOOo"]


def inside(poly, x, y):
    # Whether pixel (x, y) lies in the convex polygon or on its border.
    sign = 0
    for i, (ax, ay) in enumerate(poly):
        bx, by = poly[(i + 1) % len(poly)]
        cross = (bx - ax) * (y - ay) - (by - ay) * (x - ax)
        if cross == 0:
            continue
        s = 1 if cross > 0 else -1
        if sign and s != sign:
            return False
        sign = s
    return True


def line(pixels, a, b, colour):
    (x0, y0), (x1, y1) = a, b
    dx, dy = abs(x1 - x0), -abs(y1 - y0)
    sx, sy = (1 if x1 > x0 else -1), (1 if y1 > y0 else -1)
    err = dx + dy
    while True:
        pixels[y0][x0] = colour
        if (x0, y0) == (x1, y1):
            return
        e2 = 2 * err
        if e2 >= dy:
            err += dy
            x0 += sx
        if e2 <= dx:
            err += dx
            y0 += sy


def view_pixels(view, stored):
    pixels = [['.'] * 16 for _ in range(16)]
    if view == '3D':
        for colour, poly in ISO_FACES:
            for y in range(16):
                for x in range(16):
                    if inside(poly, x, y):
                        pixels[y][x] = colour
        for a, b in ISO_EDGES:
            line(pixels, a, b, 'E')
            line(pixels, (ISO_AXIS - a[0], a[1]), (ISO_AXIS - b[0], b[1]), 'E')
    else:
        # The front face hides the edges behind it; the others are seen through.
        if view == 'front':
            for a, b in HIDDEN_EDGES:
                line(pixels, a, b, 'H')
        for y in range(16):
            for x in range(16):
                if inside(FACES[view], x, y):
                    pixels[y][x] = 'F'
        if view != 'front':
            for a, b in HIDDEN_EDGES:
                line(pixels, a, b, 'H')
        for a, b in VISIBLE_EDGES:
            line(pixels, a, b, 'E')
    if stored:
        for dy, row in enumerate(DOT):
            for dx, c in enumerate(row):
                if c != '.':
                    pixels[12 + dy][12 + dx] = c
    return [''.join(row) for row in pixels]


def view_xpm(number, view, stored):
    rows = view_pixels(view, stored)
    used = sorted({c for row in rows for c in row})
    colours = ''.join('"%s c %s",\n' % (c, PALETTE[c]) for c in used)
    body = ',\n'.join('"%s"' % r for r in rows)
    what = 'view "%s"%s' % (view, ', the stored one' if stored else '')
    return ('/* XPM */\n// Icon %d of the module: %s.\n'
            'static const char* const icon_%d_xpm[] = {\n"16 16 %d 1",\n%s%s};\n'
            % (number, what, number, len(used), colours, body))


def xpm(number, glyph, colour):
    rows = []
    for line_ in GLYPHS[glyph]:
        row = ''.join(('X' if c == '#' else ' ') * 2 for c in line_)
        rows += [row, row]
    body = ',\n'.join('"%s"' % r for r in rows)
    return ('/* XPM */\n// Icon %d of the module: "%s".\n'
            'static const char* const icon_%d_xpm[] = {\n"16 16 2 1",\n"  c None",\n"X c %s",\n%s};\n'
            % (number, glyph, number, colour, body))


if __name__ == '__main__':
    for number, glyph, colour in ICONS:
        with open('icon_%d.xpm' % number, 'w') as f:
            f.write(xpm(number, glyph, colour))
    for view, plain, stored in VIEW_ICONS:
        for number, is_stored in ((plain, False), (stored, True)):
            with open('icon_%d.xpm' % number, 'w') as f:
                f.write(view_xpm(number, view, is_stored))
