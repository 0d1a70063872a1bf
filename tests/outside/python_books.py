#!/usr/bin/env python3
"""The Python package on sample books: python_books.py PACKAGES LIBRARY FOLDER"""

import csv
import datetime
import io
import pathlib
import sys
import tempfile
import unittest
from decimal import Decimal

packages, library, folder = sys.argv[1:4]
sys.path.insert(0, packages)
import qmaccounts  # noqa: E402
from qmaccounts import Books, BooksError  # noqa: E402

DAY = datetime.date(2001, 4, 1)


class BooksTest(unittest.TestCase):
    def setUp(self):
        self.books = Books(folder, library=library)
        self.addCleanup(self.books.close)
        self.cash = next(iter(self.books.ledgers("Ledger_Master.PrimaryGrp = 'Cash In Hand'")))
        self.sales = next(iter(self.books.credit_ledgers()))

    def test_a_voucher_is_posted_changed_and_deleted(self):
        number = self.books.next_number()
        rows = [(side, ledger.Ledger_ID, ledger.Name) for side, ledger in (("Debit", self.cash), ("Credit", self.sales))]
        for side, ledger, name in rows:
            self.books.insert_voucher(number, DAY, "Receipt", side, "Counter sale", Decimal("1500.55"), ledger, name)
        posted = f"(Select LedgerCode From tb_Ledger{self.year()} " \
                 f"Where LedgerTrnNo = {number} And LedgerDrAmt + LedgerCrAmt = {{}} And LedgerTxnDate = {{}})"
        found = lambda amount, day: sorted(  # noqa: E731
            row.Name for row in self.books.ledgers(
                "Ledger_Master.Ledger_ID In " + posted.format(amount, qmaccounts.day_number(day))))
        self.assertEqual(found(1500.55, DAY), sorted([self.cash.Name, self.sales.Name]))
        self.assertEqual(self.books.next_number(), number + 1)
        self.books.update_voucher(number, DAY + datetime.timedelta(1), 20)
        self.assertEqual(found(20, DAY + datetime.timedelta(1)), sorted([self.cash.Name, self.sales.Name]))
        self.books.delete_voucher(number)
        self.assertEqual(self.books.GetNextTrnID(), number)
        self.assertEqual(self.books.boxes, [])

    def year(self):
        return next(year for year in range(2000, 2100) if self.knows(year))

    def knows(self, year):
        try:
            self.books.ledgers(f"Exists (Select * From tb_Ledger{year})")
            return True
        except BooksError:
            return False

    def test_what_is_refused_raises_what_its_box_said(self):
        with self.assertRaises(BooksError) as refused:
            self.books.insert_voucher(1, DAY, "X", "D", "n", 1, self.cash.Ledger_ID, self.cash.Name)
        self.assertEqual(refused.exception.number, 0)
        self.assertIn("Number of query values", refused.exception.text)
        self.assertEqual(refused.exception.source, "ado.Statement")
        self.assertIn("Formname: Class-ClQm", self.books.boxes[0])
        self.assertIs(self.books.InsertVoucher(1, 36980, "X", "D", "n", 1.0, 1, "n"), False)
        for call, number, source in ((lambda: self.books.ledgers("Nothing = 1"), -2147217904, "ado.Statement"),
                                     (lambda: self.books.voucher_reference(99999), 9, "clQm"),
                                     (lambda: self.books.ledgers().Fields.Item(7), 3265, "ado.Recordset"),
                                     (lambda: self.books.ledgers().Move(-1), -2147217884, "ado.Recordset"),
                                     (lambda: self.books.switch_year(1950), 0, "qmaccounts")):
            with self.assertRaises(BooksError) as refused:
                call()
            self.assertEqual((refused.exception.number, refused.exception.source), (number, source))
            self.assertTrue(refused.exception.text)
        with self.assertRaises(AttributeError):
            self.books.Nothing
        with self.assertRaises(RuntimeError):
            Books(folder, library=library)
        self.books.close()
        with self.assertRaises(BooksError) as refused:
            self.books.next_number()
        self.assertEqual(refused.exception.number, 3704)
        with self.assertRaises(BooksError) as refused:
            Books(folder + "/nothing", library=library)
        self.assertRegex(refused.exception.text, "Could not find the books file|holds no such books")

    def test_rows_are_named_tuples_and_walked_by_either_names(self):
        with self.books.suppliers() as rows:
            self.assertEqual([(field.name, field.type) for field in rows.fields],
                             [("Ledger_ID", int), ("Name", str), ("Deleted", bool)])
            walked = []
            while not rows.EOF:
                walked.append((rows.Fields.Item(0).Value, rows.Fields.Item("Name").Value, rows.Fields.Item(2).Value))
                rows.MoveNext()
            self.assertEqual(list(rows.first()), walked)
            self.assertEqual(list(rows), [])
            self.assertEqual(len(rows), len(walked))
            self.assertIsInstance(walked[0][2], bool)
            name = walked[-1][1]
            self.assertTrue(rows.first().find(f"Name = '{name}'"))
            self.assertEqual(next(iter(rows)).Name, name)
            rows.filter = f"Name = '{name}'"
            self.assertEqual((len(rows), rows.filter, [row.Name for row in rows]), (1, f"Name = '{name}'", [name]))
            self.assertFalse(rows.first().find("Name = 'nobody'"))
            rows.filter = ""
            self.assertEqual(len(rows.requery()), len(walked))
            self.assertTrue({"MoveNext", "GetRows", "find", "to_csv"} <= set(dir(rows)))
        self.assertEqual(rows.State, 0)

    def test_more_rows_than_are_taken_at_once(self):
        every = self.books.ledgers("Exists (Select * From Ledger_Master)")
        whole = [tuple(row) for row in every]
        qmaccounts.records._CHUNK, before = 3, qmaccounts.records._CHUNK
        try:
            self.assertEqual([tuple(row) for row in every.first()], whole)
        finally:
            qmaccounts.records._CHUNK = before
        self.assertGreater(len(whole), 9)

    def test_rows_go_into_a_table_of_text(self):
        rows = self.books.suppliers()
        names = [row.Name for row in rows]
        with tempfile.TemporaryDirectory() as place:
            file = pathlib.Path(place) / "suppliers.csv"
            self.assertEqual(rows.first().to_csv(file), len(names))
            with open(file, newline="", encoding="utf-8") as opened:
                read = list(csv.reader(opened))
        self.assertEqual(read[0], ["Ledger_ID", "Name", "Deleted"])
        self.assertEqual([line[1] for line in read[1:]], names)

        class Formula:
            EOF = False

            def GetRows(self, _):
                self.EOF = True
                return [(1, "=1+1", None)]

        rows.__dict__["_rows"] = Formula()
        written = io.StringIO()
        rows.to_csv(written, delimiter=";")
        self.assertEqual(written.getvalue().splitlines()[1], "1;'=1+1;")
        try:
            import pandas
        except ImportError:
            with self.assertRaises(ImportError):
                self.books.suppliers().to_frame()
        else:
            frame = self.books.suppliers().to_frame()
            self.assertIsInstance(frame, pandas.DataFrame)
            self.assertEqual(list(frame["Name"]), names)

    def test_values_go_both_ways(self):
        self.assertTrue(self.books.in_year(DAY, 2001))
        self.assertFalse(self.books.in_year(datetime.date(2002, 4, 1), 2001))
        self.assertEqual(self.books.data_path, self.books.path)
        self.assertEqual(self.books.dataPath, self.books.path)
        self.assertEqual((qmaccounts.day_number(DAY), qmaccounts.date_of(36980)), (36980, DAY))
        value = self.books._library
        for given in (None, True, -5, 2.5, "नकद ₹", 2**40):
            self.assertEqual(value.value(value.variant(given)), given)
        for text in ("0", "-0.1", "1E+3", "79228162514264337593543950335"):
            decimal = value.variant(Decimal(text))
            self.assertEqual(decimal.vt, 14)
        self.assertEqual(value.variant(Decimal("1E+40")).vt, 5)


if __name__ == "__main__":
    sys.argv[1:] = []
    unittest.main()
