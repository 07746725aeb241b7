#!/usr/bin/env python3
"""Draws the 16 x 16 tree icons used by the sample documents and writes them as PNG
files beside this script. Only the standard library is used; run it again after
changing a drawing:  python3 samples/icons/make_icons.py
"""
import os
import struct
import zlib

SIZE = 16
CLEAR = (0, 0, 0, 0)


def blank():
    return [[CLEAR] * SIZE for _ in range(SIZE)]


def rect(img, x0, y0, x1, y1, colour):
    for y in range(max(0, y0), min(SIZE, y1 + 1)):
        for x in range(max(0, x0), min(SIZE, x1 + 1)):
            img[y][x] = colour


def disc(img, cx, cy, r, colour):
    for y in range(SIZE):
        for x in range(SIZE):
            if (x - cx) ** 2 + (y - cy) ** 2 <= r * r:
                img[y][x] = colour


def building():
    img = blank()
    rect(img, 2, 3, 13, 15, (120, 120, 130, 255))
    for y in (5, 8, 11):
        for x in (4, 7, 10):
            rect(img, x, y, x + 1, y + 1, (250, 220, 90, 255))
    rect(img, 7, 13, 8, 15, (70, 50, 30, 255))
    return img


def fan():
    img = blank()
    disc(img, 7.5, 7.5, 7, (60, 110, 170, 255))
    disc(img, 7.5, 7.5, 5.5, (220, 230, 240, 255))
    rect(img, 7, 2, 8, 13, (60, 110, 170, 255))
    rect(img, 2, 7, 13, 8, (60, 110, 170, 255))
    disc(img, 7.5, 7.5, 1.5, (30, 30, 30, 255))
    return img


def chiller():
    img = blank()
    rect(img, 1, 4, 14, 12, (40, 120, 200, 255))
    for x in range(3, 13, 3):
        rect(img, x, 6, x, 10, (200, 235, 255, 255))
    rect(img, 2, 13, 3, 14, (60, 60, 60, 255))
    rect(img, 12, 13, 13, 14, (60, 60, 60, 255))
    return img


def pump():
    img = blank()
    disc(img, 6, 9, 5, (200, 80, 40, 255))
    disc(img, 6, 9, 2, (250, 200, 170, 255))
    rect(img, 10, 7, 15, 10, (110, 110, 110, 255))
    rect(img, 5, 1, 7, 4, (110, 110, 110, 255))
    return img


def thermometer():
    img = blank()
    rect(img, 6, 1, 9, 11, (210, 210, 210, 255))
    rect(img, 7, 5, 8, 11, (210, 40, 40, 255))
    disc(img, 7.5, 12.5, 3, (210, 40, 40, 255))
    return img


def png(img):
    raw = b"".join(b"\x00" + bytes(c for px in row for c in px) for row in img)

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
            chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b""))


ICONS = {
    "building.png": building,
    "fan.png": fan,
    "chiller.png": chiller,
    "pump.png": pump,
    "thermometer.png": thermometer,
}

if __name__ == "__main__":
    here = os.path.dirname(os.path.abspath(__file__))
    for name, draw in ICONS.items():
        with open(os.path.join(here, name), "wb") as out:
            out.write(png(draw()))
