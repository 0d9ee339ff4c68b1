#!/usr/bin/python3
"""Passes bytes between a virtual box on a pseudo-terminal and standard input and output.   usage: bridge.py BOARD_SIM"""
import os
import pty
import select
import signal
import subprocess
import sys
import tty

near, far = pty.openpty()
tty.setraw(far)
box = subprocess.Popen([sys.argv[1], "--tty", os.ttyname(far), "--no-noise"], stdout=subprocess.DEVNULL)
signal.signal(signal.SIGTERM, lambda *_: sys.exit())
try:
    while True:
        for source, target in ((near, 1), (0, near)):
            if select.select([source], [], [], 0.005)[0]:
                data = os.read(source, 4096)
                if not data:
                    sys.exit()
                os.write(target, data)
finally:
    box.kill()
