"""What a Windows library's file says of itself."""

import struct

X86, X64 = 0x14C, 0x8664
HIGH_ENTROPY, DYNAMIC_BASE, NX_COMPATIBLE = 0x20, 0x40, 0x100
EXPORTS, IMPORTS, RESOURCES, RELOCATIONS, DELAYED = 0, 1, 2, 5, 13


class PeFile:
    def __init__(self, path):
        with open(path, "rb") as file:
            self.bytes = file.read()
        header = self.read("<I", 0x3C)[0]
        assert self.bytes[header:header + 4] == b"PE\0\0", "not a Windows program"
        self.machine, sections, self.timestamp, _, symbols, optional = self.read("<HHIIIH", header + 4)
        self.stripped = symbols == 0
        start = header + 24
        wide = self.read("<H", start)[0] == 0x20B
        self.pointer = "<Q" if wide else "<I"
        self.system_version = self.read("<HH", start + 40)
        self.subsystem_version = self.read("<HH", start + 48)
        self.characteristics = self.read("<H", start + 70)[0]
        count_at = start + (108 if wide else 92)
        self.directories = [self.read("<II", count_at + 4 + 8 * i)
                            for i in range(self.read("<I", count_at)[0])]
        self.sections = []
        for i in range(sections):
            at = start + optional + 40 * i
            name = self.bytes[at:at + 8].rstrip(b"\0").decode()
            size, address, stored, offset = self.read("<IIII", at + 8)
            self.sections.append((name, address, max(size, stored), offset))

    def read(self, form, offset):
        return struct.unpack_from(form, self.bytes, offset)

    def offset(self, address):
        for _, start, size, offset in self.sections:
            if start <= address < start + size:
                return address - start + offset
        raise ValueError(f"no section holds {address:#x}")

    def text(self, address):
        at = self.offset(address)
        return self.bytes[at:self.bytes.index(b"\0", at)].decode("ascii")

    def exports(self):
        address, size = self.directories[EXPORTS]
        if size == 0:
            return []
        names, = self.read("<I", self.offset(address) + 24)
        table, = self.read("<I", self.offset(address) + 32)
        return [self.text(self.read("<I", self.offset(table) + 4 * i)[0]) for i in range(names)]

    def imports(self):
        """{library: [function, ...]}; an import without a name is "#number"."""
        found = {}
        at = self.offset(self.directories[IMPORTS][0])
        while True:
            lookup, _, _, name, table = self.read("<IIIII", at)
            if name == 0:
                return found
            found.setdefault(self.text(name).lower(), []).extend(self.functions(lookup or table))
            at += 20

    def functions(self, table):
        size = struct.calcsize(self.pointer)
        by_number = 1 << (8 * size - 1)
        at = self.offset(table)
        while entry := self.read(self.pointer, at)[0]:
            yield f"#{entry & 0xFFFF}" if entry & by_number else self.text(entry + 2)
            at += size
