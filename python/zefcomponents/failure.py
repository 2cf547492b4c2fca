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


OBJECT_FILE_MISSING = 53
CANNOT_CREATE = 429
