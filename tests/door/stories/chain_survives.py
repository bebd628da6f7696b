"""What a door tells arrives in the database of the chain, all of it and once, whoever is killed on the way."""
import json
import os
import random
import sqlite3
import subprocess
import time
import unittest

from chain import Chain, Network, Program, until

TOLD_DOOR = os.environ["PUERTA_TOLD_DOOR"]


class Door(Program):
    """Tells of so many documents of each printer; killed, it goes on where its file says."""

    def __init__(self, folder, port, shop):
        self.store = folder / f"{shop}.db"
        super().__init__(shop, folder, [TOLD_DOOR, str(self.store), "127.0.0.1", str(port), shop],
                         stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def sells(self, printer, number):
        data = {"trabajo": number, "comprobante": {"tipo": "factura", "letra": "B", "numero": f"{number:08d}",
                                                   "total": "10.50"}}
        self.process.stdin.write(f"{printer} {json.dumps(data)}\n")
        self.process.stdin.flush()
        return int(self.process.stdout.readline())

    def kill(self):
        process = self.process
        super().kill()
        if process:
            process.stdin.close()
            process.stdout.close()

    def keys(self):
        with sqlite3.connect(self.store) as file:
            return sorted(key for (key,) in file.execute("select clave from eventos"))

    def waiting(self):
        with sqlite3.connect(self.store) as file:
            return file.execute("select count(*) from salida").fetchone()[0]


class ChainSurvives(unittest.TestCase):
    def setUp(self):
        self.chain = Chain().__enter__()
        self.addCleanup(self.chain.__exit__)
        self.network = Network(self.chain.broker.port)
        self.door = Door(self.chain.folder, self.network.port, "suc1").start()
        self.addCleanup(self.door.kill)
        self.number = {"caja1": 0, "caja2": 0}

    def sell(self, times):
        for _ in range(times):
            printer = random.choice(("caja1", "caja2"))
            self.number[printer] += 1
            self.door.sells(printer, self.number[printer])

    def arrives(self, seconds=120):
        keys = self.door.keys()
        base = self.chain.base
        until(lambda: base.number("select count(*) from sucesos") >= len(keys), seconds)
        self.assertEqual(sorted(key for (key,) in base.rows("select clave from sucesos")), keys)
        self.assertEqual(base.rows("select * from huecos"), [])
        self.assertEqual(base.number("select count(*) from rechazados"), 0)
        until(lambda: self.door.waiting() == 0, seconds)
        total = sum(self.number.values())
        self.assertEqual(base.rows("select local, comprobantes, total from vendido_hoy"),
                         [("suc1", str(total), f"{total * 10.5:.2f}")])

    def test_all_is_well(self):
        self.sell(40)
        self.arrives(20)

    def test_the_broker_is_killed(self):
        for _ in range(3):
            self.sell(20)
            self.chain.broker.kill()
            self.sell(10)
            self.chain.broker.start()
        self.arrives()

    def test_a_broker_forgets_what_it_had_acknowledged(self):
        self.sell(10)
        self.arrives()
        self.chain.central.kill()
        self.sell(20)
        time.sleep(1)
        self.assertGreaterEqual(self.door.waiting(), 20)
        self.chain.broker.kill()
        (self.chain.folder / "mosquitto.db").unlink(missing_ok=True)
        self.chain.broker.start()
        self.chain.central.start()
        self.arrives()

    def test_the_database_is_killed(self):
        self.sell(20)
        self.chain.base.kill()
        self.sell(20)
        self.chain.base.start()
        self.sell(10)
        self.arrives()

    def test_the_consumer_is_killed(self):
        for _ in range(3):
            self.sell(20)
            self.chain.central.kill()
            self.sell(20)
            self.chain.central.start()
        self.arrives()

    def test_the_door_is_killed(self):
        for _ in range(5):
            self.sell(20)
            self.door.kill()
            self.door.start()
        self.arrives()

    def test_the_network_is_cut(self):
        for _ in range(2):
            self.sell(20)
            self.network.cut()
            self.sell(20)
            self.network.mend()
        self.arrives()

    def test_a_message_that_nobody_understands_stops_no_other(self):
        self.chain.base.rows("select 1")
        for words in ("no es json", '{"esquema":"otro/9"}'):
            subprocess.run(["mosquitto_pub", "-p", str(self.chain.broker.port), "-q", "1", "-t",
                            "kestra/v1/suc9/caja1/documento", "-m", words], check=True)
        self.sell(5)
        base = self.chain.base
        until(lambda: base.number("select count(*) from rechazados") == 2)
        until(lambda: base.number("select count(*) from sucesos") == 5)
        until(lambda: self.door.waiting() == 0)


if __name__ == "__main__":
    unittest.main()
