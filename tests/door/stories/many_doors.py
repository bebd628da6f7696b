"""Many doors against one broker and one database on one machine: how many documents a second arrive, and how long it takes
until one can be asked for. Nothing of it is a promise of a machine like this; all of it has to arrive, once.

PUERTA_PUERTAS=N doors (without printers: what happened is told to them), PUERTA_VENTAS=N documents of each in a burst,
then for PUERTA_SEGUNDOS one of each door every ten seconds.
"""
import json
import os
import random
import threading
import time
import unittest

from chain import Chain, until
from chain_survives import Door

DOORS = int(os.environ.get("PUERTA_PUERTAS", "20"))
SALES = int(os.environ.get("PUERTA_VENTAS", "10"))
SECONDS = int(os.environ.get("PUERTA_SEGUNDOS", "10"))
EVERY = 10.0  # seconds between two sales of a shop

# What is visible is what was committed: the database knows when that was.
DELAYS = """select percentile_disc(array[0.5, 0.95, 0.99, 1]) within group (
                     order by extract(epoch from pg_xact_commit_timestamp(xmin) - momento))
            from sucesos where numero {}"""


def resident(pid):
    with open(f"/proc/{pid}/status", encoding="ascii") as file:
        return next(int(line.split()[1]) for line in file if line.startswith("VmRSS")) / 1024


class ManyDoors(unittest.TestCase):
    def test_all_arrives(self):
        with Chain(base_settings=("track_commit_timestamp=on",)) as chain:
            doors = [Door(chain.folder, chain.broker.port, f"suc{i:04}").start() for i in range(DOORS)]
            try:
                self.tell(chain, doors)
            finally:
                for door in doors:
                    door.kill()

    def tell(self, chain, doors):
        base = chain.base
        figures = {"doors": DOORS, "MiB of a door without printers": round(resident(doors[0].process.pid), 1)}
        wanted = DOORS * SALES
        start = time.monotonic()
        self.burst(doors)
        figures["written per second, all doors"] = round(wanted / (time.monotonic() - start))
        until(lambda: base.number("select count(*) from sucesos") >= wanted, 600)
        figures["documents per second, burst"] = round(wanted / (time.monotonic() - start))
        wanted += self.cut_off(chain, doors, figures)
        steady = self.steady(doors, 2 * SALES)
        wanted += steady
        until(lambda: base.number("select count(*) from sucesos") >= wanted, 600)
        figures["documents, steady"] = steady
        figures["seconds until visible, steady: median, 95 %, 99 %, longest"] = \
            base.rows(DELAYS.format(f"> {2 * SALES}"))[0][0]
        self.assertEqual(base.number("select count(*) from sucesos"), wanted)
        self.assertEqual(base.rows("select * from huecos"), [])
        until(lambda: sum(door.waiting() for door in doors[:20]) == 0, 120)
        print("\n" + json.dumps(figures), flush=True)

    def cut_off(self, chain, doors, figures):
        """As much again while there is no broker, and how fast it comes when there is one."""
        chain.broker.kill()
        self.burst(doors, SALES)
        chain.broker.start()
        both = 2 * DOORS * SALES
        until(lambda: chain.base.number("select count(*) from sucesos") >= both, 600)
        figures["documents per second, behind a cut"] = round(float(chain.base.rows(
            "select count(*) / extract(epoch from max(recibido) - min(recibido) + interval '1 ms') from sucesos "
            f"where numero > {SALES}")[0][0]))
        return DOORS * SALES

    def burst(self, doors, behind=0):
        def sell(some):
            for number in range(behind + 1, behind + SALES + 1):
                for door in some:
                    door.sells("caja1", number)

        threads = [threading.Thread(target=sell, args=(doors[i::8],)) for i in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()

    def steady(self, doors, behind):
        """Each door sells now and then; how many it were."""
        due = sorted((random.random() * EVERY, i) for i in range(len(doors)))
        sold = [0] * len(doors)
        start = time.monotonic()
        for round_ in range(int(-(-SECONDS // EVERY))):
            for at, i in due:
                time.sleep(max(0, start + round_ * EVERY + at - time.monotonic()))
                sold[i] += 1
                doors[i].sells("caja1", behind + sold[i])
        return sum(sold)


if __name__ == "__main__":
    unittest.main()
