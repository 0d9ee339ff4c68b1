#!/usr/bin/python3
"""SCPI as its clients use it: PyVISA with pyvisa-py, and plain sockets that behave badly, against the panel with its
virtual board.

usage: scpi_test.py BUILD_FOLDER
"""
import concurrent.futures
import contextlib
import re
import socket
import sys
import time
import unittest

import pyvisa

from bench_panel import BenchPanel

BUILD = sys.argv.pop(1)
QUERIES, CLIENTS, CLIENTS_MAX, LINE_MAX = 10_000, 4, 16, 1024
PATIENCE_S = 60
HELD_BACK = "127.0.0.2"  # a session touches Local when a client from here holds the panel
SESSION = f"until 9000000 1 36 Remote: {HELD_BACK}\nwait 500\ntap 712 25\n"
PANEL = BenchPanel(BUILD, script=SESSION, board=True, arguments=["--headless", "--scpi", "0"])


def port():
    return int(PANEL.wait_log(r"SCPI: listening on 127\.0\.0\.1:(\d+)").group(1))


class Plain:
    """A client without a library, which may send anything."""

    def __init__(self, source="127.0.0.1"):
        self.socket = socket.create_connection(("127.0.0.1", port()), timeout=PATIENCE_S, source_address=(source, 0))
        self.lines = self.socket.makefile("rb")

    def send(self, data):
        self.socket.sendall(data)

    def read(self):
        return self.lines.readline().decode().rstrip("\n")

    def ask(self, text):
        self.send(text.encode() + b"\n")
        return self.read()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.lines.close()
        self.socket.close()


def until(check):
    end = time.monotonic() + PATIENCE_S
    while not check():
        if time.monotonic() > end:
            raise AssertionError("this did not become true in time")
        time.sleep(0.02)


def until_box():
    """Waits for the readings and rails of the board."""
    with Plain() as client:
        until(lambda: "E" not in client.ask("MEAS:VOLT?;CURR?;POW?;:VOLT?;:SESS:ENER?;:OUTP?"))
        client.ask("*CLS;*OPC?")


@contextlib.contextmanager
def visa():
    box = pyvisa.ResourceManager("@py").open_resource(f"TCPIP::127.0.0.1::{port()}::SOCKET", timeout=PATIENCE_S * 1000)
    box.read_termination = box.write_termination = "\n"
    try:
        yield box
    finally:
        box.close()  # not the manager, which all share


class Scpi(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        until_box()

    def test_program_of_a_bench(self):
        with visa() as box:
            self.assertRegex(box.query("*IDN?"), r"^zof,bench panel,0,[\d.]+$")
            self.assertEqual(box.query("*RST;*CLS;*OPC?"), "1")
            self.assertEqual(box.query("APPL 9,1.5;*OPC?"), "1")
            self.assertEqual(box.query("SYST:RAIL:SEL?"), "5,9.000,1.500")
            self.assertEqual(box.query("OUTP ON;*OPC?"), "1")
            until(lambda: abs(float(box.query("MEAS:VOLT?")) - 9) < 0.1)
            volts, amperes, watts = map(float, box.query("MEAS:VOLT?;CURR?;POW?").split(";"))
            self.assertAlmostEqual(volts * amperes, watts, delta=0.5)
            box.write("VOLT 9.01")
            self.assertEqual(box.query("SYST:ERR?"),
                             '-222,"Data out of range;9.01 V with 1.5 A: the nearest are 9 V and 9.02 V"')
            box.write("OUTP OFF")
            self.assertEqual(box.query("*OPC?;:OUTP?;:SYST:ERR?"), '1;0;0,"No error"')

    def test_ten_thousand_queries_from_four_clients(self):
        number = r"\d+\.\d{3}"
        rows = [("*IDN?", "zof,.*"), ("MEAS:VOLT?", number), ("FETC:CURR?", number), ("*STB?;*ESR?", "0;0"),
                ("SYST:VERS?;ERR?", '1999.0;0,"No error"'), ("VOLT?;CURR?", f"{number};{number}")]
        faults = []

        def run(first):
            with visa() as box:
                for i in range(QUERIES // CLIENTS):
                    text, pattern = rows[(i + first) % len(rows)]
                    answer = box.query(text)
                    if not re.fullmatch(pattern, answer):
                        faults.append((text, answer))
            return QUERIES // CLIENTS

        begin = time.monotonic()
        with concurrent.futures.ThreadPoolExecutor(CLIENTS) as pool:
            self.assertEqual(sum(pool.map(run, range(CLIENTS))), QUERIES)
        print(f"{QUERIES / (time.monotonic() - begin):.0f} queries a second", file=sys.stderr)
        self.assertEqual(faults, [])

    def test_garbage_and_long_lines(self):
        with Plain() as client:
            client.send(bytes(byte for byte in range(256) if byte != 10) * 100 + b"\n")
            self.assertTrue(client.ask("SYST:ERR?").startswith("-363,"))
            client.send(b"OUTP ON;" + b" " * LINE_MAX + b"\n" + b"\0\xff;;::?,\"'\n" * 50)
            self.assertEqual(client.ask("SYST:ERR:COUN?;:OUTP?"), "20;0")
            self.assertEqual(client.ask("*CLS;*OPC?"), "1")

    def test_half_lines(self):
        with Plain() as client, Plain() as other:
            for byte in b"*IDN?\r\n":
                client.send(bytes([byte]))
            self.assertTrue(client.read().startswith("zof,"))
            client.send(b"SYST:VERS")
            self.assertEqual(other.ask("SYST:VERS?"), "1999.0")  # nobody waits for the rest
            self.assertEqual(client.ask("?"), "1999.0")
            client.send(b"*IDN?\nSYST:VERS?\n*TST?")
            client.socket.shutdown(socket.SHUT_WR)  # like nc
            self.assertTrue(client.read().startswith("zof,"))
            self.assertEqual([client.read(), client.read()], ["1999.0", ""])

    def test_slow_reader_is_cut_off_and_blocks_nobody(self):
        with Plain() as slow, Plain() as other:
            slow.socket.settimeout(0.2)
            blocked = False
            while not blocked:  # until the buffers of both ends are full
                try:
                    slow.send(b"SYST:RAIL:CAT?\n" * 1000)
                except TimeoutError:
                    blocked = True
            begin = time.monotonic()
            self.assertTrue(other.ask("*IDN?").startswith("zof,"))
            self.assertLess(time.monotonic() - begin, 3)
            PANEL.wait_log(r"SCPI: 127\.0\.0\.1 does not read its answers; it is cut off")

    def test_too_many_clients_are_refused_with_a_line(self):
        with contextlib.ExitStack() as stack:
            clients = [stack.enter_context(Plain()) for _ in range(CLIENTS_MAX)]
            for client in clients:
                self.assertEqual(client.ask("*OPC?"), "1")
            more = stack.enter_context(Plain())
            self.assertIn(f"{CLIENTS_MAX} clients are connected", more.read())
            self.assertEqual(more.read(), "")
            clients[0].socket.close()
            clients[0].lines.close()

            def served():
                with Plain() as again:
                    return "connected" not in again.ask("*OPC?")
            until(served)

    def test_client_that_vanishes_releases_the_panel(self):
        with Plain() as other:
            gone = Plain()
            self.assertEqual(gone.ask("SYST:REM;:APPL 5,1;*OPC?"), "1")
            self.assertEqual(other.ask("SYST:REM?"), '"127.0.0.1"')
            gone.socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, b"\1\0\0\0\0\0\0\0")  # a reset, as of a crash
            gone.send(b"APPL 9,1;*OPC?;:APPL 5,1;*OPC?\nVOLT 6")
            gone.lines.close()
            gone.socket.close()
            until(lambda: other.ask("SYST:REM?") == '""')

    def test_local_button_takes_the_panel_back(self):
        with Plain(HELD_BACK) as client:
            self.assertEqual(client.ask("SYST:REM;REM?"), f'"{HELD_BACK}"')
            until(lambda: client.ask("SYST:REM?") == '""')
            self.assertIn("-203,", client.ask("VOLT 9;:SYST:ERR?"))
            self.assertEqual(client.ask("SYST:REM;:APPL 9,1;*OPC?;:SYST:ERR?"), '1;0,"No error"')


if __name__ == "__main__":
    with PANEL:
        status = not unittest.main(exit=False, verbosity=1).result.wasSuccessful()
    sys.exit(status)
