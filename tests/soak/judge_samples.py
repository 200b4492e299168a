#!/usr/bin/env python3
"""Says whether what a soak program holds has grown, and draws it.

usage: judge_samples.py SAMPLES.csv TITLE PLOT.svg

Once the program has warmed up, what it holds must be the same after every cycle. On Windows the
system's libraries live in the process as well and keep something now and then: so many blocks or
handles are theirs, and the heap may grow by less than a byte a cycle. What is counted in pages
(resident and private memory) varies, but must not grow. The exit status is 1 when something grows.
"""

import csv
import sys
from xml.sax.saxutils import escape

# What the system's libraries keep for later they have after so many cycles; short runs are judged by
# their second half.
WARM_UP_CYCLES = 300
WARM_UP_SHARE = 0.05
# Bytes a cycle from which on they grow. Before so many cycles it is too early to say; sanitizers
# alone keep up to 256 MB of freed memory.
HEAP_GROWTH = 1
PAGED_GROWTH = 64
ENOUGH_CYCLES = 1000
PAGED = ("resident_bytes", "private_bytes")
# Of GDI objects Wine makes up to six at once, the first time that it draws something.
KEPT_BY_WINDOWS = {"heap_blocks": 10, "handles": 1, "gdi_objects": 8}

PANEL_WIDTH, PANEL_HEIGHT = 760, 90
LEFT, TOP, GAP, RIGHT = 110, 46, 38, 20


def read(path):
    """The columns by name, in the file's order, as lists of integers."""
    with open(path, newline="", encoding="ascii") as file:
        rows = list(csv.reader(file))
    return {name: [int(row[i]) for row in rows[1:]] for i, name in enumerate(rows[0])}


def slope(xs, ys):
    """Of the least-squares line."""
    mean_x, mean_y = sum(xs) / len(xs), sum(ys) / len(ys)
    spread = sum((x - mean_x) ** 2 for x in xs)
    return sum((x - mean_x) * (y - mean_y) for x, y in zip(xs, ys)) / spread if spread else 0.0


def judge(name, cycles, values, is_windows):
    """A line for the reader, and whether all is well."""
    growth = slope(cycles, values)
    low, high = min(values), max(values)
    is_early = cycles[-1] < ENOUGH_CYCLES
    if name in PAGED:
        is_flat = growth < PAGED_GROWTH or is_early
    elif name == "heap_bytes" and is_windows:
        is_flat = growth < HEAP_GROWTH or is_early
    else:
        is_flat = high - low <= (KEPT_BY_WINDOWS.get(name, 0) if is_windows else 0)
    remark = f"{low:,}" if low == high else f"{low:,} to {high:,}, {growth:+.4f} a cycle"
    return f"{'flat' if is_flat else 'GROWS':6}{name:16}{remark}", is_flat


def panel(top, name, cycles, values, warm_up):
    """One curve above the others' common axis; zero is at its bottom."""
    first, last = cycles[0], cycles[-1]
    highest = max(values) * 1.15 or 1

    def x_of(cycle):
        return LEFT + PANEL_WIDTH * (cycle - first) / max(last - first, 1)

    def y_of(value):
        return top + PANEL_HEIGHT * (1 - value / highest)

    last_sample = len(values) - 1
    points = " ".join(
        f"{x_of(cycle):.1f},{y_of(value):.1f}"
        for i, (cycle, value) in enumerate(zip(cycles, values))
        if i in (0, last_sample) or not values[i - 1] == value == values[i + 1])
    bottom = top + PANEL_HEIGHT
    return f"""
<rect x="{LEFT}" y="{top}" width="{x_of(warm_up) - LEFT:.1f}" height="{PANEL_HEIGHT}" fill="#eee"/>
<path d="M{LEFT},{top} V{bottom} H{LEFT + PANEL_WIDTH}" fill="none" stroke="#888"/>
<polyline points="{points}" fill="none" stroke="#1f5fa8" stroke-width="1.5"/>
<text x="{LEFT - 6}" y="{y_of(values[-1]) + 4:.1f}" text-anchor="end">{values[-1]:,}</text>
<text x="{LEFT - 6}" y="{bottom + 4}" text-anchor="end">0</text>
<text x="{LEFT + 6}" y="{top - 6}">{escape(name.replace("_", " "))}</text>"""


def plot(title, columns, warm_up):
    cycles = columns["cycle"]
    names = [name for name in columns if name not in ("cycle", "milliseconds")]
    height = TOP + len(names) * (PANEL_HEIGHT + GAP) + 10
    width = LEFT + PANEL_WIDTH + RIGHT
    panels = "".join(
        panel(TOP + 14 + i * (PANEL_HEIGHT + GAP), name, cycles, columns[name], warm_up)
        for i, name in enumerate(names))
    return f"""<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}"
 width="{width}" height="{height}" font-family="sans-serif" font-size="12" fill="#222">
<rect width="{width}" height="{height}" fill="#fff"/>
<text x="{LEFT}" y="22" font-size="15">{escape(title)}</text>{panels}
<text x="{LEFT + PANEL_WIDTH}" y="{height - 8}" text-anchor="end">cycles {cycles[0]:,} to \
{cycles[-1]:,}; grey: warm-up</text>
</svg>
"""


def main(samples, title, picture):
    columns = read(samples)
    cycles = columns["cycle"]
    warm_up = max(min(WARM_UP_CYCLES, cycles[-1] / 2), cycles[-1] * WARM_UP_SHARE)
    start = next(i for i, cycle in enumerate(cycles) if cycle > warm_up)
    is_windows = "handles" in columns
    all_flat = True
    for name, values in columns.items():
        if name not in ("cycle", "milliseconds"):
            line, is_flat = judge(name, cycles[start:], values[start:], is_windows)
            all_flat &= is_flat
            print(line)
    print(f"{columns['milliseconds'][-1] / cycles[-1]:.0f} ms a cycle, {len(cycles)} samples")
    with open(picture, "w", encoding="utf-8") as file:
        file.write(plot(f"{title}: {cycles[-1]:,} cycles", columns, warm_up))
    return 0 if all_flat else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
