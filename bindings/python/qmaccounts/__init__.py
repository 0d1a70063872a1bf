"""The accounts of one business, for Python: vouchers, ledgers and years by the class server.

    from qmaccounts import Books

    with Books("firm") as books:
        number = books.next_number()
        books.insert_voucher(number, date(2001, 4, 1), "R", "D", "Counter sale", Decimal("1500.50"), 33, "Cash")
        books.insert_voucher(number, date(2001, 4, 1), "R", "C", "Counter sale", Decimal("1500.50"), 38, "Sales")
        books.suppliers().to_csv("suppliers.csv")

It needs nothing but Python's own library and libqmcls.so.
"""

from ._automation import BooksError
from .books import Books, date_of, day_number
from .records import Field, Records

__all__ = ["Books", "BooksError", "Field", "Records", "date_of", "day_number"]
