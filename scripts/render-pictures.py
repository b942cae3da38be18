#!/usr/bin/env python3
"""Renders binary glTF files to PNG pictures with a small software rasteriser (standard library
only): flat Lambert shading of every triangle from both sides, a depth buffer, a camera that looks
at the bounding box from the front and a little above. Used for the example pictures of the
README: scripts/render-pictures remakes them all.

usage: render-pictures.py IN.glb OUT.png [SIZE]
"""
import json
import math
import struct
import sys
import zlib

COMPONENTS = {"SCALAR": 1, "VEC2": 2, "VEC3": 3, "VEC4": 4}
FORMATS = {5121: "B", 5123: "H", 5125: "I", 5126: "f"}


def read_glb(path):
    data = open(path, "rb").read()
    magic, _, _ = struct.unpack_from("<III", data, 0)
    if magic != 0x46546C67:
        raise SystemExit(f"{path}: not a binary glTF file")
    offset, document, binary = 12, None, b""
    while offset < len(data):
        length, kind = struct.unpack_from("<II", data, offset)
        chunk = data[offset + 8 : offset + 8 + length]
        if kind == 0x4E4F534A:
            document = json.loads(chunk)
        elif kind == 0x004E4942:
            binary = chunk
        offset += 8 + length
    return document, binary


def accessor(document, binary, index):
    a = document["accessors"][index]
    view = document["bufferViews"][a["bufferView"]]
    width = COMPONENTS[a["type"]]
    fmt = FORMATS[a["componentType"]]
    start = view.get("byteOffset", 0) + a.get("byteOffset", 0)
    values = struct.unpack_from(f"<{a['count'] * width}{fmt}", binary, start)
    return [values[i : i + width] for i in range(0, len(values), width)]


def triangles(document, binary):
    """(corner, corner, corner, colour) for every triangle of every mesh primitive."""
    materials = document.get("materials", [])
    for mesh in document.get("meshes", []):
        for primitive in mesh["primitives"]:
            if primitive.get("mode", 4) != 4:
                continue
            points = accessor(document, binary, primitive["attributes"]["POSITION"])
            indices = [i[0] for i in accessor(document, binary, primitive["indices"])]
            colour = (0.7, 0.7, 0.7)
            if "material" in primitive:
                pbr = materials[primitive["material"]].get("pbrMetallicRoughness", {})
                linear = pbr.get("baseColorFactor", [0.7, 0.7, 0.7, 1])[:3]
                colour = tuple(c ** (1 / 2.2) for c in linear)
            for k in range(0, len(indices) - 2, 3):
                yield points[indices[k]], points[indices[k + 1]], points[indices[k + 2]], colour


def subtract(a, b):
    return (a[0] - b[0], a[1] - b[1], a[2] - b[2])


def cross(a, b):
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def camera(tris):
    """A view from the front (+z of glTF) and 25 degrees above, fitted to the bounding box."""
    xs = [p[0] for t in tris for p in t[:3]]
    ys = [p[1] for t in tris for p in t[:3]]
    zs = [p[2] for t in tris for p in t[:3]]
    centre = ((min(xs) + max(xs)) / 2, (min(ys) + max(ys)) / 2, (min(zs) + max(zs)) / 2)
    tilt = math.radians(25)
    c, s = math.cos(tilt), math.sin(tilt)

    def view(p):
        x, y, z = subtract(p, centre)
        return (x, y * c - z * s, y * s + z * c)

    corners = [view((x, y, z)) for x in (min(xs), max(xs)) for y in (min(ys), max(ys))
               for z in (min(zs), max(zs))]
    extent = max(max(abs(v[0]) for v in corners), max(abs(v[1]) for v in corners)) or 1.0
    return view, extent


def render(tris, size):
    view, extent = camera(tris)
    scale = size * 0.45 / extent
    depth = [-math.inf] * (size * size)
    pixels = bytearray([250, 250, 250] * (size * size))
    light = (0.4, 0.7, 0.6)
    norm = math.sqrt(sum(v * v for v in light))
    light = tuple(v / norm for v in light)
    for a, b, c, colour in tris:
        va, vb, vc = view(a), view(b), view(c)
        normal = cross(subtract(vb, va), subtract(vc, va))
        length = math.sqrt(sum(v * v for v in normal))
        if length == 0:
            continue
        lambert = abs(sum(n * l for n, l in zip(normal, light))) / length
        shade = 0.3 + 0.7 * lambert
        rgb = bytes(min(255, int(255 * ch * shade)) for ch in colour)
        screen = [(size / 2 + v[0] * scale, size / 2 - v[1] * scale, v[2]) for v in (va, vb, vc)]
        fill(screen, rgb, size, depth, pixels)
    return pixels


def fill(screen, rgb, size, depth, pixels):
    (x0, y0, z0), (x1, y1, z1), (x2, y2, z2) = screen
    area = (x1 - x0) * (y2 - y0) - (x2 - x0) * (y1 - y0)
    if area == 0:
        return
    left, right = max(int(min(x0, x1, x2)), 0), min(int(max(x0, x1, x2)) + 1, size)
    top, bottom = max(int(min(y0, y1, y2)), 0), min(int(max(y0, y1, y2)) + 1, size)
    for y in range(top, bottom):
        py = y + 0.5
        for x in range(left, right):
            px = x + 0.5
            w0 = ((x1 - px) * (y2 - py) - (x2 - px) * (y1 - py)) / area
            w1 = ((x2 - px) * (y0 - py) - (x0 - px) * (y2 - py)) / area
            w2 = 1 - w0 - w1
            if w0 < 0 or w1 < 0 or w2 < 0:
                continue
            z = w0 * z0 + w1 * z1 + w2 * z2
            k = y * size + x
            if z > depth[k]:
                depth[k] = z
                pixels[3 * k : 3 * k + 3] = rgb


def write_png(path, pixels, size):
    rows = b"".join(b"\x00" + bytes(pixels[3 * size * y : 3 * size * (y + 1)]) for y in range(size))

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    with open(path, "wb") as out:
        out.write(b"\x89PNG\r\n\x1a\n")
        out.write(chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 2, 0, 0, 0)))
        out.write(chunk(b"IDAT", zlib.compress(rows, 9)))
        out.write(chunk(b"IEND", b""))


def main():
    if len(sys.argv) < 3:
        raise SystemExit(__doc__)
    size = int(sys.argv[3]) if len(sys.argv) > 3 else 360
    document, binary = read_glb(sys.argv[1])
    tris = list(triangles(document, binary))
    if not tris:
        raise SystemExit(f"{sys.argv[1]}: no triangles")
    write_png(sys.argv[2], render(tris, size), size)


if __name__ == "__main__":
    main()
