#!/usr/bin/env python3
"""A stand-in for a SQL Server: speaks TDS 7.4 as far as an ODBC driver needs it to log in, execute
statements and call procedures, answers those of ANSWERS and PROCEDURES, and misbehaves on demand.
It listens on a free port of 127.0.0.1 and prints the port.

    standin_server.py RECORD [answer|refuse|close|silent]

RECORD is a file that receives, before anything is answered, a line for each thing that arrived:

    login USER|PASSWORD|DATABASE
    batch STATEMENT                        line ends within it as \\n
    call NAME(ARGUMENT, ...)               texts in quotes, NULL, dates yyyy-mm-dd
    left USER                              who logged in has hung up

The second argument is what becomes of who connects: served, refused with 18456 and words that tell
the password, hung up on, or not answered at all. Commands on the standard input, each answered by
the same line on the standard output when it has been done:

    away    hang up on all and refuse who comes; the port stays reserved
    back    listen again

The end of the standard input ends the process.
"""

import contextlib
import datetime
import io
import re
import select
import socket
import struct
import sys
import threading
import time

COLLATION = b"\x29\x04\xD0\0\0"  # Persian; case, width and kana ignored
MORE, ERROR, COUNT, ATTENTION = 0x01, 0x02, 0x10, 0x20
DONE, DONE_PROCEDURE, DONE_IN_PROCEDURE = 0xFD, 0xFE, 0xFF


def utf16(text):
    return text.encode("utf-16-le")


def short_text(text):
    return bytes([len(utf16(text)) // 2]) + utf16(text)


def long_text(text):
    """In pieces that split characters between their two bytes, then an empty one."""
    data = utf16(text)
    pieces = [data[i:i + 3001] for i in range(0, len(data), 3001)] + [b""]
    return struct.pack("<Q", len(data)) + b"".join(
        struct.pack("<I", len(piece)) + piece for piece in pieces)


def moment(text):
    since = datetime.datetime.fromisoformat(text) - datetime.datetime(1900, 1, 1)
    return struct.pack("<BiI", 8, since.days, since.seconds * 300)


def exact(value):
    return b"\x11" + bytes([value >= 0]) + abs(value).to_bytes(16, "little")


# Of a type: how a column of it is declared, NULL, and a value. Numbers with four decimal places are
# given as whole numbers of their ten-thousandths.
TYPES = {
    "int": (b"\x26\x04", b"\0", lambda value: struct.pack("<Bi", 4, value)),
    "bigint": (b"\x26\x08", b"\0", lambda value: struct.pack("<Bq", 8, value)),
    "bit": (b"\x68\x01", b"\0", lambda value: struct.pack("<BB", 1, value)),
    "float": (b"\x6D\x08", b"\0", lambda value: struct.pack("<Bd", 8, value)),
    "money": (b"\x6E\x08", b"\0", lambda value: struct.pack(
        "<BiI", 8, value >> 32, value & 0xFFFFFFFF)),
    "decimal(38,4)": (b"\x6A\x11\x26\x04", b"\0", exact),
    "decimal(38,0)": (b"\x6A\x11\x26\0", b"\0", exact),
    "datetime": (b"\x6F\x08", b"\0", moment),
    "date": (b"\x28", b"\0", lambda text: b"\x03" + (
        datetime.date.fromisoformat(text).toordinal() - 1).to_bytes(3, "little")),
    "nvarchar": (b"\xE7\x40\x1F" + COLLATION, b"\xFF\xFF", lambda text: struct.pack(
        "<H", len(utf16(text))) + utf16(text)),
    "nvarchar(max)": (b"\xE7\xFF\xFF" + COLLATION, b"\xFF" * 8, long_text),
}

# The parts of an answer are (tokens, status, rows), each closed by a DONE. In a part's place:
# BUSY: at work until it is told to cease. SLOW: row after row, as long or until it is told so.
VANISH, SILENT, BUSY, SLOW = "vanish", "silent", "busy", "slow"
CHANGED, NOTHING = (b"", COUNT, 1), (b"", 0, 0)


def rows(columns, *values):
    """columns: "ID int, Name nvarchar"; values: a tuple for each row, None for NULL."""
    named = [column.rsplit(" ", 1) for column in columns.split(", ")]
    tokens = b"\x81" + struct.pack("<H", len(named))
    for name, kind in named:
        tokens += struct.pack("<IH", 0, 9) + TYPES[kind][0] + short_text(name)
    for row in values:
        tokens += b"\xD1"
        for (_, kind), value in zip(named, row, strict=True):
            tokens += TYPES[kind][1] if value is None else TYPES[kind][2](value)
    return tokens, COUNT, len(values)


def token(kind, body):
    return bytes([kind]) + struct.pack("<H", len(body)) + body


def message(number, level, text):
    """An error, or from level 10 down only something said."""
    body = struct.pack("<iBBH", number, 1, level, len(utf16(text)) // 2) + utf16(text)
    body += short_text("STANDIN") + short_text("") + struct.pack("<i", 1)
    return (token(0xAA, body), ERROR, 0) if level > 10 else (token(0xAB, body), 0, 0)


def together(*parts):
    """One part of several, as when a statement fails after its first rows."""
    return b"".join(p[0] for p in parts), parts[-1][1], parts[-1][2]


NAMES = rows("ID int, Name nvarchar", (1, "نیک\u200Cپی"), (2, "علي كاظمي"))
SLOW_ROWS = 60
NO_TABLE = message(208, 16, "Invalid object name 'tblNowhere'.")
DUPLICATE = together(message(2627, 14, "Violation of UNIQUE KEY: «نیک\u200Cپی» تكراري است."),
                     message(3621, 0, "The statement has been terminated."), (b"", ERROR, 0))

ANSWERS = {
    "select * from tblValues": [rows(
        "Whole int, Large bigint, Yes bit, Real float, Price money, Exact decimal(38,4), "
        "Moment datetime, Midnight datetime, Day date, Words nvarchar, Notes nvarchar(max)",
        (-5, 9000000000, 1, 0.25, 12345672500, -125000, "2025-03-21 08:30:07",
         "2025-03-21 00:00:00", "2025-03-21", "نیک\u200Cپی، علي كاظمي", "يادداشت"),
        (0, 0, 0, -1e20, -5000, 0, "1753-01-01 00:00:01", "9999-12-31 00:00:00", "0622-03-22",
         "", ""), (None,) * 11)],
    "select ID, Name from tblEmployee": [NAMES],
    "select ID, Name from tblEmployee where ID=0": [rows("ID int, Name nvarchar")],
    "update tblEmployee Set Name=N'x'": [CHANGED],
    "delete tblEmployee where ID=0": [(b"", COUNT, 0)],
    "create table tblNew(ID int)": [NOTHING],
    "print N'سلام'": [message(0, 0, "سلام")],
    "Select SCOPE_IDENTITY() as newID": [rows("newID decimal(38,0)", (7,))],
    "change and select": [CHANGED, NAMES],
    "select * from tblNowhere": [NO_TABLE],
    "insert twice": [DUPLICATE],
    "select and fail": [NAMES, NO_TABLE],
    "fail the same twice": [together(NO_TABLE, NO_TABLE)],
    "change and fail": [CHANGED, DUPLICATE],
    "fail within the rows": [together(NAMES, message(245, 16, "Conversion failed."))],
    "select twice and fail within the rows": [
        NAMES, together(NAMES, message(245, 16, "Conversion failed."))],
    "vanish at once": [VANISH],
    "vanish within the rows": [NAMES, VANISH],
    "vanish after the rows": [NAMES, CHANGED, VANISH],
    "fall silent within the rows": [NAMES, SILENT],
    "work on": [BUSY],
    "Select and work on": [BUSY],
    "Select slowly": [SLOW],
}
# The parts of the answer and the return value.
PROCEDURES = {
    "spZomirHasPermission": ([], 1),
    "spZomirInsertFormAction": ([CHANGED], 0),
    "spAnswerRows": ([NAMES, CHANGED], -6),
    "spFail": ([CHANGED, message(50000, 16, "مجاز نیست.")], 0),
    "spVanish": ([VANISH], 0),
    "spWorkOn": ([BUSY], 0),
}


def answer_to_statement(statement):
    if spoken := re.fullmatch("select N'(.*)'", statement, re.DOTALL):
        return [rows(" nvarchar", (spoken[1].replace("''", "'"),))]
    if number := re.fullmatch(r"fail (\d+)", statement):
        return [message(int(number[1]), 16, f"The server's words {number[1]}.")]
    if pause := re.fullmatch(r"wait (\d+)", statement):
        time.sleep(int(pause[1]) / 1000)
        return [NAMES]
    if times := re.fullmatch(r"select replicate\((\d+)\)", statement):
        return [rows("Text nvarchar(max)", ("نیک\u200Cپی، يك. " * int(times[1]),))]
    return ANSWERS.get(statement, [message(102, 15, f"Incorrect syntax near '{statement[:40]}'.")])


def integer(stream, size, signed=False):
    return int.from_bytes(stream.read(size), "little", signed=signed)


def after_headers(content):
    stream = io.BytesIO(content)
    stream.read(integer(stream, 4) - 4)
    return stream


def login_words(content):
    def word(place):
        start, length = struct.unpack_from("<HH", content, place)
        return content[start:start + 2 * length]

    swapped = (byte ^ 0xA5 for byte in word(44))
    password = bytes((byte >> 4 | byte << 4) & 0xFF for byte in swapped)
    return [w.decode("utf-16-le") for w in (word(40), password, word(68))]


def argument(stream):
    stream.read(2 * integer(stream, 1) + 1)  # its name and direction
    kind = integer(stream, 1)
    stream.read({0x26: 1, 0x28: 0, 0xE7: 7}[kind])  # sizes, collation
    size, null = (integer(stream, 2), 0xFFFF) if kind == 0xE7 else (integer(stream, 1), 0)
    if size == null:
        return "NULL"
    if kind == 0xE7:
        return "'" + stream.read(size).decode("utf-16-le") + "'"
    if kind == 0x28:
        return str(datetime.date.fromordinal(integer(stream, size) + 1))
    return str(integer(stream, size, signed=True))


def procedure_call(content):
    """The procedure's name and its arguments. A prepared statement has no name, but a number."""
    stream = after_headers(content)
    size = integer(stream, 2)
    if size == 0xFFFF:
        return f"number {integer(stream, 2)}", []
    name = stream.read(2 * size + 2)[:-2].decode("utf-16-le")
    arguments = []
    while stream.tell() < len(content):
        arguments.append(argument(stream))
    return name, arguments


class Client:
    """Who connected."""

    def __init__(self, connection, record, behaviour):
        self.connection, self.record, self.behaviour = connection, record, behaviour
        self.stream = connection.makefile("rb")
        self.user = None

    def hear(self):
        """The next message, put together from its packets: its kind and content."""
        content, last = b"", 0
        while not last & 1:
            head = self.stream.read(8)
            if len(head) < 8:
                raise ConnectionError
            kind, last, size = struct.unpack(">BBHxxxx", head)
            content += self.stream.read(size - 8)
        return kind, content

    def say(self, tokens, whole=True):
        size = 4096 - 8
        for start in range(0, len(tokens), size):
            piece = tokens[start:start + size]
            last = whole and start + size >= len(tokens)
            head = struct.pack(">BBHHBB", 4, last, len(piece) + 8, 51, start // size % 256, 0)
            self.connection.sendall(head + piece)

    def answer(self, parts, value=None):
        """`value`: what a procedure returns, after all that its statements answered."""
        tokens = b""
        for place, (part, following) in enumerate(zip(parts, parts[1:] + [None])):
            if part == VANISH:
                raise ConnectionError
            while part == SILENT:
                self.hear()
            if part == BUSY:
                return self.cease()
            if part == SLOW:
                if self.is_told_to_cease_within(SLOW_ROWS):
                    return self.cease()
                part = b"", COUNT, SLOW_ROWS
            tokens += part[0]
            if following in (VANISH, SILENT, BUSY):
                self.say(tokens, whole=False)
                continue
            more = MORE if value is not None or following else 0
            inner = DONE if value is None else DONE_IN_PROCEDURE
            tokens += struct.pack("<BHHQ", inner, part[1] | more, 0, part[2])
        if value is not None:
            tokens += struct.pack("<BiBHHQ", 0x79, value, DONE_PROCEDURE, 0, 0, 0)
        self.say(tokens)

    def is_told_to_cease_within(self, count):
        head = rows("ID int, Name nvarchar")[0]
        self.say(head, whole=False)
        for number in range(count):
            row = rows("ID int, Name nvarchar", (number + 1, "نيك"))[0][len(head):]
            self.say(row, whole=False)
            if select.select([self.connection], [], [], 0.01)[0]:
                return True
        return False

    def cease(self):
        while self.hear()[0] != 0x06:
            pass
        self.answer([(b"", ATTENTION, 0)])

    def answer_login(self, content):
        user, password, database = login_words(content)
        self.record(f"login {user}|{password}|{database}")
        self.user = user
        if self.behaviour == "refuse":
            self.answer([message(18456, 14, f"Login failed for user '{user}', '{password}'.")])
            raise ConnectionError
        accepted = b"\x01\x74\0\0\x04" + short_text("Stand-in") + b"\x0F\0\x07\xD0"
        self.answer([(token(0xAD, accepted), 0, 0)])

    def serve(self):
        while True:
            kind, content = self.hear()
            if self.behaviour == "close":
                return
            if self.behaviour == "silent":
                continue
            if kind == 0x12:  # Version 15 and no encryption; offsets count from the start.
                self.say(b"\0\0\x0B\0\x06" + b"\x01\0\x11\0\x01" + b"\xFF" +
                         b"\x0F\0\x07\xD0\0\0" + b"\x02")
            elif kind == 0x10:
                self.answer_login(content)
            elif kind == 0x01:
                statement = after_headers(content).read().decode("utf-16-le")
                self.record("batch " + statement)
                self.answer(answer_to_statement(statement))
            elif kind == 0x03:
                name, arguments = procedure_call(content)
                self.record(f"call {name}({', '.join(arguments)})")
                missing = [message(2812, 16, f"Could not find stored procedure '{name}'.")], 0
                self.answer(*PROCEDURES.get(name, missing))
            elif kind == 0x06:
                self.answer([(b"", ATTENTION, 0)])
            else:
                raise ValueError(f"message of kind {kind}")

    def run(self):
        try:
            with contextlib.suppress(OSError):
                self.serve()
        finally:
            if self.user:
                self.record(f"left {self.user}")
            self.hang_up()

    def hang_up(self):
        with contextlib.suppress(OSError):  # gone already
            self.connection.shutdown(socket.SHUT_RDWR)


class Server:
    def __init__(self, record_path, behaviour):
        self.behaviour, self.clients = behaviour, []
        self.file = open(record_path, "w", encoding="utf-8")
        self.reserved = self.bind(0)  # never listens: keeps the port ours while away
        self.port = self.reserved.getsockname()[1]
        self.listen()

    def bind(self, port):
        endpoint = socket.socket()
        endpoint.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        endpoint.bind(("127.0.0.1", port))
        return endpoint

    def listen(self):
        self.listener = self.bind(self.port)
        self.listener.listen()
        threading.Thread(target=self.accept, args=(self.listener,), daemon=True).start()

    def accept(self, listener):
        with contextlib.suppress(OSError):  # away
            while True:
                client = Client(listener.accept()[0], self.record, self.behaviour)
                self.clients.append(client)
                threading.Thread(target=client.run, daemon=True).start()

    def record(self, line):
        print(line.replace("\n", "\\n"), file=self.file, flush=True)

    def go_away(self):
        self.listener.shutdown(socket.SHUT_RDWR)
        self.listener.close()
        for client in self.clients:
            client.hang_up()
        self.clients.clear()


def main():
    server = Server(sys.argv[1], sys.argv[2] if len(sys.argv) > 2 else "answer")
    print(server.port, flush=True)
    for command in sys.stdin:
        {"away": server.go_away, "back": server.listen}[command.strip()]()
        print(command, end="", flush=True)


main()
