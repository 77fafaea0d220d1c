"""Reads Windows executables (PE32+): headers, sections, imports and resources."""

import struct


class Malformed(Exception):
    """The bytes are not those of a 64-bit Windows executable."""


DIRECTORY_IMPORT, DIRECTORY_RESOURCE, DIRECTORY_RELOCATION, DIRECTORY_DELAY_IMPORT = 1, 2, 5, 13
RESOURCE_VERSION, RESOURCE_MANIFEST = 16, 24


class Section:
    """A section: `name`, `address` and `size` in memory, `offset` in the file, `flags`."""

    def __init__(self, name, address, size, offset, flags):
        self.name, self.address, self.size, self.offset, self.flags = name, address, size, offset, flags

    @property
    def executable(self):
        return bool(self.flags & 0x20000000)

    @property
    def writable(self):
        return bool(self.flags & 0x80000000)


class PortableExecutable:
    """The executable in `data`. Raises Malformed when it is inconsistent."""

    def __init__(self, data):
        self.data = data
        try:
            self._read_headers()
        except struct.error as error:
            raise Malformed(f"the file is cut off: {error}") from error

    def _read_headers(self):
        if self.data[:2] != b"MZ":
            raise Malformed("the file does not begin as an executable does")
        header, = struct.unpack_from("<I", self.data, 0x3C)
        if self.data[header:header + 4] != b"PE\0\0":
            raise Malformed("the file has no PE header")
        self.machine, sections, _, _, _, optional_size, self.characteristics = struct.unpack_from(
            "<HHIIIHH", self.data, header + 4)
        optional = header + 24
        magic, = struct.unpack_from("<H", self.data, optional)
        if magic != 0x20B:
            raise Malformed(f"the optional header is not that of a 64-bit program ({magic:#x})")
        self.system_version = struct.unpack_from("<HH", self.data, optional + 40)
        self.subsystem_version = struct.unpack_from("<HH", self.data, optional + 48)
        self.subsystem, self.dll_characteristics = struct.unpack_from("<HH", self.data, optional + 68)
        count, = struct.unpack_from("<I", self.data, optional + 108)
        self.directories = [struct.unpack_from("<II", self.data, optional + 112 + 8 * index) for index in range(count)]
        self.sections = []
        for index in range(sections):
            name, size, address, _, offset, _, _, _, _, flags = struct.unpack_from(
                "<8sIIIIIIHHI", self.data, optional + optional_size + 40 * index)
            self.sections.append(Section(name.rstrip(b"\0").decode("ascii", "replace"), address, size, offset, flags))

    def directory(self, index):
        """Address and size of a data directory, (0, 0) for a missing one."""
        return self.directories[index] if index < len(self.directories) else (0, 0)

    def _offset(self, address):
        for section in self.sections:
            if section.address <= address < section.address + section.size:
                return address - section.address + section.offset
        raise Malformed(f"no section has the address {address:#x}")

    def _text(self, address):
        start = self._offset(address)
        return self.data[start:self.data.index(b"\0", start)].decode("ascii", "replace")

    def imports(self):
        """The names of the imported DLLs, delay-loaded ones included."""
        names = []
        for index, size, name_at in ((DIRECTORY_IMPORT, 20, 12), (DIRECTORY_DELAY_IMPORT, 32, 4)):
            address, _ = self.directory(index)
            while address:
                name, = struct.unpack_from("<I", self.data, self._offset(address) + name_at)
                if not name:
                    break
                names.append(self._text(name))
                address += size
        return names

    def resources(self, kind):
        """The resources of a type, as a list of (number, bytes)."""
        root, _ = self.directory(DIRECTORY_RESOURCE)
        if not root:
            return []
        base = self._offset(root)

        def entries(table):
            named, numbered = struct.unpack_from("<HH", self.data, base + table + 12)
            for index in range(named + numbered):
                yield struct.unpack_from("<II", self.data, base + table + 16 + 8 * index)

        directory = 0x80000000
        found = []
        for number, names in entries(0):
            if number != kind:
                continue
            for name, languages in entries(names & ~directory):
                for _, leaf in entries(languages & ~directory):
                    address, size = struct.unpack_from("<II", self.data, base + leaf)
                    start = self._offset(address)
                    found.append((name, self.data[start:start + size]))
        return found


class VersionResource:
    """A version resource: `file_version` and `product_version`, four numbers each, and `strings`."""

    def __init__(self, data):
        try:
            fixed, children = self._block(data, 0)[2:4]
            _, _, high, low, product_high, product_low = struct.unpack_from("<IIIIII", data, fixed)
            self.strings = {}
            for table in self._children(data, children):
                if table[0] != "StringFileInfo":
                    continue
                for language in self._children(data, table[3]):
                    for name, length, value, _ in self._children(data, language[3]):
                        self.strings[name] = data[value:value + 2 * length].decode("utf-16-le").rstrip("\0")
        except (struct.error, UnicodeDecodeError) as error:
            raise Malformed(f"the version resource: {error}") from error
        self.file_version = (high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF)
        self.product_version = (product_high >> 16, product_high & 0xFFFF, product_low >> 16, product_low & 0xFFFF)

    @staticmethod
    def _block(data, start):
        """Name, length and offset of the value, and the range of the children of the block at `start`."""
        def aligned(place):
            return place + (-place % 4)

        size, length, is_text = struct.unpack_from("<HHH", data, start)
        end = start + 6
        while data[end:end + 2] not in (b"\0\0", b""):
            end += 2
        value = aligned(end + 2)
        children = aligned(value + length * (2 if is_text else 1))
        return data[start + 6:end].decode("utf-16-le"), length, value, (children, start + size)

    @classmethod
    def _children(cls, data, span):
        place, end = span
        while place < end:
            size, = struct.unpack_from("<H", data, place)
            if not size:
                raise Malformed("the version resource has an empty block")
            yield cls._block(data, place)
            place += size + (-size % 4)
