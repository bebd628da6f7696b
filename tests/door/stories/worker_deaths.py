"""A worker that dies anywhere, and the next one: what it finds out is what the papers say, every time.

PUERTA_MUERTES=N kills so many workers at random moments, PUERTA_SEMILLA another series of them.
"""
import os
import random
import time
import unittest

from counter import Counter, Worker, came_out, invoice, papers, ticket

DEATHS = int(os.environ.get("PUERTA_MUERTES", "40"))
SEED = int(os.environ.get("PUERTA_SEMILLA", "1"))


def made(family, operation, word):
    """A request with that word in it."""
    if operation == "comprobante":
        return ticket(words=word) if family == "TQ" else invoice(words=word)
    return {"renglones": [word, "Segundo", "Tercero"]}


def dies(worker, number, operation, body, at):
    """The job until its `at`-th line (0: what was before, written and not yet allowed), or its end.
    (what was before, the outcome when it got that far)"""
    worker.say(trabajo=number, operacion=operation, cuerpo=body)
    before = worker.hear("antes")
    if at == 0:
        return before, None
    worker.say(siga=number)
    for _ in range(at):
        heard = worker.next()
        while heard is not None and heard[0] == "novedad":
            heard = worker.next()
        if heard is None or heard[0] == "fin":
            return before, heard and heard[1]
    return before, None


class DeathAtEachStep(Counter):
    family = "TQ"
    flags = ("--demora", "8")  # milliseconds: what is under way is under way for some time

    def die_everywhere(self, operation, pauses=(0.0, 0.004, 0.012)):
        """(word, what was found out) of each death."""
        found, at = [], 0
        while True:
            for pause in pauses:
                word = f"M{operation[:2]}{at:02}{int(pause * 1000):02}"
                body = made(self.family, operation, word)
                number = len(found) + 1
                worker = self.start()
                before, outcome = dies(worker, number, operation, body, at)
                if outcome is not None:
                    worker.kill()
                    return found
                time.sleep(pause)
                worker.kill()
                told = self.start_and_recover(number, operation, body, before)
                found.append((word, told))
            at += 1

    def start_and_recover(self, number, operation, body, before):
        worker = self.start()
        told = worker.recover(number, operation, body, before)
        worker.kill()
        return told

    def judge(self, found):
        paper = self.printer.stop()
        for word, told in found:
            numbers, _ = came_out(paper, word)
            self.assertIn(told["estado"], ("hecho", "no_hecho"), (word, told))
            self.assertTrue(told["definitivo"])
            wanted = [told["datos"].get("numero", "")] if told["estado"] == "hecho" else []
            self.assertEqual(numbers, wanted, (word, told))
        self.assertGreater(len(found), 10)
        self.assertEqual(found[0][1]["estado"], "no_hecho")

    def test_of_a_document(self):
        self.judge(self.die_everywhere("comprobante"))

    def test_of_a_page_without_fiscal_value(self):
        self.judge(self.die_everywhere("no_fiscal"))


class DeathAtEachStepOfAnInvoice(DeathAtEachStep):
    family = "TF"


class DeathAtEachStepOfAForm(DeathAtEachStep):
    family = "FC"


class DeathOfAClosing(Counter):
    flags = ("--demora", "30")

    def test_is_told_by_the_printers_count(self):
        closings = 0
        for pause in (0.0, 0.005, 0.02, 0.04, 0.06):
            worker = self.start()
            before, outcome = dies(worker, 1, "informe", {"tipo": "z"}, 1)
            self.assertIsNone(outcome)
            time.sleep(pause)
            worker.kill()
            worker = self.start()
            told = worker.recover(1, "informe", {"tipo": "z"}, before)
            closings += told["estado"] == "hecho"
            self.assertIn(told["estado"], ("hecho", "no_hecho"), told)
            if told["estado"] == "hecho":
                self.assertEqual(told["datos"]["numero"], f"{closings:08}")
            worker.kill()
        self.assertEqual(self.printer.stop().count("C I E R R E   Z"), closings)


class DeathOfAReport(Counter):
    flags = ("--demora", "30")

    def test_is_told_as_unknown_where_nothing_tells(self):
        states = []
        for at, pause in ((0, 0.0), (1, 0.0), (1, 0.015), (1, 0.06)):
            worker = self.start()
            before, outcome = dies(worker, 1, "informe", {"tipo": "x"}, at)
            self.assertIsNone(outcome)
            time.sleep(pause)
            worker.kill()
            worker = self.start()
            told = worker.recover(1, "informe", {"tipo": "x"}, before)
            self.assertTrue(told["definitivo"])
            states.append(told["estado"])
            worker.kill()
        self.assertEqual(states[0], "no_hecho")
        printed = self.printer.stop().count("I N F O R M E   X")
        self.assertLessEqual(states.count("hecho"), printed)
        self.assertLessEqual(printed, len(states) - states.count("no_hecho"))


class Campaign(Counter):
    """Deaths at random moments, also of those who find out what became of the dead."""

    flags = ("--demora", "3")
    longest = 0.12  # seconds until a death, at most; follows what a sale takes here, so that half of them end

    def setUp(self):
        self.random = random.Random(SEED)
        self.family = ("TF", "TQ", "FC")[SEED % 3]
        super().setUp()
        self.jobs = {}  # word: what the till was told

    def live(self, number):
        word = f"C{number:06}"
        operation = "no_fiscal" if self.random.random() < 0.15 else "comprobante"
        body = made(self.family, operation, word)
        worker = Worker(self.folder)
        worker.say(trabajo=number, operacion=operation, cuerpo=body)
        before = worker.hear("antes")
        told = None
        if self.random.random() < 0.95:  # else it never begins
            worker.say(siga=number)
            told = self.hear_until(worker, self.random.random() * self.longest)
        worker.kill()
        self.longest *= 1.04 if told is None else 0.96
        while told is None or not told["definitivo"]:
            told = self.find_out(number, operation, body, before)
        self.jobs[word] = told

    def hear_until(self, worker, seconds):
        """The outcome, when it comes before so many seconds have passed."""
        deadline = time.monotonic() + seconds
        while (left := deadline - time.monotonic()) > 0:
            worker.line.settimeout(left)
            try:
                heard = worker.next()
            except (TimeoutError, OSError):
                return None
            if heard and heard[0] in ("fin", "recuperado"):
                return heard[1]
        return None

    def find_out(self, number, operation, body, before):
        worker = Worker(self.folder)
        try:
            if self.random.random() < 0.7:
                return worker.recover(number, operation, body, before)
            worker.say(recupere={"trabajo": number, "operacion": operation, "cuerpo": body,
                                  "antes": before})
            return self.hear_until(worker, self.random.random() * 0.05)
        finally:
            worker.kill()

    def test_no_answer_contradicts_the_paper(self):
        for number in range(1, DEATHS + 1):
            self.live(number)
        paper = self.printer.stop()
        doubles = lost = wrong = 0
        states = {"hecho": 0, "no_hecho": 0, "no_se_sabe": 0}
        numbers_on_paper = {word: [] for word in self.jobs}
        for document in papers(paper):
            for word in set(numbers_on_paper) & set(document.split()):
                numbers_on_paper[word] += came_out("C.U.I.T. Nº 30-00000000-7" + document, word)[0]
        for word, told in self.jobs.items():
            numbers = numbers_on_paper[word]
            states[told["estado"]] += 1
            doubles += len(numbers) > 1
            lost += told["estado"] == "hecho" and not numbers
            wrong += told["estado"] == "no_hecho" and bool(numbers)
            wrong += told["estado"] == "hecho" and bool(numbers) and numbers[0] != told["datos"].get("numero", "")
        print(f"{self.family}: {len(self.jobs)} deaths: {states}; doubles {doubles}, lost {lost}, contradictions {wrong}")
        self.assertEqual((doubles, lost, wrong, states["no_se_sabe"]), (0, 0, 0, 0))


if __name__ == "__main__":
    unittest.main()
