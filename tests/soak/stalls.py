#!/usr/bin/env python3
"""Records when the machine itself stalls.

stalls.py FILE

On every processor, a process with real-time priority asks to be woken every 2 ms. It appends "PROCESSOR DUE LATE" (seconds
of the monotonic clock) to FILE if it is woken more than 1 ms late. No other program can keep it from the processor;
only the host of a virtual machine or the hardware can. Ends with status 3 if real-time priority is not allowed.
"""
import ctypes
import os
import signal
import sys
import time

PERIOD = 0.002
LATE = 0.001
PRIORITY = 80
PR_SET_PDEATHSIG = 1


def die_with_the_parent():
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def watch(processor, file):
    die_with_the_parent()
    os.sched_setaffinity(0, {processor})
    os.sched_setscheduler(0, os.SCHED_FIFO, os.sched_param(PRIORITY))
    while True:
        due = time.monotonic() + PERIOD
        time.sleep(PERIOD)
        late = time.monotonic() - due
        if late > LATE:
            os.write(file, f"{processor} {due:.4f} {late:.4f}\n".encode())


def main():
    die_with_the_parent()
    try:
        os.sched_setscheduler(0, os.SCHED_FIFO, os.sched_param(PRIORITY))
    except PermissionError:
        sys.exit(3)
    file = os.open(sys.argv[1], os.O_WRONLY | os.O_CREAT | os.O_APPEND, 0o600)
    for processor in os.sched_getaffinity(0):
        if os.fork() == 0:
            watch(processor, file)
    signal.pause()


if __name__ == "__main__":
    main()
