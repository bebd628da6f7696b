"""The till's page in a real browser, for the stories about it."""

import os
import sys
import unittest

from contract import SOURCE
from witness import Witness

sys.path.insert(0, os.path.join(SOURCE, "tests", "simulator", "panel", "browser"))
import browser as real_browser  # noqa: E402

FOLDER = os.path.join(os.environ["PUERTA_BUILD"], "chromium")
WATCHED = """[...document.querySelectorAll("#pedidos > li")].map((li) => [li.className, li.querySelector(".que").innerText])"""


class TillStory(unittest.TestCase):
    """`self.page` sells through `self.witness`."""

    @classmethod
    def setUpClass(cls):
        lacking = real_browser.missing()
        if lacking:
            raise AssertionError("the till cannot be tried here; missing: " + lacking)
        real_browser.install(FOLDER)

    def open_till(self, door_port):
        self.witness = Witness(door_port).__enter__()
        self.addCleanup(self.end_witness)
        self.use_browser()
        self.come_in()

    def use_browser(self):
        self.page = real_browser.Browser(FOLDER)
        self.addCleanup(self.page.close)

    def come_in(self):
        self.page.open(self.witness.url + "/caja/")
        self.page.wait("#puerta.bien")

    def end_witness(self):
        self.witness.__exit__()
        self.assertEqual(self.witness.complaints, [])
        self.assertGreater(self.witness.passed, 0)

    def add(self, name, price, quantity="1", rate="21"):
        for field, text in (("descripcion", name), ("cantidad", quantity), ("precio", price)):
            self.page.fill("#" + field, text)
        self.page.choose("#iva", rate)
        self.page.click("#renglon button")

    def customer(self, condition, name, number, address=""):
        self.page.click("#cliente summary")
        self.page.choose("#condicion", condition)
        for field, text in (("nombre", name), ("documento-numero", number), ("domicilio", address)):
            self.page.fill("#" + field, text)

    def charge(self, received="", method="Efectivo"):
        self.page.choose("#medio", method)
        self.page.fill("#monto", received)
        self.page.click("#cobrar")

    def requests(self):
        """(state, words) of the requests that the page shows, newest first."""
        return [tuple(row) for row in self.page.evaluate(WATCHED)]

    def ticket(self):
        return self.page.text("#tique")

    def no_errors(self):
        """What the browser has to say, but for connections that were cut and answers of 4xx and 5xx on purpose."""
        expected = ("Failed to load resource", "net::ERR")
        return [words for words in self.page.complaints() if not any(part in words for part in expected)]
