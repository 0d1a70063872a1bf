#!/usr/bin/env python3
"""Many hosts post at once on one server: what stands afterwards, the waits, and the rates.

Usage: many_hosts.py POSTER QMHOST SLOW_DISK [SECONDS]

First 20 hosts work on one set of books for SECONDS (60) and draw each voucher's number inside its transaction: no row may
be lost, no total differ from the sum of its rows, no number be drawn twice. Then the rates of 1 host and of 16 on one
set of books, and of 16 on as many sets, for a sixth of the time each. The disk takes 2 ms for each flush of the log.
"""

import collections
import shutil
import sys

from servers import Hosts, Server, faults, lay_down_books

DISK = 2000  # microseconds
LEAST_GAIN = 6  # of 16 hosts on one set of books over 1 host


def drawn_twice(told):
    return sum(rows > 2 for rows in collections.Counter(row.split("|")[0] for row in told).values())


class Trials:
    def __init__(self, poster, server):
        self.poster, self.server = poster, server
        self.sets = 0  # of books, so far
        self.failed = False

    def run(self, what, seconds, hosts=1, sets=1, how=""):
        """So many hosts on each of the sets of books: their rate, in rows a second."""
        names = [f"firm{self.sets + number}" for number in range(sets)]
        self.sets += sets
        for name in names:
            self.server.ask("postgres", f"CREATE DATABASE {name} TEMPLATE firm")
        running = [Hosts(self.poster, [self.server.uri(name)] * hosts, seconds, how) for name in names]
        ended = [group.wait() for group in running]
        found = [fault for name, group in zip(names, ended) for fault in faults(self.server, name, group)]
        found += [f"refused: {group.words[-1]}" for group in ended if group.refused or group.unsure]
        if how == "inside":
            found += [f"{twice} numbers drawn twice" for group in ended if (twice := drawn_twice(group.told))]
        self.failed = self.failed or bool(found)
        rate = sum(len(group.told) for group in ended) / seconds
        print(f"{what}: {rate:.0f} rows/s, longest wait {max(group.longest for group in ended)} ms; "
              + ("; ".join(found) or "none lost, totals are the sums of rows"), flush=True)
        return rate


def main(poster, qmhost, slow_disk, seconds="60"):
    with Server("hosts") as server:
        # A copy, for the server's own user may not read the builder's folders.
        server.environment.update(LD_PRELOAD=shutil.copy(slow_disk, server.folder), QM_DISK=str(DISK))
        server.make()
        lay_down_books(qmhost, server.uri("firm"))
        trials, whole = Trials(poster, server), int(seconds)
        part = max(whole // 6, 2)
        trials.run("20 hosts, one set of books, numbers drawn inside", whole, hosts=20, how="inside")
        one = trials.run("1 host", part)
        many = trials.run("16 hosts, one set of books", part, hosts=16)
        apart = trials.run("16 hosts, 16 sets of books", part, sets=16)
        met = many >= LEAST_GAIN * one
        print(f"16 hosts on one set of books: {many / one:.1f} times 1 host (goal {LEAST_GAIN}, "
              f"{'met' if met else 'NOT MET'}); on 16 sets: {apart / one:.1f} times")
        return 1 if trials.failed or not met else 0


sys.exit(main(*sys.argv[1:]))
