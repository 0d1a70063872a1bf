"""The binary face of the class server: objects by the names of their members, values as Python's own.

An object is asked for its type information once, so that what is a property reads as an attribute and what is a
method is called.
"""

from __future__ import annotations

import ctypes
import datetime
import decimal
import os
import uuid
from typing import Any, Callable, Iterator

IID_NULL = uuid.UUID(int=0).bytes_le
IID_DISPATCH = uuid.UUID("00020400-0000-0000-C000-000000000046").bytes_le
IID_CLASS_FACTORY = uuid.UUID("00000001-0000-0000-C000-000000000046").bytes_le

METHOD, GET, PUT = 1, 2, 4
DISPID_PROPERTYPUT = -3
DISP_E_EXCEPTION = -0x7FFDFFF7
CLASSIC = 0x800A0000  # a classic number is added to it

NULL, I2, I4, R8, CY, DATE, TEXT, OBJECT, MISSING, BOOL, DECIMAL = 1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 14
ARRAY_OF_VARIANTS = 0x200C
PARAMETER_NOT_FOUND = -0x7FFDFFFC
FIRST_DAY = datetime.datetime(1899, 12, 30)


class BooksError(Exception):
    """A failure: its `number` (a classic one such as 3021, or a negative one of the books), `source` and `text`."""

    def __init__(self, number: int, text: str = "", source: str = "") -> None:
        self.number, self.text, self.source = number, text, source
        super().__init__(f"{text or 'the call failed'} ({number}{', ' + source if source else ''})")

    @classmethod
    def of(cls, result: int, text: str = "", source: str = "") -> BooksError:
        classic = (result & 0xFFFFFFFF) - CLASSIC
        return cls(classic if 0 < classic < 0x10000 else result, text, source)


class _Decimal(ctypes.Structure):
    _fields_ = [("vt", ctypes.c_uint16), ("scale", ctypes.c_uint8), ("sign", ctypes.c_uint8),
                ("high", ctypes.c_uint32), ("low", ctypes.c_uint64)]


class _Bound(ctypes.Structure):
    _fields_ = [("count", ctypes.c_uint32), ("first", ctypes.c_int32)]


class _Array(ctypes.Structure):
    _fields_ = [("dimensions", ctypes.c_uint16), ("features", ctypes.c_uint16), ("size", ctypes.c_uint32),
                ("locks", ctypes.c_uint32), ("data", ctypes.c_void_p), ("last", _Bound), ("first", _Bound)]


class _Data(ctypes.Union):
    _fields_ = [("short", ctypes.c_int16), ("long", ctypes.c_int32), ("wide", ctypes.c_int64),
                ("double", ctypes.c_double), ("pointer", ctypes.c_void_p), ("record", ctypes.c_void_p * 2)]


class Variant(ctypes.Structure):
    _anonymous_ = ["data"]
    _fields_ = [("vt", ctypes.c_uint16), ("reserved", ctypes.c_uint16 * 3), ("data", _Data)]


class _Arguments(ctypes.Structure):
    _fields_ = [("values", ctypes.POINTER(Variant)), ("names", ctypes.POINTER(ctypes.c_int32)),
                ("count", ctypes.c_uint32), ("named", ctypes.c_uint32)]


class _Failure(ctypes.Structure):
    _fields_ = [("code", ctypes.c_uint16), ("reserved", ctypes.c_uint16), ("source", ctypes.c_void_p),
                ("text", ctypes.c_void_p), ("file", ctypes.c_void_p), ("context", ctypes.c_uint32),
                ("unused", ctypes.c_void_p), ("deferred", ctypes.c_void_p), ("result", ctypes.c_int32)]


_POINTER, _INT, _ID = ctypes.c_void_p, ctypes.c_uint32, ctypes.c_int32
# The routines of a virtual table: the place, and what stands behind the object.
_RELEASE = (2, ())
_CREATE_INSTANCE = (3, (_POINTER, ctypes.c_char_p, _POINTER))
_GET_TYPE_INFO = (4, (_INT, _INT, _POINTER))
_GET_IDS = (5, (ctypes.c_char_p, _POINTER, _INT, _INT, _POINTER))
_INVOKE = (6, (_ID, ctypes.c_char_p, _INT, ctypes.c_uint16, _POINTER, _POINTER, _POINTER, _POINTER))
_INFO_FUNCTION = (5, (_INT, _POINTER))
_INFO_NAMES = (7, (_ID, _POINTER, _INT, _POINTER))
_INFO_RELEASE_FUNCTION = (20, (_POINTER,))
# Within the description of a function.
_KIND_AT, _COUNT_AT = 28, 36

BoxHandler = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, ctypes.c_void_p, ctypes.c_int32, ctypes.c_void_p)


def _member(pointer: ctypes.c_void_p, routine: tuple[int, tuple[Any, ...]]) -> Callable[..., int]:
    place, kinds = routine
    table = ctypes.cast(pointer, ctypes.POINTER(ctypes.POINTER(ctypes.c_void_p)))[0]
    call = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, *kinds)(table[place])
    return lambda *arguments: call(pointer, *arguments)


def check(result: int) -> None:
    if result < 0:
        raise BooksError.of(result)


class Library:
    """The class server's library: makes its objects and turns values."""

    def __init__(self, path: str | None = None) -> None:
        named = path or os.environ.get("QM_LIBRARY")
        self.exports = ctypes.CDLL(os.path.abspath(named) if named else "libqmcls.so")
        for name, result, arguments in (("SysAllocStringLen", ctypes.c_void_p, (ctypes.c_char_p, ctypes.c_uint32)),
                                        ("SysStringLen", ctypes.c_uint32, (ctypes.c_void_p,)),
                                        ("SysFreeString", None, (ctypes.c_void_p,)),
                                        ("VariantClear", ctypes.c_int32, (ctypes.c_void_p,)),
                                        ("QmSetBoxHandler", None, (ctypes.c_void_p, ctypes.c_void_p))):
            routine = getattr(self.exports, name)
            routine.restype, routine.argtypes = result, arguments

    def create(self, clsid: str) -> Object:
        factory, made = ctypes.c_void_p(), ctypes.c_void_p()
        check(self.exports.DllGetClassObject(uuid.UUID(clsid).bytes_le, IID_CLASS_FACTORY, ctypes.byref(factory)))
        try:
            check(_member(factory, _CREATE_INSTANCE)(None, IID_DISPATCH, ctypes.byref(made)))
        finally:
            _member(factory, _RELEASE)()
        return Object(self, made)

    def text(self, bstr: int | None) -> str:
        """The text, which is freed."""
        told = ctypes.string_at(bstr, self.exports.SysStringLen(bstr) * 2).decode("utf-16-le") if bstr else ""
        self.exports.SysFreeString(bstr)
        return told

    def variant(self, value: Any) -> Variant:
        if value is None:
            return Variant(NULL)
        if value is ...:
            return Variant(MISSING, data=_Data(long=PARAMETER_NOT_FOUND))
        if isinstance(value, bool):
            return Variant(BOOL, data=_Data(short=-1 if value else 0))
        if isinstance(value, int) and -2**31 <= value < 2**31:
            return Variant(I4, data=_Data(long=value))
        if isinstance(value, (int, float)):
            return Variant(R8, data=_Data(double=value))
        if isinstance(value, decimal.Decimal):
            return _decimal_variant(value)
        if isinstance(value, datetime.date):
            moment = value if isinstance(value, datetime.datetime) else datetime.datetime(*value.timetuple()[:3])
            return Variant(DATE, data=_Data(double=(moment - FIRST_DAY) / datetime.timedelta(days=1)))
        if isinstance(value, str):
            wide = value.encode("utf-16-le")
            return Variant(TEXT, data=_Data(pointer=self.exports.SysAllocStringLen(wide, len(wide) // 2)))
        raise TypeError(f"no value for the books: {value!r}")

    def value(self, variant: Variant) -> Any:
        """The value of a result, which is taken over."""
        if variant.vt == OBJECT:
            return Object(self, ctypes.c_void_p(variant.pointer)) if variant.pointer else None
        try:
            return self._plain(variant)
        finally:
            self.exports.VariantClear(ctypes.byref(variant))

    def _plain(self, variant: Variant) -> Any:
        if variant.vt == TEXT:
            length = self.exports.SysStringLen(variant.pointer)
            return ctypes.string_at(variant.pointer, length * 2).decode("utf-16-le") if length else ""
        if variant.vt == BOOL:
            return variant.short != 0
        if variant.vt == DATE:
            return FIRST_DAY + datetime.timedelta(days=variant.double)
        if variant.vt == CY:
            return decimal.Decimal(variant.wide) / 10000
        if variant.vt == ARRAY_OF_VARIANTS:
            return list(self._records(ctypes.cast(variant.pointer, ctypes.POINTER(_Array)).contents))
        return {I2: variant.short, I4: variant.long, R8: variant.double}.get(variant.vt)

    def _records(self, array: _Array) -> Iterator[tuple[Any, ...]]:
        """An array of two dimensions, by the second one."""
        width, height = array.first.count, array.last.count
        cells = (Variant * (width * height)).from_address(array.data)
        for row in range(height):
            yield tuple(self._plain(cells[row * width + field]) for field in range(width))


def _decimal_variant(value: decimal.Decimal) -> Variant:
    sign, digits, exponent = value.as_tuple()
    if not isinstance(exponent, int):
        raise ValueError(f"no amount: {value}")
    whole = int("".join(map(str, digits))) * 10 ** max(exponent, 0)
    if exponent < -28 or whole >= 2**96:
        return Variant(R8, data=_Data(double=float(value)))
    made = Variant()
    ctypes.memmove(ctypes.byref(made), ctypes.byref(_Decimal(
        DECIMAL, max(-exponent, 0), 0x80 if sign else 0, whole >> 64, whole & (2**64 - 1))), ctypes.sizeof(_Decimal))
    return made


class Object:
    """An object by its members' names: properties are attributes, methods are called, `...` is a missing argument."""

    _kinds: dict[str, int]

    def __init__(self, library: Library, pointer: ctypes.c_void_p) -> None:
        self.__dict__.update(_library=library, _pointer=pointer, _ids={}, _kinds={})
        self._describe()

    def _describe(self) -> None:
        """Which members there are, and whether each reads like an attribute."""
        info = ctypes.c_void_p()
        check(_member(self._pointer, _GET_TYPE_INFO)(0, 0, ctypes.byref(info)))
        function, name, given = ctypes.c_void_p(), ctypes.c_void_p(), ctypes.c_uint32()
        index = 0
        while _member(info, _INFO_FUNCTION)(index, ctypes.byref(function)) == 0:
            address = function.value or 0
            number = ctypes.c_int32.from_address(address).value
            kind = ctypes.c_int32.from_address(address + _KIND_AT).value
            plain = kind == GET and ctypes.c_int16.from_address(address + _COUNT_AT).value == 0
            check(_member(info, _INFO_NAMES)(number, ctypes.byref(name), 1, ctypes.byref(given)))
            self._kinds.setdefault(self._library.text(name.value), GET if plain else METHOD)
            _member(info, _INFO_RELEASE_FUNCTION)(function)
            index += 1
        _member(info, _RELEASE)()

    def __del__(self) -> None:
        _member(self._pointer, _RELEASE)()

    def __dir__(self) -> list[str]:
        return sorted(self._kinds)

    def __getattr__(self, name: str) -> Any:
        kind = self._kinds.get(name)
        if kind is None:
            raise AttributeError(name)
        if kind == GET:
            return self.call(name)
        return lambda *arguments, **named: self.call(name, *arguments, **named)

    def __setattr__(self, name: str, value: Any) -> None:
        self._invoke(name, PUT, [value], {})

    def call(self, name: str, *arguments: Any, **named: Any) -> Any:
        return self._invoke(name, METHOD | GET, arguments, named)

    def _find(self, names: tuple[str, ...]) -> list[int]:
        known: list[int] | None = self._ids.get(names)
        if known is None:
            texts = [ctypes.create_string_buffer((name + "\0").encode("utf-16-le")) for name in names]
            pointers = (ctypes.c_void_p * len(names))(*[ctypes.addressof(text) for text in texts])
            ids = (ctypes.c_int32 * len(names))()
            result = _member(self._pointer, _GET_IDS)(IID_NULL, pointers, len(names), 0, ids)
            if result < 0:
                raise AttributeError(", ".join(names))
            self._ids[names] = known = list(ids)
        return known

    def _invoke(self, name: str, flags: int, positional: Any, named: dict[str, Any]) -> Any:
        own, *names = self._find((name, *named))
        if flags == PUT:
            names = [DISPID_PROPERTYPUT]
        # The named ones come first, the others behind them with the last one first.
        values = [self._library.variant(value) for value in [*named.values(), *reversed(positional)]]
        arguments = _Arguments((Variant * len(values))(*values), (ctypes.c_int32 * len(names))(*names),
                               len(values), len(names))
        result, failure = Variant(), _Failure()
        outcome = _member(self._pointer, _INVOKE)(own, IID_NULL, 0, flags, ctypes.byref(arguments),
                                                  ctypes.byref(result), ctypes.byref(failure), None)
        for value in values:
            self._library.exports.VariantClear(ctypes.byref(value))
        if outcome == DISP_E_EXCEPTION:
            raise BooksError.of(failure.result, self._library.text(failure.text), self._library.text(failure.source))
        check(outcome)
        return self._library.value(result)
