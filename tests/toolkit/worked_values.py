#!/usr/bin/env python3
"""Prints the map of region_test.cpp: exact crossings to the right, of edges half-open in y."""

from fractions import Fraction

RINGS = [[(0, 0), (12, 0), (12, 4), (8, 4), (12, 8), (6, 6), (4, 8), (2, 6), (0, 8), (1, 4)],
         [(3, 3), (5, 1), (7, 3), (5, 5)]]
EDGES = [(ring[i - 1], ring[i]) for ring in RINGS for i in range(len(ring))]


def place(x, y):
    level = [(a[0] + Fraction((y - a[1]) * (b[0] - a[0]), b[1] - a[1]), a, b) for a, b in EDGES
             if a[1] != b[1] and min(a[1], b[1]) <= y <= max(a[1], b[1])]
    flat = any(a[1] == y == b[1] and min(a, b)[0] <= x <= max(a, b)[0] for a, b in EDGES)
    if flat or any(at == x for at, a, b in level):
        return "?"
    return ".#"[sum(at > x and max(a[1], b[1]) > y for at, a, b in level) % 2]


for row in range(9, -2, -1):
    print("".join(place(column, row) for column in range(-1, 14)))
