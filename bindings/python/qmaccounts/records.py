"""The record sets of the books: rows as named tuples."""

from __future__ import annotations

import collections
import csv
import importlib
import os
from typing import IO, Any, Iterator, NamedTuple

from ._automation import Object

# Texts that begin so would run as a formula in a spreadsheet.
_FORMULA = ("=", "+", "-", "@", "\t", "\r")
_CHUNK = 1000

_TYPES: dict[int, type] = {2: int, 3: int, 5: float, 11: bool, 202: str}


class Field(NamedTuple):
    """A field of a record set: its name, and the Python type of its values (which may be None as well)."""

    name: str
    type: type


class Records:
    """A record set: iterate over it for its rows, named tuples with the fields' names.

    It goes forward only: what is taken is behind it, and `first()` begins anew. It is closed by `close()` or at the
    end of a `with`. Its members stand by their own names as well: `records.MoveNext()`, `records.EOF`.
    """

    def __init__(self, rows: Object) -> None:
        self.__dict__["_rows"] = rows
        fields = rows.Fields
        self.__dict__["fields"] = tuple(
            Field(field.Name, _TYPES.get(field.Type, str))
            for field in (fields.Item(index) for index in range(fields.Count)))
        self.__dict__["Row"] = collections.namedtuple(
            "Row", [field.name for field in self.fields], rename=True)

    def __enter__(self) -> Records:
        return self

    def __exit__(self, *_: Any) -> None:
        self.close()

    def __iter__(self) -> Iterator[Any]:
        while not self._rows.EOF:
            yield from map(self.Row._make, self._rows.GetRows(_CHUNK))

    def __len__(self) -> int:
        """The number of rows that pass the filter, wherever it stands."""
        return int(self._rows.RecordCount)

    def __getattr__(self, name: str) -> Any:
        return getattr(self._rows, name)

    def __setattr__(self, name: str, value: Any) -> None:
        if name == "filter":
            name = "Filter"
        setattr(self._rows, name, value)

    def __dir__(self) -> list[str]:
        return sorted({*object.__dir__(self), *dir(self._rows)})

    @property
    def filter(self) -> str:
        """A condition that hides the rows that do not meet it: `records.filter = "Name Like 'S*'"`; "" for none."""
        return self._rows.Filter or ""

    def first(self) -> Records:
        """Stands on the first row again; the statement runs anew. Nothing happens where there are no rows."""
        if len(self):
            self._rows.MoveFirst()
        return self

    def find(self, criteria: str, skip: int = 0) -> bool:
        """Goes forward to the next row that meets one comparison, such as "Ledger_ID = 5"; False where none does."""
        self._rows.Find(criteria, skip)
        return not self._rows.EOF

    def requery(self) -> Records:
        """Runs the statement anew; the filter stays."""
        self._rows.Requery()
        return self

    def close(self) -> None:
        """Closes it, if it is open."""
        if self._rows.State:
            self._rows.Close()

    def to_csv(self, file: str | os.PathLike[str] | IO[str], **options: Any) -> int:
        """Writes the rows from here on, under a line of the fields' names, and gives their number.

        A file that is named is written anew, as UTF-8. A text that a spreadsheet would run as a formula gets an
        apostrophe before it. The options are those of csv.writer.
        """
        if isinstance(file, (str, os.PathLike)):
            with open(file, "w", newline="", encoding="utf-8") as opened:
                return self.to_csv(opened, **options)
        writer = csv.writer(file, **options)
        writer.writerow(field.name for field in self.fields)
        count = 0
        for count, row in enumerate(self, 1):
            writer.writerow("'" + cell if isinstance(cell, str) and cell.startswith(_FORMULA) else cell for cell in row)
        return count

    def to_frame(self) -> Any:
        """The rows from here on as a data frame of pandas; ImportError where that library is not installed."""
        pandas = importlib.import_module("pandas")
        return pandas.DataFrame.from_records(list(self), columns=[field.name for field in self.fields])
