#!/usr/bin/env python3
"""The primary of two servers is killed while hosts post, and its synchronous standby promoted.

Usage: failover.py POSTER QMHOST [RUNS]

After each run every row that a host was told of must stand and none that it was refused may, each total must be the sum
of its rows, and hosts must have gone on with the new primary.
"""

import random
import sys
import time

from servers import Hosts, Server, faults, lay_down_books, wait_for

HOSTS, SECONDS, UNTIL_PROMOTION = 4, 8, 0.5
POSTED = """SELECT count(*) FROM "tb_Ledger2001" WHERE "LedgerNarration" = 'outside'"""


def run(poster, qmhost):
    with Server("primary") as primary, Server("standby") as standby:
        primary.make()
        lay_down_books(qmhost, primary.uri("firm"))
        standby.make_standby_of(primary)
        hosts = Hosts(poster, [primary.uri("firm", standby)] * HOSTS, SECONDS)
        wait_for("the first posting", lambda: primary.ask("firm", POSTED) != ["0"])
        time.sleep(random.uniform(1, 3))
        primary.kill()
        time.sleep(UNTIL_PROMOTION)
        standby.promote()
        before = int(standby.ask("firm", POSTED)[0])
        hosts.wait()
        found = faults(standby, "firm", hosts)
        if len(hosts.told) <= before:
            found.append("no host went on")
        print(f"{len(hosts.told)} rows acknowledged, {len(hosts.told) - before} by the new primary; "
              f"{len(hosts.refused)} refused, {len(hosts.unsure)} told as not known; longest wait "
              f"{hosts.longest / 1000:.2f} s; {'; '.join(found) or 'nothing missing, nothing untrue'}", flush=True)
        return found


def main(poster, qmhost, runs="1"):
    failed = sum(bool(run(poster, qmhost)) for _ in range(int(runs)))
    print(f"{runs} runs, {failed} failed")
    return 1 if failed else 0


sys.exit(main(*sys.argv[1:]))
