#!/usr/bin/env python3
"""Prints rows of frames for geometry tests, computed with Python's 64-bit floats.

    window source target scale | frame of a user state | of a built-in one, applied | computed | on
    the next display

A rectangle is x y width height, the scale width height. The window was saved on the display
`source` and goes to `target`.
"""
import math
import random
import struct
import sys

ALLOWANCE = 23


def narrowed(value):
    return struct.unpack("f", struct.pack("f", value))[0]


def rounded(value):
    whole = math.trunc(value)
    return whole + math.copysign(1, value) if abs(value - whole) >= 0.5 else whole


def user(w, s, t):
    return [rounded((w[0] - s[0]) / s[2] * t[2] + t[0]),
            rounded((w[1] - s[1]) / s[3] * t[3] + t[1]) - ALLOWANCE,
            w[2] / s[2] * t[2],
            w[3] / s[3] * t[3] + ALLOWANCE]


def built_in(t, scale, whole):
    size = [t[2] * scale[0], t[3] * scale[1]]
    return [whole(t[i] + (t[2 + i] - size[i]) * 0.5) for i in (0, 1)] + size


def on_next(w, s, t):
    # A sum, difference or product of two 32-bit floats, rounded to 64 and then to 32 bits, is as if
    # rounded to 32 bits at once.
    ratio = [narrowed(t[2 + i] / s[2 + i]) for i in (0, 1)]
    offset = [abs(narrowed(abs(narrowed(s[i])) - abs(narrowed(w[i])))) for i in (0, 1)]
    origin = [narrowed(offset[i] * ratio[i]) + t[i] for i in (0, 1)]
    return [narrowed(value) for value in origin + [ratio[i] * w[2 + i] for i in (0, 1)]]


def display(rng):
    return ([rng.uniform(-5000, 5000) if rng.random() < 0.3 else rng.randrange(-5000, 5000)
             for _ in range(2)] +
            [rng.uniform(300, 8000) if rng.random() < 0.3 else rng.randrange(300, 8000)
             for _ in range(2)])


def main():
    rng = random.Random(20)
    for _ in range(int(sys.argv[1])):
        source, target = display(rng), display(rng)
        window = [source[i] + rng.uniform(-0.2, 1) * source[2 + i] for i in (0, 1)] + [
            source[2 + i] * rng.uniform(0.05, 1) for i in (0, 1)]
        if rng.random() < 0.5:
            window = [float(round(value)) for value in window]
        scale = [rng.choice([0.9, 0.8, 0.65, rng.uniform(0.05, 1)]) for _ in range(2)]
        row = (window + source + target + scale + user(window, source, target) +
               built_in(target, scale, float) +
               built_in(target, scale, lambda value: math.ceil(narrowed(value))) +
               on_next(window, source, target))
        print(*(repr(float(value)) for value in row))


main()
