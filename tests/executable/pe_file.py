"""What stands in the headers of a Windows program."""

import struct


class PeFile:
    """`flags`, `imports` and `sections` of a 64-bit program; each section is (name, characteristics)."""

    def __init__(self, path):
        self.data = path.read_bytes()
        (start,) = struct.unpack_from("<I", self.data, 0x3C)
        if self.data[start:start + 4] != b"PE\0\0":
            raise ValueError(f"{path}: no program")
        count, = struct.unpack_from("<H", self.data, start + 6)
        size, = struct.unpack_from("<H", self.data, start + 20)
        optional = start + 24
        self.flags, = struct.unpack_from("<H", self.data, optional + 70)
        self.symbols, = struct.unpack_from("<I", self.data, start + 16)
        self.tables = []
        for i in range(count):
            place = optional + size + 40 * i
            name = self.data[place:place + 8].rstrip(b"\0").decode()
            length, address, raw_length, raw = struct.unpack_from("<IIII", self.data, place + 8)
            kind, = struct.unpack_from("<I", self.data, place + 36)
            self.tables.append((name, kind, address, max(length, raw_length), raw))
        imports, = struct.unpack_from("<I", self.data, optional + 120)
        self.imports = sorted(self.read_imports(self.offset(imports)))

    @property
    def sections(self):
        return [(name, kind) for name, kind, _, _, _ in self.tables]

    def offset(self, address):
        for _, _, start, length, raw in self.tables:
            if start <= address < start + length:
                return raw + address - start
        raise ValueError("an address outside of all sections")

    def read_imports(self, place):
        while True:
            name, = struct.unpack_from("<I", self.data, place + 12)
            if name == 0:
                return
            start = self.offset(name)
            yield self.data[start:self.data.index(b"\0", start)].decode().lower()
            place += 20
