"""hold.py LOCK BYTE: has the lock of a byte, as a call that runs a task, for as long as the file is there."""

import fcntl
import os
import sys
import time

with open(sys.argv[1], "r+b") as lock:
    fcntl.lockf(lock, fcntl.LOCK_EX, 1, int(sys.argv[2]))
    with open("held", "wb"):
        pass
    while os.path.exists(sys.argv[1]):
        time.sleep(0.02)
