"""A tiny PNG writer (zlib only) for the images we draw ourselves."""
import os
import struct
import zlib

# Every image is drawn twice: at its own size and at twice that size, saved beside it with an "@2x" suffix, which Qt
# picks on screens scaled to 150% and more.
SCALES = (1, 2)


def scaled_path(path, scale):
    """path for scale 1, "name@2x.png" beside it for scale 2."""
    if scale == 1:
        return path
    stem, ext = os.path.splitext(path)
    return "%s@%dx%s" % (stem, scale, ext)


def write_png(path, width, height, pixel):
    """pixel(x, y) -> (r, g, b, a)."""
    rows = bytearray()
    for y in range(height):
        rows.append(0)
        for x in range(width):
            rows.extend(bytes(pixel(x, y)))

    def chunk(tag, data):
        return struct.pack(">I", len(data)) + tag + data + struct.pack(">I", zlib.crc32(tag + data) & 0xFFFFFFFF)

    png = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0))
    png += chunk(b"IDAT", zlib.compress(bytes(rows), 9)) + chunk(b"IEND", b"")
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as f:
        f.write(png)


def write_scaled(path, width, height, pixel_at):
    """Writes path at every scale of SCALES. pixel_at(scale) returns the pixel(x, y) function for that scale, where
    x and y count device pixels of the scaled image (width * scale by height * scale)."""
    for s in SCALES:
        write_png(scaled_path(path, s), width * s, height * s, pixel_at(s))
