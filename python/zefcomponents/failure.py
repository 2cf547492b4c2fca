"""Calls that fail."""


class Failure(Exception):
    """What the library raised: number, description and source. Numbers of the provider are negative."""

    def __init__(self, number, description, source="ZEFComponents"):
        super().__init__(number, description, source)
        self.number = number
        self.description = description
        self.source = source

    def __str__(self):
        return self.description


def number_of(code):
    """The number of a failure from its code in 32 bits: those from 1 to 65535 have a range of codes of their own."""
    return code & 0xFFFF if code >> 16 == 0x800A else code - (code >> 31 << 32)


OBJECT_FILE_MISSING = 53
CANNOT_CREATE = 429
