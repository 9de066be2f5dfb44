#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The QOR_File authors
"""Prints a Data Block file: header and traces. Usage: read_datablock.py FILE

Stands alone, on docs/formats/framing.md and docs/formats/datablock.md, to show what a reader takes. Exits with 1 and a
message where the file is damaged; what was read before the damage is then not shown."""
import struct
import sys

# What follows each tag: "h" int16, "i" int32, "f" float32, "s" text, a number: that many bytes that nobody needs.
BLOCK_FIELDS = {tag: 2 for tag in [1, 5, 19, 22, *range(24, 30), 32, *range(36, 47), 49, 50, 53, 57, 58, *range(61, 65),
                                   *range(69, 72), *range(73, 76), *range(77, 93), 96, 97, 98]}
BLOCK_FIELDS |= {tag: 4 for tag in [9, *range(14, 19), 23, 30, 33, 34, 35, 48, 51, 52, 54, 55, 56, 60, 67, 68, 72, 93,
                                    94, 95]}
BLOCK_FIELDS |= {3: "h", 6: "h", 20: "h", 76: "h", 100: "h", 4: "i", 7: "f", 8: "f", 123: "f", 160: "f", 2: "s",
                 13: "s", 21: "s", 59: "s", 66: 18, 12: 0, 10: "x values", 11: "list", 65: "extra", 99: "extras"}
TRACE_FIELDS = {tag: 2 for tag in [1, 8, 10, 15, 16, 18, 22, 26, 31, 45]}
TRACE_FIELDS |= {tag: 4 for tag in [7, 9, *range(11, 15), 21, 25, *range(33, 41)]}
TRACE_FIELDS |= {6: "h", 30: "h", 44: "h", 4: "older samples", 5: "older format", 2: "s", 3: "s", 23: "s", 24: "s",
                 29: "s", 42: "s", 43: "s", 32: 28, 28: 0, 17: "samples", 27: "list", 41: "extra"}
BLOCK, TRACE, SUB_RECORD, CLOSING_TAG, END_MARKER = 2048, 2304, 2560, 255, -0x5556


class Damaged(Exception):
    pass


class Reader:
    def __init__(self, data):
        self.data, self.depth = data, 0
        self.block, self.traces = {}, {}  # both by tag, the traces by number first
        self.samples, self.format = 0, 1
        word = data[:204].upper().find(b"BINARY")  # starts in the first 199 bytes, as the line end does
        line_end = data[:200].find(b"\r\n", word)
        if word < 0 or line_end < 0:
            raise Damaged("not a document file")
        if any(other in data[:line_end].upper() for other in (b"STRUCTURE", b"SHAPETABLE")):
            raise Damaged("a document of another kind")
        self.pos = line_end + 2
        self.version = self.peek("h")
        if self.version > 12:
            raise Damaged(f"version {self.version} is too new")
        self.pos += 16
        if self.pos <= len(data):
            self.records(top=True)

    def take(self, count):
        if not 0 <= count <= len(self.data) - self.pos:
            raise Damaged("the file ends too early")
        self.pos += count
        return self.data[self.pos - count:self.pos]

    def peek(self, kind):
        size = struct.calcsize("<" + kind)
        return struct.unpack("<" + kind, self.data[self.pos:self.pos + size].ljust(size, b"\0"))[0]

    def get(self, kind):
        value = self.peek(kind)
        self.take(struct.calcsize("<" + kind))
        return value

    def array(self, kind, count):
        return [item[0] if len(kind) == 1 else complex(*item)
                for item in struct.iter_unpack("<" + kind, self.take(count * struct.calcsize("<" + kind)))]

    def size(self, arrays=1):
        if arrays < 0 or self.samples < 0:  # older traces may bring a number of samples that no array has
            raise Damaged("a size that no reader takes")
        return arrays * self.samples

    def text(self):
        if self.version >= 12:
            return self.take(2 * max(0, self.get("i"))).decode("utf-16-le", "replace")
        end = self.data.find(b"\0", self.pos)
        if end < 0:
            raise Damaged("the file ends inside a text")
        old = self.take(end + 1 - self.pos)[:-1]
        # The five bytes that Windows-1252 leaves open stand for the code point of the same number.
        return "".join(bytes([b]).decode("cp1252") if b not in b"\x81\x8d\x8f\x90\x9d" else chr(b) for b in old)

    def jump(self, end):
        if not self.pos <= end < 2**31:
            raise Damaged("a record's length leads nowhere")
        self.pos = end

    def records(self, top=False):
        self.depth += 1
        if self.depth > 101:  # 100 lists and the top level
            raise Damaged("too many lists inside one another")
        number = 0
        while True:
            if top and len(self.data) - self.pos < 2:
                print("the end marker is missing", file=sys.stderr)
                break
            code = self.get("h")
            if code in (END_MARKER, 12, 28, CLOSING_TAG):
                break
            if code == BLOCK:
                self.block, self.traces, self.samples, self.format = {3: 0, 4: 0, 20: 1, 6: 1}, {}, 0, 1
                self.fields(BLOCK_FIELDS, self.block)
            elif code == TRACE and number < self.block.get(3, 0):
                number += 1
                self.traces[number] = {}
                self.fields(TRACE_FIELDS, self.traces[number])
            elif code == TRACE and self.version < 9:
                raise Damaged("more traces than the header counts")
            elif code == SUB_RECORD or code != 0 and self.version >= 9:
                length = self.peek("i")
                self.pos += 4
                self.jump(self.pos + length)
        self.depth -= 1

    def fields(self, kinds, record):
        end, counts_on = self.pos + 4 + self.get("i"), False
        while (tag := self.get("h")) != CLOSING_TAG:
            kind = kinds.get(tag)
            if kind is None and tag != 0 and self.version >= 9:
                return self.jump(end)
            counts_on |= kinds is BLOCK_FIELDS and tag == 1
            if isinstance(kind, int):
                self.take(kind)
            elif kind == "list":
                self.records()
            elif kind == "s":
                record[tag] = self.text()
            elif kind in ("x values", "samples"):
                record[tag] = self.array("ff" if kind == "samples" and self.format == 2 else "f", self.size())
            elif kind == "extra":
                self.take(8 * self.size())
            elif kind == "extras":
                self.take(8 * self.size(arrays=self.get("h")))
            elif kind == "older samples":
                value = self.get("i")
                self.samples = self.samples or value
            elif kind == "older format":
                value = self.get("h")
                self.format = value if self.format == 1 else self.format
            elif kind:
                value = self.get(kind)
                record[tag] = value + record[3] if kinds is BLOCK_FIELDS and tag == 3 and counts_on else value
                if kinds is BLOCK_FIELDS and (tag == 3 and not 0 <= record[3] < 2**15 or tag == 4 and value < 2):
                    raise Damaged("a size that no reader takes")
                if kinds is BLOCK_FIELDS and tag == 4:
                    self.samples = value
                elif kinds is BLOCK_FIELDS and tag == 20:
                    self.format = value


def show(reader):
    def numbers(values):
        return " ".join(f"{v:.7g}" if isinstance(v, float) else f"{v.real:.7g}{v.imag:+.7g}j" for v in values)

    block = reader.block
    print(f'Data Block "{block.get(2, "")}", version {reader.version}')
    print("notes:", block.get(21, "Data Block history"))
    start, step = block.get(7, 0.0), block.get(8, 0.0)
    x = block.get(10, []) if block.get(6) != 1 else [start + i * step for i in range(reader.samples)]
    print(f"X axis: {numbers(x)} {block.get(13, '')}".rstrip())
    if block.get(160):
        print(f"RPM: {block[160]:.7g}")
    for number in range(1, block.get(3, 0) + 1):
        trace = reader.traces.get(number, {})
        about = [f'"{trace.get(2, "")}"', trace.get(23), f"type {trace.get(6, 0)}", trace.get(24), trace.get(3)]
        print(f"trace {number}", ", ".join(part for part in about if part))
        print("   ", numbers(trace.get(17, [])))


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: read_datablock.py FILE")
    sys.stdout.reconfigure(encoding="utf-8")
    try:
        with open(sys.argv[1], "rb") as file:
            show(Reader(file.read()))
    except (Damaged, OSError) as error:
        sys.exit(f"{sys.argv[1]}: {error}")
