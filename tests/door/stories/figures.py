"""What the door costs, measured: over the direct call at 9600 baud, with a printer that takes no time, in memory, at a
start with many keys. Prints a line of JSON for each.

PUERTA_TIQUES=N tickets each way at 9600 baud, PUERTA_CLAVES=N keys.
"""
import json
import os
import pathlib
import sqlite3
import statistics
import sys
import tempfile
import threading
import time
import unittest

from counter import Printer, write_settings
from tills import Shop, ticket

TICKETS = int(os.environ.get("PUERTA_TIQUES", "5"))
KEYS = int(os.environ.get("PUERTA_CLAVES", "100000"))
ITEMS = 10
sys.path.insert(0, os.environ["KESTRA_SOURCE"] + "/hosts/python")


def tell(**figures):
    print("\n" + json.dumps(figures), flush=True)


def proportional(pid):
    """KiB of memory that are a process's share."""
    rows = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text(encoding="ascii").splitlines()
    return next(int(row.split()[1]) for row in rows if row.startswith("Pss:"))


class Direct:
    """A program that calls the library, with the same printer, settings and ticket."""

    def __init__(self, folder, flags):
        from kestra import Impresora
        self.folder = folder
        folder.mkdir()
        self.printer = Printer(folder, "TQ", flags)
        write_settings(folder, "TQ", self.printer.device)
        os.chdir(folder)
        self.till = Impresora(os.environ["KESTRA_LIBRARY"])

    def sell(self, word):
        sale = ticket(word, ITEMS)
        self.till.abrir_comprobante_fiscal("FC", "B")
        for item in sale["renglones"]:
            self.till.imprimir_item(item["descripcion"], float(item["cantidad"]), float(item["precio"]),
                                    float(item["iva"]))
        for payment in sale["pagos"]:
            self.till.imprimir_pago(payment["descripcion"], float(payment["monto"]))
        return self.till.cerrar_comprobante_fiscal("FC", "B")

    def end(self):
        self.till.cerrar()
        self.printer.stop()


class Figures(unittest.TestCase):
    def test_over_the_direct_call(self):
        """The same ticket of ten items in turns, at the line's real speed."""
        with tempfile.TemporaryDirectory() as folder, Shop(1, flags=("--baudios", "9600")) as shop:
            direct = Direct(pathlib.Path(folder) / "directo", ("--baudios", "9600"))
            took = {"direct": [], "door": []}
            for i in range(TICKETS + 1):
                word = f"V{i:07}"
                for name, sell in (("direct", direct.sell), ("door", lambda w: shop.sell("caja1", w, ITEMS))):
                    start = time.perf_counter()
                    told = sell(word)
                    took[name].append(time.perf_counter() - start)
                self.assertEqual(told["estado"], "hecho")
            direct.end()
            # The first of each opens files and asks the printer who it is.
            median = {name: statistics.median(seconds[1:]) for name, seconds in took.items()}
            tell(tickets=TICKETS, items=ITEMS, direct=round(median["direct"], 4), door=round(median["door"], 4),
                 ratio=round(median["door"] / median["direct"], 4))

    def test_documents_per_second(self):
        for printers, tills in ((1, 1), (1, 4), (4, 4)):
            with Shop(printers) as shop:
                names = list(shop.printers)
                for i, name in enumerate(names):
                    shop.sell(name, f"V{i:07}")
                seconds = 5
                end = time.monotonic() + seconds
                sold = [0] * tills

                def sell(i):
                    while time.monotonic() < end:
                        sold[i] += 1
                        shop.sell(names[i % len(names)], f"V{(i + 1) * 100000 + sold[i]:07}")

                threads = [threading.Thread(target=sell, args=(i,)) for i in range(tills)]
                for thread in threads:
                    thread.start()
                for thread in threads:
                    thread.join()
                tell(printers=printers, tills=tills, documents_per_second=round(sum(sold) / seconds, 1))

    def test_memory(self):
        for printers in (1, 16):
            with Shop(printers) as shop:
                for i, name in enumerate(shop.printers):
                    shop.sell(name, f"V{i:07}")
                workers = [proportional(pid) for pid in shop.workers()]
                self.assertEqual(len(workers), printers)
                tell(printers=printers, door_MiB=round(proportional(shop.process.pid) / 1024, 1),
                     worker_MiB=round(statistics.mean(workers) / 1024, 1),
                     all_MiB=round((proportional(shop.process.pid) + sum(workers)) / 1024, 1))

    def test_restart_with_many_keys(self):
        for keys in (0, KEYS):
            with Shop(1) as shop:
                first = shop.sell("caja1", "V0000001")
                shop.stop()
                self.fill(shop, keys)
                start = time.perf_counter()
                shop.start()
                seconds = time.perf_counter() - start
                start = time.perf_counter()
                again = shop.sell("caja1", "V0000001")
                self.assertEqual(again, first)
                tell(keys=keys, until_it_answers=round(seconds, 3), a_known_key=round(time.perf_counter() - start, 4))

    def fill(self, shop, keys):
        """As many jobs as that, all alike the one that was done."""
        store, = (shop.folder / "datos").glob("*.db")
        with sqlite3.connect(store) as file:
            columns = [row[1] for row in file.execute("pragma table_info(trabajos)") if row[1] not in ("numero", "clave")]
            names = ", ".join(columns)
            file.execute("with recursive n(i) as (select 1 union all select i + 1 from n where i < ?) "
                         f"insert into trabajos(clave, {names}) select 'k' || i, {names} from n, trabajos "
                         "where numero = 1 and ? > 0", (keys, keys))
            file.commit()
        file.close()


if __name__ == "__main__":
    unittest.main()
