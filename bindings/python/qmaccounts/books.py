"""The books of one business."""

from __future__ import annotations

import ctypes
import datetime
import decimal
import os
from typing import Any, ClassVar

from ._automation import BooksError, BoxHandler, Library, Object
from .records import Records

CLSID = "{B551ECA0-2F06-47CD-9DE9-DDD9C381468C}"
FIRST_DAY = datetime.date(1900, 1, 1)

Amount = float | int | decimal.Decimal
Day = datetime.date | int


def day_number(day: Day) -> int:
    """A date as the books keep it: days from 01/01/1900. A number is one already."""
    return (day - FIRST_DAY).days if isinstance(day, datetime.date) else day


def date_of(number: int) -> datetime.date:
    """The date of a day number of the books."""
    return FIRST_DAY + datetime.timedelta(days=number)


class Books:
    """The books in a folder, or on a server (`postgresql://host/firm/`), open until the end of the `with`.

        with Books("firm") as books:
            for ledger in books.ledgers("PrimaryGrp = 'Bank'"):
                print(ledger.Ledger_ID, ledger.Name)

    The class's own members stand beside those below: `books.InsertVoucher(...)` gives False for a posting that was
    refused, `books.insert_voucher(...)` raises BooksError with what its message box said. No message box waits for
    anybody: what they say is kept in `boxes`. With `show_boxes` they go where other hosts' go.

    One process has one set of books open at a time, and uses it from one thread.
    """

    _open: ClassVar[Books | None] = None

    def __init__(self, path: str | os.PathLike[str], *, library: str | None = None, show_boxes: bool = False) -> None:
        """Opens the books; `library` is the path of libqmcls.so, else QM_LIBRARY or the system names it."""
        if Books._open is not None:
            raise RuntimeError(f"the books in {Books._open.path} are open: close them first")
        self.path: str = os.fspath(path).rstrip("/") + "/"
        #: what message boxes have said so far
        self.boxes: list[str] = []
        self._library = Library(library)
        self._handler = BoxHandler(self._box)
        if not show_boxes:
            self._library.exports.QmSetBoxHandler(ctypes.cast(self._handler, ctypes.c_void_p), None)
        self._host: Object | None = None
        try:
            self._host = self._library.create(CLSID)
            self._host.dataPath = self.path
            self._host.StartDataConn()
        except BaseException:
            self._let_go()
            raise
        Books._open = self

    def __enter__(self) -> Books:
        return self

    def __exit__(self, *_: Any) -> None:
        self.close()

    def close(self) -> None:
        """Closes the books; what was posted is on the disk. Again: nothing."""
        if Books._open is self:
            Books._open = None
            self._let_go()

    def _let_go(self) -> None:
        self._host = None
        self._library.exports.QmSetBoxHandler(None, None)

    def _box(self, _: Any, text: int, flags: int, title: int) -> int:
        self.boxes.append(_wide(text).replace("\r\n", "\n").replace("\r", "\n"))
        return 0

    @property
    def _class(self) -> Object:
        if self._host is None:
            raise BooksError(3704, "The books are closed.", "qmaccounts")
        return self._host

    def __getattr__(self, name: str) -> Any:
        """The class's own members; a record set that one gives is Records."""
        if name.startswith("_"):
            raise AttributeError(name)
        member = getattr(self._class, name)
        if not callable(member):
            return member

        def call(*arguments: Any, **named: Any) -> Any:
            result = member(*arguments, **named)
            return Records(result) if isinstance(result, Object) else result

        call.__name__ = name
        return call

    def __dir__(self) -> list[str]:
        return sorted({*object.__dir__(self), *(dir(self._host) if self._host else ())})

    # Lists.

    def ledgers(self, where: str = "") -> Records:
        """All ledgers, or those of the current year that meet a condition, such as "PrimaryGrp = 'Bank'".

        The condition is a piece of SQL: put no user's input into it unchecked."""
        return Records(self._class.call("Ledgers", where))

    def suppliers(self) -> Records:
        """Suppliers and debtors of the current year, retired ones too: Ledger_ID, Name, Deleted."""
        return Records(self._class.call("GetSuppliers"))

    def purchase_ledgers(self) -> Records:
        """Ledgers under Purchase."""
        return Records(self._class.call("GetPurchaseLedgers"))

    def debit_ledgers(self) -> Records:
        """Ledgers under Cash In Hand, Bank and Income(Direct)."""
        return Records(self._class.call("GetDebitLedgers"))

    def credit_ledgers(self) -> Records:
        """Ledgers under Sales."""
        return Records(self._class.call("GetCreditLedgers"))

    # Vouchers.

    def next_number(self) -> int:
        """The number of the next voucher of the current year. Nothing is reserved."""
        return int(self._class.call("GetNextTrnID"))

    def insert_voucher(self, number: int, day: Day, category: str, side: str, narration: str, amount: Amount,
                       ledger: int, name: str) -> None:
        """Posts one row of a voucher; call it once for each side, with the same number.

        category: J(ournal), P(ayment), R(eceipt) or C(ontra); side: D(ebit) or C(redit)."""
        self._done("InsertVoucher", number, day_number(day), category[:1], side[:1], narration, amount, ledger, name)

    def update_voucher(self, number: int, day: Day, amount: Amount) -> None:
        """Writes all rows of a voucher again with a new date and one new amount."""
        self._done("UpdateVoucher", number, day_number(day), amount)

    def delete_voucher(self, number: int) -> None:
        """Takes a voucher out of the totals and deletes it; one that is not there is no failure."""
        self._done("DeleteVoucher", number)

    def voucher_reference(self, number: int) -> Any:
        """The reference number of a voucher's first row: None, as nothing writes it."""
        return self.GetVchrNoFromTxnNo(number)

    def voucher_number(self) -> int:
        """The next number of the year as it stands, without reading the current year again."""
        return int(self._class.call("VchrTrnNo"))

    # Years.

    def in_year(self, day: datetime.date, year: int) -> bool:
        """Whether a date lies from 1 April of the year to 31 March of the next."""
        return bool(self._class.call("FinYearValidate", day, year))

    def switch_year(self, year: int | str) -> str:
        """Makes a known year (2002, "2002") the current one and works in it; BooksError for an unknown one."""
        now = str(self._class.call("SetGetFinancialYear", str(year)))
        if not now:
            raise BooksError(0, f"the books have no year {year}", "qmaccounts")
        self.StartDataConn()
        return now

    def set_up_year(self, year: str) -> None:
        """Sets up a working year from its long form, "2002-2003". It cannot be undone, and its failures are silent."""
        self.SetFinancialYear(year)

    def main_menu(self) -> None:
        """Shows the module's main menu and returns when it closes. Needs a display."""
        self.QmMainMenu()

    @property
    def data_path(self) -> str:
        """The folder of the books."""
        return str(self._class.dataPath)

    def _done(self, member: str, *arguments: Any) -> None:
        """Calls a member that answers True; the box of a refusal has its reason."""
        before = len(self.boxes)
        if self._class.call(member, *arguments):
            return
        told = "\n".join(self.boxes[before:])
        raise BooksError(0, _between(told, " Description : ", "\n Source : ") or told or f"{member} was refused",
                         told.rpartition(" Source : ")[2].strip() if " Source : " in told else "")


def _between(text: str, before: str, behind: str) -> str:
    return text.partition(before)[2].partition(behind)[0].strip()


def _wide(address: int) -> str:
    """A text of 16-bit units that ends in 0."""
    length = 0
    while ctypes.c_uint16.from_address(address + 2 * length).value:
        length += 1
    return ctypes.string_at(address, 2 * length).decode("utf-16-le")
