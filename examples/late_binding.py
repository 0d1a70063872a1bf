#!/usr/bin/env python3
"""A late-bound host: drives the class server by names alone, with nothing but Python's own library.

Usage: late_binding.py path/to/libqmcls.so folder/of/the/books

It posts a voucher of two sides, changes it, deletes it, lists the suppliers and reads the text of a failure.
"""

import ctypes
import os
import sys
import uuid

CLSID_CLQM = "{B551ECA0-2F06-47CD-9DE9-DDD9C381468C}"
IID_CLASS_FACTORY = "{00000001-0000-0000-C000-000000000046}"
IID_DISPATCH = "{00020400-0000-0000-C000-000000000046}"
IID_NULL = "{00000000-0000-0000-0000-000000000000}"

# Places in the virtual tables.
RELEASE, CREATE_INSTANCE, GET_IDS_OF_NAMES, INVOKE = 2, 3, 5, 6

METHOD, GET, PUT = 1, 2, 4
DISPID_PROPERTYPUT = -3
DISP_E_EXCEPTION = 0x80020009

VT_I2, VT_I4, VT_R8, VT_DATE, VT_BSTR, VT_DISPATCH, VT_BOOL = 2, 3, 5, 7, 8, 9, 11


class VariantData(ctypes.Union):
    _fields_ = [
        ("short", ctypes.c_int16),
        ("long", ctypes.c_int32),
        ("double", ctypes.c_double),
        ("pointer", ctypes.c_void_p),
        ("record", ctypes.c_void_p * 2),
    ]


class Variant(ctypes.Structure):
    _anonymous_ = ["data"]
    _fields_ = [("vt", ctypes.c_uint16), ("reserved", ctypes.c_uint16 * 3), ("data", VariantData)]


class Arguments(ctypes.Structure):
    _fields_ = [
        ("values", ctypes.POINTER(Variant)),
        ("names", ctypes.POINTER(ctypes.c_int32)),
        ("count", ctypes.c_uint32),
        ("named", ctypes.c_uint32),
    ]


class Failure(ctypes.Structure):
    _fields_ = [
        ("code", ctypes.c_uint16),
        ("reserved", ctypes.c_uint16),
        ("source", ctypes.c_void_p),
        ("description", ctypes.c_void_p),
        ("help_file", ctypes.c_void_p),
        ("help_context", ctypes.c_uint32),
        ("unused", ctypes.c_void_p),
        ("deferred", ctypes.c_void_p),
        ("scode", ctypes.c_int32),
    ]


class ComError(Exception):
    """A failed call: its HRESULT, the description and the source."""

    def __init__(self, result, description="", source=""):
        self.result = result & 0xFFFFFFFF
        self.description, self.source = description, source
        super().__init__(f"0x{self.result:08X} {description}")


class Library:
    """The class server's library and the few routines that it exports."""

    def __init__(self, path):
        self.exports = ctypes.CDLL(os.path.abspath(path))
        self.exports.SysAllocStringLen.restype = ctypes.c_void_p
        self.exports.SysAllocStringLen.argtypes = [ctypes.c_char_p, ctypes.c_uint32]
        self.exports.SysStringLen.restype = ctypes.c_uint32
        self.exports.SysStringLen.argtypes = [ctypes.c_void_p]
        self.exports.SysFreeString.argtypes = [ctypes.c_void_p]

    def create(self, clsid):
        factory, made = ctypes.c_void_p(), ctypes.c_void_p()
        check(self.exports.DllGetClassObject(guid(clsid), guid(IID_CLASS_FACTORY), ctypes.byref(factory)))
        check(member(factory, CREATE_INSTANCE)(factory, None, guid(IID_DISPATCH), ctypes.byref(made)))
        member(factory, RELEASE)(factory)
        return Dispatch(self, made)

    def may_be_unloaded(self):
        return self.exports.DllCanUnloadNow() == 0

    def variant(self, value):
        if isinstance(value, bool):
            return Variant(VT_BOOL, data=VariantData(short=-1 if value else 0))
        if isinstance(value, int):
            return Variant(VT_I4, data=VariantData(long=value))
        if isinstance(value, float):
            return Variant(VT_R8, data=VariantData(double=value))
        text = value.encode("utf-16-le")
        made = self.exports.SysAllocStringLen(text, len(text) // 2)
        return Variant(VT_BSTR, data=VariantData(pointer=made))

    def value(self, variant):
        """The Python value of a result, which it takes over: a text is freed, an object belongs to its wrapper."""
        if variant.vt == VT_BSTR:
            return self.take_text(variant.pointer)
        if variant.vt == VT_DISPATCH:
            return Dispatch(self, ctypes.c_void_p(variant.pointer))
        if variant.vt == VT_BOOL:
            return variant.short != 0
        plain = {VT_I2: "short", VT_I4: "long", VT_R8: "double", VT_DATE: "double"}
        return getattr(variant, plain[variant.vt]) if variant.vt in plain else None

    def take_text(self, bstr):
        text = ctypes.string_at(bstr, self.exports.SysStringLen(bstr) * 2).decode("utf-16-le") if bstr else ""
        self.exports.SysFreeString(bstr)
        return text


class Dispatch:
    """An object by its names: `rows.MoveNext()`, `field.Value()`, `host.dataPath = folder`."""

    def __init__(self, library, pointer):
        self.__dict__.update(_library=library, _pointer=pointer)

    def __getattr__(self, name):
        return lambda *arguments, **named: self._invoke(name, METHOD | GET, arguments, named)

    def __setattr__(self, name, value):
        self._invoke(name, PUT, [value], {})

    def __del__(self):
        member(self._pointer, RELEASE)(self._pointer)

    def _ids(self, names):
        texts = [ctypes.create_string_buffer((name + "\0").encode("utf-16-le")) for name in names]
        pointers = (ctypes.c_void_p * len(names))(*[ctypes.addressof(text) for text in texts])
        ids = (ctypes.c_int32 * len(names))()
        check(member(self._pointer, GET_IDS_OF_NAMES)(self._pointer, guid(IID_NULL), pointers, len(names), 0, ids))
        return list(ids)

    def _invoke(self, name, flags, positional, named):
        own, *names = self._ids([name, *named])
        if flags == PUT:
            names = [DISPID_PROPERTYPUT]
        # The named ones come first, the others behind them with the last one first.
        values = [self._library.variant(value) for value in [*named.values(), *reversed(positional)]]
        arguments = Arguments((Variant * len(values))(*values), (ctypes.c_int32 * len(names))(*names),
                              len(values), len(names))
        result, failure = Variant(), Failure()
        outcome = member(self._pointer, INVOKE)(
            self._pointer, own, guid(IID_NULL), 0, flags, ctypes.byref(arguments), ctypes.byref(result),
            ctypes.byref(failure), None)
        for value in values:
            if value.vt == VT_BSTR:
                self._library.exports.SysFreeString(value.pointer)
        if outcome & 0xFFFFFFFF == DISP_E_EXCEPTION:
            take = self._library.take_text
            raise ComError(failure.scode, take(failure.description), take(failure.source))
        check(outcome)
        return self._library.value(result)


def guid(text):
    return uuid.UUID(text).bytes_le


def member(pointer, place):
    """The routine at a place of an object's virtual table."""
    table = ctypes.cast(pointer, ctypes.POINTER(ctypes.POINTER(ctypes.c_void_p)))[0]
    kinds = {
        RELEASE: [],
        CREATE_INSTANCE: [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_void_p],
        GET_IDS_OF_NAMES: [ctypes.c_char_p, ctypes.c_void_p, ctypes.c_uint32, ctypes.c_uint32, ctypes.c_void_p],
        INVOKE: [ctypes.c_int32, ctypes.c_char_p, ctypes.c_uint32, ctypes.c_uint16] + [ctypes.c_void_p] * 4,
    }
    return ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, *kinds[place])(table[place])


def check(result):
    if result < 0:
        raise ComError(result)


# Here the host begins.

FIRST_OF_APRIL_2001 = 36980


def ledgers(rows):
    """Number and name of each ledger in a record set, which is closed behind it."""
    found = []
    while not rows.EOF():
        found.append((rows.Fields(0).Value(), rows.Fields("Name").Value()))
        rows.MoveNext()
    rows.Close()
    return found


def post_change_delete(host):
    (cash, cash_name), *_ = ledgers(host.Ledgers("Ledger_Master.PrimaryGrp = 'Cash In Hand'"))
    (sales, sales_name), *_ = ledgers(host.GetCreditLedgers())
    number = host.GetNextTrnID()
    posted = [
        host.InsertVoucher(number, FIRST_OF_APRIL_2001, "R", "D", "Counter sale", 1500.5, cash, cash_name),
        host.InsertVoucher(number, FIRST_OF_APRIL_2001, "R", "C", "Counter sale",
                           lLedCode=sales, sLedName=sales_name, dAmt=1500.5),
    ]
    print(f"posted voucher {number}: {cash_name} to {sales_name} 1500.50: {posted}")
    following = host.VchrTrnNo()
    print(f"the next voucher is {following}; changed:", host.UpdateVoucher(number, FIRST_OF_APRIL_2001 + 1, 2000))
    print("deleted:", host.DeleteVoucher(number), "- the next voucher is", host.GetNextTrnID())
    return posted == [True, True] and following == number + 1 and host.GetNextTrnID() == number


def failure_of(call):
    try:
        call()
    except ComError as error:
        print(f"a failure reads: {error} (from {error.source})")
        return error.description
    return ""


def main(library_path, folder):
    library = Library(library_path)
    host = library.create(CLSID_CLQM)
    host.dataPath = folder.rstrip("/") + "/"
    host.StartDataConn()
    print("books in", host.dataPath())

    done = post_change_delete(host)
    suppliers = ledgers(host.GetSuppliers())
    for number, name in suppliers:
        print(f"supplier {number}: {name}")
    text = failure_of(lambda: host.Ledgers("NoSuchField = 1"))

    del host
    print("the library may be unloaded:", library.may_be_unloaded())
    return 0 if done and suppliers and text and library.may_be_unloaded() else 1


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
