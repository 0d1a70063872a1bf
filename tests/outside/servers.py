"""Private servers, and the hosts that post into books on them: what the trials on a server share."""

import glob
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time

PATIENCE = 60  # seconds, for a busy machine


def require(condition, text):
    if not condition:
        raise SystemExit(text)


def wait_for(what, state):
    end = time.monotonic() + PATIENCE
    while not state():
        require(time.monotonic() < end, what + " did not come")
        time.sleep(0.02)


class Server:
    """A server on a socket in a folder of its own, run by an ordinary user: it refuses root."""

    def __init__(self, name, settings=(), environment=None):
        found = glob.glob("/usr/lib/postgresql/*/bin/initdb")
        require(found, "The package postgresql-15 is not installed.")
        self.programs = os.path.dirname(max(found, key=lambda path: float(path.split("/")[4])))
        self.folder = tempfile.mkdtemp(prefix="qm-" + name + "-")
        self.data = os.path.join(self.folder, "data")
        self.settings = list(settings)
        self.environment = dict(os.environ, **(environment or {}))
        if os.geteuid() == 0:
            shutil.chown(self.folder, "postgres")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if os.path.exists(self.data + "/postmaster.pid"):
            self.run("pg_ctl", "stop", "-s", "-m", "immediate", "-D", self.data)
        shutil.rmtree(self.folder)

    def run(self, program, *words):
        user = ["runuser", "-u", "postgres", "--"] if os.geteuid() == 0 else []
        with open(self.folder + ".log", "w+") as log:
            ended = subprocess.run([*user, os.path.join(self.programs, program), *words], cwd="/", stdout=log,
                                   stderr=log, env=self.environment)
            log.seek(0)
            said = log.read()
        os.remove(self.folder + ".log")
        require(ended.returncode == 0, f"{program} failed: {said}")

    def make(self):
        self.run("initdb", "-D", self.data, "-U", "postgres", "-A", "trust", "-E", "UTF8", "--locale=C.UTF-8",
                 "--no-sync")
        self.start()
        return self

    def make_standby_of(self, primary):
        self.run("pg_basebackup", "-D", self.data, "-h", primary.folder, "-U", "postgres", "-R", "-c", "fast",
                 "--no-sync")
        self.start()
        primary.ask("postgres", "ALTER SYSTEM SET synchronous_standby_names = '*'")
        primary.ask("postgres", "SELECT pg_reload_conf()")
        wait_for("the synchronous standby", lambda: primary.ask(
            "postgres", "SELECT count(*) FROM pg_stat_replication WHERE sync_state = 'sync'") == ["1"])
        return self

    def start(self):
        settings = ["listen_addresses=", "unix_socket_directories=" + self.folder, "max_connections=60", "jit=off",
                    "random_page_cost=1.1", "dynamic_shared_memory_type=mmap", *self.settings]
        self.run("pg_ctl", "start", "-s", "-w", "-D", self.data, "-l", self.data + "/log", "-o",
                 " ".join("-c " + setting for setting in settings))

    def promote(self):
        self.run("pg_ctl", "promote", "-s", "-w", "-D", self.data)

    def kill(self):
        """As if the machine had lost its power, but for what its system would still write."""
        with open(self.data + "/postmaster.pid") as file:
            lines = file.read().splitlines()
        process = int(lines[0])
        os.kill(process, signal.SIGSTOP)  # no child is made meanwhile
        with open(f"/proc/{process}/task/{process}/children") as file:
            children = [int(child) for child in file.read().split()]
        for victim in [*children, process]:
            os.kill(victim, signal.SIGKILL)
        wait_for("the server's end", lambda: not os.path.exists(f"/proc/{process}"))
        os.remove(self.data + "/postmaster.pid")
        subprocess.run(["ipcrm", "-m", lines[6].split()[1]], check=False, stderr=subprocess.DEVNULL)

    def uri(self, database, *others):
        hosts = ",".join(server.folder.replace("/", "%2F") for server in [self, *others])
        return f"postgresql://postgres@{hosts}/{database}" + ("?target_session_attrs=read-write/" if others else "/")

    def ask(self, database, question):
        """The rows of a question, fields joined by "|"."""
        words = [os.path.join(self.programs, "psql"), "-XAtq", "-h", self.folder, "-U", "postgres", "-d", database]
        asked = subprocess.run([*words, "-c", question], capture_output=True, text=True)
        require(asked.returncode == 0, asked.stderr)
        return asked.stdout.splitlines()


class Hosts:
    """Hosts that post into books through the class, all at once, and what they told in the end."""

    def __init__(self, program, uris, seconds, how=""):
        # Files take all they say; a pipe that is full would stop a host until the hosts before it were read.
        self.said = [tempfile.TemporaryFile("w+") for _ in uris]
        self.running = [subprocess.Popen([program, uri, f"{seconds}s", how, str(number * 10_000_000 + 1)], stdout=said)
                        for number, (uri, said) in enumerate(zip(uris, self.said))]
        self.told, self.refused, self.unsure, self.words, self.longest = [], [], [], [], 0

    def wait(self):
        for host, said in zip(self.running, self.said):
            host.wait()
            said.seek(0)
            for line in said.read().splitlines():
                kind, _, rest = line.partition(" ")
                if kind == "refused":
                    unsure = self.words and "whether the change stands is not known" in self.words[-1]
                    (self.unsure if unsure else self.refused).append(rest)
                elif kind == "longest":
                    self.longest = max(self.longest, int(rest))
                elif re.fullmatch(r"[\d.]+(\|[\d.]+){3}", line):
                    self.told.append(line)
                else:
                    self.words.append(line)
        require(all(host.returncode == 0 for host in self.running), "a host failed: " + "; ".join(self.words[-5:]))
        return self


ROWS = """SELECT "LedgerTrnNo", "LedgerCode", "LedgerDrAmt", "LedgerCrAmt" FROM "tb_Ledger2001"
          WHERE "LedgerNarration" = 'outside'"""
TOTALS = """SELECT count(*) FROM "Ledger_Details" d,
            LATERAL (SELECT coalesce(sum("LedgerDrAmt"), 0) debit, coalesce(sum("LedgerCrAmt"), 0) credit
                     FROM "tb_Ledger2001" WHERE "LedgerCode" = d."Ledger_ID") s
            WHERE "Fnncl_Yr" = 2001 AND (coalesce("LedDetDRTxnTot", 0) <> debit OR coalesce("LedDetCRTxnTot", 0) <> credit)"""


def lay_down_books(qmhost, uri):
    subprocess.run([qmhost, "create", uri, "--year", "2001", "--sample"], check=True, stdout=subprocess.DEVNULL)


def faults(server, database, hosts):
    """What the books show that the hosts were not told, or the other way round. The amounts are quarters, so sums are exact."""
    rows = server.ask(database, ROWS)
    standing, told, refused = set(rows), set(hosts.told), set(hosts.refused)
    found = {"acknowledged rows missing": len(told - standing), "rows refused that stand": len(refused & standing),
             "rows that nobody was told of": len(standing - told - refused - set(hosts.unsure)),
             "rows that stand twice": len(rows) - len(standing),
             "totals that are not the sums of rows": int(server.ask(database, TOTALS)[0])}
    return [f"{count} {what}" for what, count in found.items() if count > 0]
