"""A whole chain: tills, a door with its printers, a broker, a consumer and a database, killed and cut off in turns. In the
end the database has what the papers have: nothing is lost, nothing is there twice."""
import os
import random
import time
import unittest

from chain import Chain, Network, until
from tills import Shop, Till, judge

ROUNDS = int(os.environ.get("PUERTA_VUELTAS", "6"))


class ChainPapers(unittest.TestCase):
    def test_the_database_has_what_the_papers_have(self):
        with Chain() as chain:
            network = Network(chain.broker.port)
            shop = Shop(2, mqtt={"servidor": "127.0.0.1", "puerto": network.port, "local": "suc1",
                                 "espera_acuse": True})
            with shop:
                tills = [Till(shop, printer, i * 1_000_000) for i, printer in enumerate(list(shop.printers) * 2, 1)]
                for till in tills:
                    till.start()
                self.trouble(chain, network, shop, tills)
                for till in tills:
                    till.stops.set()
                for till in tills:
                    till.join(120)
                    self.assertFalse(till.is_alive(), "a till waits for ever")
                status, closing = shop.ask("POST", "/v1/impresoras/caja1/informes", {"tipo": "z"},
                                           {"Idempotency-Key": "cierre-z-1"}, 120)
                self.assertEqual(closing["estado"], "hecho", (status, closing))
                count, wrong = judge(shop, tills)
                self.assertEqual(wrong, [])
                self.compare(chain.base, shop, count["done"])

    def trouble(self, chain, network, shop, tills):
        programs = [chain.broker, chain.base, chain.central, shop]
        for _ in range(ROUNDS):
            random.shuffle(programs)
            for program in programs:
                self.assertEqual([till.failure for till in tills if till.failure], [])
                program.kill()
                time.sleep(random.random())
                program.start()
                time.sleep(random.random())
            network.cut()
            time.sleep(1)
            network.mend()

    def compare(self, base, shop, done):
        papers = sorted((name, number) for name, rows in shop.papers().items() for _, number, good in rows if good)
        self.assertEqual(len(papers), done)
        until(lambda: base.number("select count(*) from sucesos where tipo = 'documento'") >= len(papers)
              and base.number("select count(*) from sucesos where tipo = 'cierre'") == 1, 180)
        told = base.rows("select impresora, lpad(numero::text, 8, '0') from sucesos where tipo = 'documento' order by 1, 2")
        self.assertEqual(told, papers)
        gaps = base.rows("select impresora, desde, hasta from huecos where serie = '(sucesos)'")
        self.assertEqual(gaps, [], "letters are missing")
        self.assertEqual(base.number("select count(*) from rechazados"), 0)
        self.assertEqual(base.rows("select comprobantes, total from vendido_hoy"), [(str(done), f"{done * 100}.00")])
        self.assertEqual([row[0] for row in base.rows("select impresora from locales_sin_z")], ["caja2"])
        self.check_gaps(base, shop)
        print(f"\n{done} documents, {ROUNDS} rounds", flush=True)

    def check_gaps(self, base, shop):
        """Numbers that no valid paper has are those of the cancelled ones."""
        holes = {(name, number) for name, first, last in
                 base.rows("select impresora, desde, hasta from huecos where serie = 'tique'")
                 for number in range(int(first), int(last) + 1)}
        for name, rows in shop.papers().items():
            numbers = {int(number) for _, number, good in rows if good}
            span = set(range(min(numbers), max(numbers) + 1))
            self.assertEqual({number for one, number in holes if one == name}, span - numbers)


if __name__ == "__main__":
    unittest.main()
