"""Pictures for samples, small and valid, made of nothing but their parameters."""

import struct
import zlib


def png(width, height, colour):
    """A picture of one colour (red, green, blue); its data is stored, so that every zlib gives the same bytes."""

    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    rows = b"".join(b"\0" + bytes(colour) * width for _ in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", stored(rows)) + chunk(b"IEND", b""))


def stored(data):
    """A zlib stream (RFC 1950) whose blocks are stored as they are."""
    blocks = [data[i:i + 65535] for i in range(0, len(data), 65535)] or [b""]
    stream = b"\x78\x01"
    for i, block in enumerate(blocks):
        final = 1 if i == len(blocks) - 1 else 0
        stream += struct.pack("<BHH", final, len(block), 0xFFFF ^ len(block)) + block
    return stream + struct.pack(">I", zlib.adler32(data))


def gif(colour):
    """One pixel of that colour."""
    return (b"GIF89a" + struct.pack("<HHBBB", 1, 1, 0x80, 0, 0) + bytes(colour) + b"\xff\xff\xff" +
            b"\x2c" + struct.pack("<HHHHB", 0, 0, 1, 1, 0) + b"\x02\x02\x44\x01\x00\x3b")


def jpeg(blocks_wide, blocks_high):
    """A grey picture of blocks of 8 by 8 pixels. Each block is two bits: no difference, end of block."""

    def segment(marker, data):
        return bytes((0xFF, marker)) + struct.pack(">H", len(data) + 2) + data

    one_code = bytes((1,)) + bytes(15) + b"\0"
    bits = "00" * (blocks_wide * blocks_high)
    bits += "1" * (-len(bits) % 8)
    data = bytes(int(bits[i:i + 8], 2) for i in range(0, len(bits), 8)).replace(b"\xff", b"\xff\0")
    frame = struct.pack(">BHHB", 8, 8 * blocks_high, 8 * blocks_wide, 1) + bytes((1, 0x11, 0))
    return (b"\xff\xd8" + segment(0xE0, b"JFIF\0\x01\x01\0\0\x01\0\x01\0\0") + segment(0xDB, b"\0" + b"\x10" * 64) +
            segment(0xC0, frame) + segment(0xC4, b"\0" + one_code) + segment(0xC4, b"\x10" + one_code) +
            segment(0xDA, bytes((1, 1, 0, 0, 63, 0))) + data + b"\xff\xd9")
