"""Doors and workers killed at random moments, while tills sell and repeat what they are not sure of: the papers of the
virtual printers against what the tills were told.

PUERTA_MUERTES=N kills so often, PUERTA_LOCALES=N shops at a time, PUERTA_SEMILLA=N other moments.
"""
import json
import os
import random
import threading
import time
import unittest

from tills import Shop, Till, judge

KILLS = int(os.environ.get("PUERTA_MUERTES", "40"))
SHOPS = int(os.environ.get("PUERTA_LOCALES", "2"))
SEED = int(os.environ.get("PUERTA_SEMILLA", "1"))
TILLS = 2  # for each printer


class Kills:
    """So many kills of one shop's door and workers."""

    def __init__(self, number, kills):
        self.chance = random.Random(SEED * 1000 + number)
        self.shop = Shop()
        self.left = kills
        self.killed = {"door": 0, "worker": 0}
        self.count, self.wrong = {}, []

    def run(self):
        try:
            self.live()
        except Exception as failure:  # told with the rest
            self.wrong.append(("the story broke off", repr(failure)))

    def live(self):
        with self.shop as shop:
            tills = [Till(shop, printer, i * 1_000_000) for i, printer in
                     enumerate(list(shop.printers) * TILLS, 1)]
            for till in tills:
                till.start()
            while self.left > 0 and not any(till.failure for till in tills):
                time.sleep(self.chance.random() ** 2 * 0.6)
                self.kill_one()
            for till in tills:
                till.stops.set()
            for till in tills:
                till.join(120)
                if till.is_alive():
                    till.failure = TimeoutError(f"{till.printer}: never told of V{till.next - 1:07}\n"
                                                + (shop.folder / "puerta.log").read_text()[-3000:])
            self.count, self.wrong = judge(shop, tills)
            self.repeat(tills)

    def kill_one(self):
        if self.chance.random() < 0.5:
            self.shop.kill()
            self.killed["door"] += 1
            self.left -= 1
            time.sleep(self.chance.choice((0, 0, 0.02, 0.1)))
            self.shop.start()
        elif self.shop.kill_worker():
            self.killed["worker"] += 1
            self.left -= 1

    def repeat(self, tills):
        """The same key gives the same answer, and no paper."""
        before = self.shop.papers()
        for till in tills:
            for word in self.chance.sample(sorted(till.told), min(20, len(till.told))):
                again = self.shop.sell(till.printer, word)
                if again != till.told[word]:
                    self.count["contradictions"] += 1
                    self.wrong.append(("another answer", till.told[word], again))
        if self.shop.papers() != before:
            self.count["doubles"] += 1
            self.wrong.append(("a repetition printed",))


class ShopsAreKilled(unittest.TestCase):
    def test_papers_are_what_the_tills_were_told(self):
        start = time.monotonic()
        shops = [Kills(i, -(-KILLS // SHOPS)) for i in range(1, SHOPS + 1)]
        threads = [threading.Thread(target=shop.run) for shop in shops]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        total = {"door": 0, "worker": 0}
        for shop in shops:
            for name, count in [*shop.killed.items(), *shop.count.items()]:
                total[name] = total.get(name, 0) + count
        total["seconds"] = round(time.monotonic() - start)
        print("\n" + json.dumps(total), flush=True)
        for shop in shops:
            self.assertEqual(shop.wrong, [])
        self.assertGreater(total["done"], 0)


if __name__ == "__main__":
    unittest.main()
