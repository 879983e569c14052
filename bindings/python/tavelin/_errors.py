"""The exceptions of the package."""

from __future__ import annotations


class TavelinError(Exception):
    """A failure that the library reports, or a call that its command refuses.

    ``code`` is the library's number (``docs/result_file.md`` of the project lists them) or the code of a finding, such
    as ``"V003"``. ``path`` is what the failure is about, mostly a file; it may be empty.

    >>> error = TavelinError("The file can not be open", 7, "night.mea")
    >>> str(error), error.code
    ('The file can not be open: night.mea', 7)
    """

    def __init__(self, message: str, code: int | str, path: str = "") -> None:
        super().__init__(message, code, path)
        self.message = message
        self.code = code
        self.path = path

    def __str__(self) -> str:
        is_told = not self.path or self.path in self.message
        return self.message if is_told else f"{self.message}: {self.path}"


class FormatError(ValueError):
    """A file that its reader refuses, because a line is too short for what is read from it.

    ``line`` and ``column`` count from 1, columns in bytes; they are 0 where the reader does not know them.

    >>> str(FormatError("a date is too short", "night.mea", 2, 9))
    'night.mea:2:9: a date is too short'
    """

    def __init__(self, message: str, path: str, line: int = 0, column: int = 0) -> None:
        super().__init__(message, path, line, column)
        self.message = message
        self.path = path
        self.line = line
        self.column = column

    def __str__(self) -> str:
        place = f":{self.line}:{self.column}" if self.line else ""
        return f"{self.path}{place}: {self.message}"
