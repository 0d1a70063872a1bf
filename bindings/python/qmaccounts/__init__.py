"""The accounts of one business, for Python: vouchers, ledgers and years by the class server.

    from qmaccounts import Books

    with Books("firm") as books:
        number, day, amount = books.next_number(), date(2001, 4, 1), Decimal("1500.50")
        books.insert_voucher(number, day, "Receipt", "Debit", "Counter sale", amount, 33, "Cash")
        books.insert_voucher(number, day, "Receipt", "Credit", "Counter sale", amount, 37, "Sales of Goods")
        books.suppliers().to_csv("suppliers.csv")

It needs nothing but Python's own library and libqmcls.so.
"""

from ._automation import BooksError
from .books import Books, date_of, day_number
from .records import Field, Records

__all__ = ["Books", "BooksError", "Field", "Records", "date_of", "day_number"]
