"""The binary layout of automation objects: structures, texts and arrays in memory, and calls through their tables."""

import ctypes
import uuid

VT_EMPTY, VT_NULL, VT_I4, VT_R8, VT_DATE, VT_BSTR = 0, 1, 3, 5, 7, 8
VT_DISPATCH, VT_ERROR, VT_BOOL, VT_VARIANT, VT_UNKNOWN, VT_UI1, VT_I8 = 9, 10, 11, 12, 13, 17, 20
VT_ARRAY, VT_BYREF = 0x2000, 0x4000

DISPATCH_METHOD, DISPATCH_GET, DISPATCH_PUT, DISPATCH_PUTREF = 1, 2, 4, 8
DISPID_PUT, DISPID_ENUMERATOR = -3, -4


def hresult(bits):
    return ctypes.c_int32(bits).value


E_OUTOFMEMORY = hresult(0x8007000E)
DISP_E_PARAMNOTFOUND = hresult(0x80020004)
DISP_E_TYPEMISMATCH = hresult(0x80020005)
DISP_E_EXCEPTION = hresult(0x80020009)
DISP_E_OVERFLOW = hresult(0x8002000A)


class GUID(ctypes.Structure):
    _fields_ = [("bytes", ctypes.c_ubyte * 16)]


def identifier(text):
    return GUID.from_buffer_copy(uuid.UUID(text).bytes_le)


IID_NULL = GUID()
IID_IUnknown = identifier("00000000-0000-0000-C000-000000000046")
IID_IClassFactory = identifier("00000001-0000-0000-C000-000000000046")
IID_IDispatch = identifier("00020400-0000-0000-C000-000000000046")
IID_IEnumVARIANT = identifier("00020404-0000-0000-C000-000000000046")
IID_IErrorInfo = identifier("1CF2B120-547D-101B-8E65-08002B2BD119")


class _Value(ctypes.Union):
    _fields_ = [
        ("whole", ctypes.c_int64),
        ("long", ctypes.c_int32),
        ("byte", ctypes.c_uint8),
        ("truth", ctypes.c_int16),
        ("double", ctypes.c_double),
        ("pointer", ctypes.c_void_p),
        ("record", ctypes.c_void_p * 2),
    ]


class VARIANT(ctypes.Structure):
    _anonymous_ = ("value",)
    _fields_ = [("vt", ctypes.c_uint16), ("reserved", ctypes.c_uint16 * 3), ("value", _Value)]


class DISPPARAMS(ctypes.Structure):
    _fields_ = [
        ("arguments", ctypes.c_void_p),
        ("names", ctypes.c_void_p),
        ("count", ctypes.c_uint32),
        ("named", ctypes.c_uint32),
    ]


class EXCEPINFO(ctypes.Structure):
    _fields_ = [
        ("code", ctypes.c_uint16),
        ("reserved", ctypes.c_uint16),
        ("source", ctypes.c_void_p),
        ("description", ctypes.c_void_p),
        ("help_file", ctypes.c_void_p),
        ("help_context", ctypes.c_uint32),
        ("more", ctypes.c_void_p),
        ("deferred", ctypes.c_void_p),
        ("scode", ctypes.c_int32),
    ]


class _Bound(ctypes.Structure):
    _fields_ = [("count", ctypes.c_uint32), ("first", ctypes.c_int32)]


class SAFEARRAY(ctypes.Structure):
    """With room for two dimensions, of which the last stands first."""

    _fields_ = [
        ("dimensions", ctypes.c_uint16),
        ("features", ctypes.c_uint16),
        ("element_size", ctypes.c_uint32),
        ("locks", ctypes.c_uint32),
        ("data", ctypes.c_void_p),
        ("bounds", _Bound * 2),
    ]


assert ctypes.sizeof(VARIANT) == 24 and ctypes.sizeof(EXCEPINFO) == 64 and SAFEARRAY.bounds.offset == 24

_c = ctypes.CDLL(None)
_c.calloc.restype = ctypes.c_void_p
_c.calloc.argtypes = [ctypes.c_size_t, ctypes.c_size_t]
_c.free.argtypes = [ctypes.c_void_p]
_TEXTS = 0x0100  # the elements are texts, which go with the array


def _new_block(size):
    block = _c.calloc(1, size)
    if not block:
        raise MemoryError
    return block


# A text begins 8 bytes into its block, its length in bytes in the 4 before it, a zero behind it.


def new_text(text):
    """Raises UnicodeEncodeError for half a surrogate pair, which the library cannot keep."""
    units = text.encode("utf-16-le")
    at = _new_block(8 + len(units) + 2) + 8
    ctypes.c_uint32.from_address(at - 4).value = len(units)
    ctypes.memmove(at, units, len(units))
    return at


def text_at(at):
    if not at:
        return ""
    size = ctypes.c_uint32.from_address(at - 4).value
    return ctypes.string_at(at, size).decode("utf-16-le", "surrogatepass")


def free_text(at):
    if at:
        _c.free(at - 8)


def text_taken(at):
    """A text that was handed over, which is freed."""
    text = text_at(at)
    free_text(at)
    return text


def new_bytes(content):
    at = _new_block(ctypes.sizeof(SAFEARRAY))
    array = SAFEARRAY.from_address(at)
    array.dimensions, array.element_size, array.bounds[0].count = 1, 1, len(content)
    try:
        array.data = _new_block(max(len(content), 1))
    except MemoryError:
        _c.free(at)
        raise
    ctypes.memmove(array.data, content, len(content))
    return at


def bytes_at(at):
    if not at:
        return b""
    array = SAFEARRAY.from_address(at)
    return ctypes.string_at(array.data, array.bounds[0].count)


def rows_at(at):
    """A two-dimensional array of texts as a list of rows."""
    if not at or SAFEARRAY.from_address(at).dimensions != 2:
        return []
    array = SAFEARRAY.from_address(at)
    columns, rows = array.bounds[0].count, array.bounds[1].count
    cells = (ctypes.c_void_p * (columns * rows)).from_address(array.data)
    return [[text_at(cells[column * rows + row]) for column in range(columns)] for row in range(rows)]


def _free_array(at):
    if not at:
        return
    array = SAFEARRAY.from_address(at)
    if array.features & _TEXTS:
        count = 1
        for dimension in range(array.dimensions):
            count *= array.bounds[dimension].count
        for cell in (ctypes.c_void_p * count).from_address(array.data):
            free_text(cell)
    _c.free(array.data)
    _c.free(at)


def clear(variant):
    """Frees what a variant owns and empties it; what it refers to stays."""
    kind, at = variant.vt, variant.pointer
    variant.vt = VT_EMPTY
    if kind & VT_BYREF:
        return
    if kind & VT_ARRAY:
        _free_array(at)
    elif kind == VT_BSTR:
        free_text(at)
    elif kind in (VT_DISPATCH, VT_UNKNOWN) and at:
        release(at)


def _method(place, *types):
    """A call of the method at a place of an object's table. Other threads run meanwhile."""
    prototype = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, *types)
    known = {}

    def call(at, *arguments):
        table = ctypes.c_void_p.from_address(at).value
        address = ctypes.c_void_p.from_address(table + 8 * place).value
        function = known.get(address)
        if function is None:
            function = known[address] = prototype(address)
        return function(at, *arguments)

    return call


_at = ctypes.c_void_p
query_interface = _method(0, _at, _at)
add_reference = _method(1)
release = _method(2)
create_instance = _method(3, _at, _at, _at)
next_elements = _method(3, ctypes.c_uint32, _at, _at)
_error_source = _method(4, _at)
_error_description = _method(5, _at)
invoke = _method(6, ctypes.c_int32, _at, ctypes.c_uint32, ctypes.c_uint16, _at, _at, _at, _at)


def interface_of(at, wanted):
    """Another interface of an object, with a reference; None if it has none of that identifier."""
    found = ctypes.c_void_p()
    result = query_interface(at, ctypes.byref(wanted), ctypes.byref(found))
    return found.value if result >= 0 else None


def error_told(at):
    """Source and description of the failure of an object's last call, both empty if it tells of none."""
    information = interface_of(at, IID_IErrorInfo)
    if information is None:
        return "", ""
    source, description = ctypes.c_void_p(), ctypes.c_void_p()
    _error_source(information, ctypes.byref(source))
    _error_description(information, ctypes.byref(description))
    release(information)
    return text_taken(source.value), text_taken(description.value)
