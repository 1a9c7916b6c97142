"""A host in another language: makes an entry, edits, validates and saves it, on a database of its own.

    main.py libNolSchedCtls.so
"""
import ctypes
import sqlite3
import sys
from ctypes import CFUNCTYPE, POINTER, byref, c_char_p, c_int32, c_size_t, c_uint32, c_uint64, c_void_p

OK, NO = 0, 1
CHANGED = (1, "")
TEXT, HANDLE, INDEX, PLACE, NEW = c_char_p, c_uint64, c_int32, POINTER(c_char_p), POINTER(c_uint64)

# The services and the table as c_interface.h has them, member by member.
Asked = CFUNCTYPE(c_int32, c_void_p, TEXT, HANDLE)
Message = CFUNCTYPE(c_int32, c_void_p, TEXT, c_int32, TEXT)
Heard = CFUNCTYPE(None, c_void_p, c_int32, HANDLE, TEXT)
ASKED = ["Execute", "Query", "Literal", "Documents", "Settings", "Now", "DateOrder", "Report"]


class Services(ctypes.Structure):
    _fields_ = [("size", c_size_t), ("host", c_void_p), *((name, Asked) for name in ASKED), ("Message", Message)]


FUNCTIONS = {
    "InstallServices": [POINTER(Services)], "NewRow": [HANDLE], "Give": [HANDLE, TEXT, TEXT],
    "Release": [HANDLE], "CreateRecord": [NEW], "InitNew": [HANDLE, c_int32, c_int32, TEXT],
    "InitEdit": [HANDLE], "ColumnName": [INDEX, PLACE], "SetColumn": [HANDLE, TEXT, TEXT],
    "GetColumn": [HANDLE, TEXT, PLACE], "GetOverride": [HANDLE, INDEX, TEXT, PLACE],
    "SaveNolOverrides": [HANDLE], "CreateNotifier": [Heard, c_void_p, NEW], "CreateTab": [TEXT, NEW],
    "LoadData": [HANDLE, HANDLE, HANDLE], "IsTabValid": [HANDLE, TEXT], "SaveData": [HANDLE],
    "SaveState": [HANDLE], "FieldName": [HANDLE, INDEX, PLACE], "GetField": [HANDLE, TEXT, TEXT, PLACE],
    "GetEntry": [HANDLE, TEXT, INDEX, PLACE], "Act": [HANDLE, TEXT, TEXT, TEXT]}


class Table(ctypes.Structure):
    _fields_ = [("size", c_size_t), ("version", c_uint32), ("libraryVersion", TEXT),
                ("LastFailure", CFUNCTYPE(TEXT)),
                *((name, CFUNCTYPE(c_int32, *takes)) for name, takes in FUNCTIONS.items())]


library = ctypes.CDLL(sys.argv[1])
found = c_void_p()
assert library.DllGetClassObject(b"NolSchedC", b"NolSchedC1", byref(found)) == OK
table = ctypes.cast(found, POINTER(Table)).contents


# A call gives what it hands out, or whether the answer was yes; a failure is an exception.
def call(name, *given):
    last = FUNCTIONS[name][-1]
    place = last._type_() if last in (PLACE, NEW) else None
    texts = [text.encode() if isinstance(text, str) else text for text in given]
    result = getattr(table, name)(*texts, *([] if place is None else [byref(place)]))
    if result not in (OK, NO):
        raise RuntimeError(f"{name}: {table.LastFailure().decode()}")
    if place is None:
        return result == OK
    return place.value.decode() if last is PLACE and result == OK else place.value


# The database is the host's; what is not given lives in memory.
database = sqlite3.connect(":memory:", isolation_level=None)
database.row_factory = sqlite3.Row
database.execute("CREATE TABLE NOL_Override (NOL_OverrideId INTEGER, Type TEXT, ScenarioId INTEGER,"
                 " Duration INTEGER, Polling_Interval INTEGER, Retrieve_Delay INTEGER, ClearLog TEXT)")


def give_rows(answer, rows):
    for row in rows:
        call("NewRow", answer)
        for column in row.keys():
            call("Give", answer, column, None if row[column] is None else str(row[column]))


def service(act):
    def asked(_host, text, answer):
        try:
            give_rows(answer, act(text.decode()) or [])
            return OK
        except Exception as failure:
            call("Give", answer, "Failure", str(failure))
            return NO
    return Asked(asked)


def execute(statement):
    print(statement)
    database.execute(statement)


def show(_host, text, _flags, title):
    print(f"{title.decode()}: {text.decode()}")
    return OK


services = Services(
    size=ctypes.sizeof(Services), Execute=service(execute), Query=service(database.execute),
    Documents=service(lambda kind: [{"Id": 7, "Name": "North Cells"}] if kind == "NOL Group" else []),
    Now=service(lambda _: [{"Now": "2026-03-02T09:05:00"}]), Message=Message(show))
call("InstallServices", byref(services))

# [edit] An entry is made and edited as a user would, and what is refused says why.
heard = []
hear = Heard(lambda _host, event, tab, name: heard.append((event, name.decode())))
record, notifier = call("CreateRecord"), call("CreateNotifier", hear, None)
call("InitNew", record, 0, 7, "Nightly")
tabs = [call("CreateTab", name) for name in ("XNolSchedGenTab", "XNolScheduleTab", "XNolSchedPlmOvr")]
general, schedule, plm = tabs
for tab in tabs:
    call("LoadData", tab, record, notifier)
heard.clear()
call("Act", schedule, "cboPeriod", "pick", "Weekly")
call("Act", general, "chkPlm", "click", None)
if not call("Act", plm, "txtRetrieveDelay", "type", "5 min"):
    print(table.LastFailure().decode())
call("Act", plm, "txtRetrieveDelay", "type", "11")
print("valid:", call("IsTabValid", plm, "Nightly"))
call("Act", plm, "txtRetrieveDelay", "type", "10")
print(heard.count(CHANGED), "changes; every", call("GetField", schedule, "cboFrequency", "text"),
      call("GetField", schedule, "lblUnit", "caption"))

if all([call("IsTabValid", tab, "Nightly") for tab in tabs]):
    for tab in tabs:
        call("SaveData", tab)
    call("SetColumn", record, "Id", "1")  # the host stores the entry's own row, and numbers it
    call("SaveNolOverrides", record)
    call("SetColumn", record, "IsNew", "N")
# [edit]
for column in ("EditorName", "Periodicity", "FirstDateTime", "PlmOvr"):
    print(column, "=", call("GetColumn", record, column))
for row in database.execute("SELECT * FROM NOL_Override"):
    print(dict(row))
print("can unload with live objects:", library.DllCanUnloadNow() == OK)
for handle in (record, notifier, *tabs):
    call("Release", handle)
call("InstallServices", None)
print("can unload:", library.DllCanUnloadNow() == OK)
