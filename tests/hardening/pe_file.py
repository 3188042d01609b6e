"""Reads what the tests ask of a 64-bit Windows program or library: headers, sections, imports, resources."""

import dataclasses
import struct

EXECUTE, WRITE = 0x20000000, 0x80000000
EXPORTS, IMPORTS, RESOURCES, RELOCATIONS, BOUND_IMPORTS, DELAY_IMPORTS = 0, 1, 2, 5, 11, 13
RT_VERSION, RT_MANIFEST = 16, 24


@dataclasses.dataclass
class Section:
    name: str
    address: int
    size: int
    offset: int
    stored: int
    flags: int

    def contains(self, address):
        return self.address <= address < self.address + max(self.size, self.stored)


class PeFile:
    def __init__(self, path):
        self.data = path.read_bytes()
        header = self._u32(0x3C)
        if self.data[:2] != b"MZ" or self.data[header:header + 4] != b"PE\0\0":
            raise ValueError(f"{path} is no Windows program")
        self.machine, count = struct.unpack_from("<HH", self.data, header + 4)
        optional_size, self.characteristics = struct.unpack_from("<HH", self.data, header + 20)
        optional = header + 24
        if self._u16(optional) != 0x20B:
            raise ValueError(f"{path} is not a 64-bit program")
        self.entry = self._u32(optional + 16)
        self.image_base = struct.unpack_from("<Q", self.data, optional + 24)[0]
        self.dll_characteristics = self._u16(optional + 70)
        self.directories = [struct.unpack_from("<II", self.data, optional + 112 + 8 * i)
                            for i in range(self._u32(optional + 108))]
        self.sections = [self._section(optional + optional_size + 40 * i) for i in range(count)]

    def _section(self, offset):
        name, size, address, stored, raw = struct.unpack_from("<8sIIII", self.data, offset)
        return Section(name.rstrip(b"\0").decode(), address, size, raw, stored, self._u32(offset + 36))

    def _u16(self, offset):
        return struct.unpack_from("<H", self.data, offset)[0]

    def _u32(self, offset):
        return struct.unpack_from("<I", self.data, offset)[0]

    def _text(self, offset):
        return self.data[offset:self.data.index(b"\0", offset)].decode("ascii")

    def offset_of(self, address):
        for section in self.sections:
            if section.contains(address):
                return section.offset + address - section.address
        raise ValueError(f"no section holds address {address:#x}")

    def section_of(self, address):
        return next(s for s in self.sections if s.contains(address))

    def imports(self):
        """The functions imported, by library (as written in the file)."""
        found = {}
        address, size = self.directories[IMPORTS]
        if not size:
            return found
        entry = self.offset_of(address)
        while self._u32(entry + 12):
            names = found.setdefault(self._text(self.offset_of(self._u32(entry + 12))), [])
            thunk = self.offset_of(self._u32(entry) or self._u32(entry + 16))
            while value := struct.unpack_from("<Q", self.data, thunk)[0]:
                names.append(f"#{value & 0xffff}" if value >> 63 else self._text(self.offset_of(value & 0x7FFFFFFF) + 2))
                thunk += 8
            entry += 20
        return found

    def resources(self):
        """(type, name) -> bytes of the resources whose type and name are numbers, the first language each."""
        address, size = self.directories[RESOURCES]
        if not size:
            return {}
        base = self.offset_of(address)

        def entries(offset):
            named, numbered = struct.unpack_from("<HH", self.data, base + offset + 12)
            for i in range(named, named + numbered):
                yield struct.unpack_from("<II", self.data, base + offset + 16 + 8 * i)

        found = {}
        for kind, types in entries(0):
            for name, languages in entries(types & 0x7FFFFFFF):
                _, leaf = next(entries(languages & 0x7FFFFFFF))
                data, length = struct.unpack_from("<II", self.data, base + leaf)
                start = self.offset_of(data)
                found[kind, name] = self.data[start:start + length]
        return found

    def version(self):
        """The version resource: (file version, product version, strings by name)."""
        return _read_version(self.resources()[RT_VERSION, 1])

    def code(self):
        """(address, bytes) of every section that can be executed."""
        return [(s.address, self.data[s.offset:s.offset + min(s.size, s.stored)])
                for s in self.sections if s.flags & EXECUTE]


def _read_version(data):
    def block(offset):
        length, value_length, is_text = struct.unpack_from("<HHH", data, offset)
        end = offset + 6
        while data[end:end + 2] != b"\0\0":
            end += 2
        key = data[offset + 6:end].decode("utf-16-le")
        value = (end + 2 + 3) & ~3
        size = value_length * (2 if is_text else 1)
        return key, data[value:value + size], (value + size + 3) & ~3, offset + length

    def children(first, end):
        while first < end:
            key, value, inner, after = block(first)
            yield key, value, inner, after
            first = (after + 3) & ~3

    _, fixed, inner, end = block(0)
    signature, _, file_high, file_low, product_high, product_low = struct.unpack_from("<6I", fixed)
    if signature != 0xFEEF04BD:
        raise ValueError("no version resource")
    strings = {}
    for key, _, tables, tables_end in children(inner, end):
        if key == "StringFileInfo":
            for _, _, first, table_end in children(tables, tables_end):
                for name, value, _, _ in children(first, table_end):
                    strings[name] = value.decode("utf-16-le").rstrip("\0")

    def dotted(high, low):
        return f"{high >> 16}.{high & 0xffff}.{low >> 16}.{low & 0xffff}"

    return dotted(file_high, file_low), dotted(product_high, product_low), strings
