"""The panel's page in a real browser, with a real host at the other end of the printer's line."""

import os
import subprocess
import sys
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "..", "..", "end_to_end", "shared"))

import browser  # noqa: E402
from shop import ENV, Shop, until  # noqa: E402

FOLDER = os.path.join(ENV["KESTRA_BUILD"], "tests", "simulator", "panel", "browser", "chromium")

DATE = r"\d\d/\d\d/\d{4} \d\d:\d\d:\d\d"

# A host that does each line that it is told and says what came of it.
HOST = """
import sys
assert lib.EP_Init() == 1
for line in sys.stdin:
    print(eval(line), flush=True)
lib.EP_Kill()
"""


class ThePage(Shop):
    family = "TF"
    settings = {}

    def setUp(self):
        super().setUp()
        self.host = self.start_host(HOST, stdin=subprocess.PIPE)
        self.addCleanup(self.stop_host)
        self.browser = browser.Browser(FOLDER)
        self.addCleanup(self.browser.close)
        self.browser.open(self.url)
        self.browser.wait("#connection", "conectado")

    def start_printer(self):
        command = [ENV["KESTRA_PRINTER"], "--familia", self.family, "--enlace", self.device,
                   "--papel", self.path("papel.txt"), "--panel", "127.0.0.1:0"]
        printer = subprocess.Popen(command + self.printer_flags, stdout=subprocess.PIPE, text=True)
        self.addCleanup(printer.stdout.close)
        self.addCleanup(self.stop_printer, printer)
        for line in printer.stdout:
            if line.startswith("Panel: "):
                self.url = line.removeprefix("Panel: ").strip()
                break
        until(lambda: os.path.exists(self.device), "the virtual printer's line")
        return printer

    def stop_host(self):
        """What the host's operator was shown."""
        return self.host.communicate(timeout=30)[1] if self.host.poll() is None else ""

    def call(self, words):
        """A call of the host's, and its result."""
        self.host.stdin.write(words + "\n")
        self.host.stdin.flush()
        return self.host.stdout.readline().strip()

    def print_invoice(self):
        self.assertEqual(self.call(
            'open_document("FC", "B", "Almacen Don Pedro", "CUIT", "20123456786", "F", "Calle 1")'), "0")
        self.assertEqual(self.call('item("Cafe molido 500 g", 2, 1500.0)'), "0")
        self.assertEqual(self.call('item("Yerba mate 1 kg", 1, 890.5)'), "0")
        self.assertEqual(self.call('pay("Efectivo", 5000.0)'), "0")
        return self.call('close("FC", "B")')

    own_rules = ["respuesta 1 de e: callar", "en la 2da respuesta de b: perder", "comando 1 de `: nak"]

    def open_again(self):
        return self.call(
            'open_document("FC", "B", "Almacen Don Pedro", "CUIT", "20123456786", "F", "Calle 1")')

    def open_something(self):
        self.assertEqual(self.open_again(), "0")

    def print_something(self):
        self.print_invoice()

    def control(self, key):
        return f"#switches label:has(#control-{key})"

    def test_shows_a_document_while_the_driver_prints_it(self):
        self.assertEqual(self.print_invoice(), "(0, '00000001')")
        page = self.browser
        page.wait("#paper", "Cafe molido 500 g")
        page.wait("#paper", "SIN VALIDEZ FISCAL")
        page.wait("#document-title", "Último documento")
        self.assertIn("$ 3.890,50", page.text("#document"))
        self.assertRegex(page.text("#document"), DATE)
        self.assertRegex(page.text("#day"), "desde " + DATE)
        self.assertIn("3.890,50", page.text("#day"))
        page.wait("#trace summary", "Abrir factura")
        page.choose("#shown", "TIQUE FACTURA B 00000001 · $ 3.890,50")
        self.assertEqual(page.evaluate("""(async () => {
            const sheet = document.getElementById("sheet");
            await sheet.decode();
            return sheet.naturalWidth > 100;
        })()"""), True)
        self.assertEqual(page.complaints(), [])

    def test_takes_the_paper_out_and_the_driver_says_so(self):
        page = self.browser
        page.click(self.control("sin_papel"))
        page.wait("#printer-lamps .on.fault", "sin papel")
        self.assertEqual(self.call("lib.EP_AbrirComprobanteNoFiscal()"), "1")
        page.wait("#trace summary.failed", "Abrir")
        page.click(self.control("sin_papel"))
        page.wait("#printer-word", "0080")
        self.assertEqual(self.call("lib.EP_AbrirComprobanteNoFiscal()"), "0")
        page.wait("#stage", "documento no fiscal")
        self.assertEqual(self.call("lib.EP_CerrarComprobanteNoFiscal()"), "0")
        page.wait("#stage", "libre")
        self.assertEqual(page.complaints(), [])
        self.assertIn("Impresora sin papel", self.stop_host())

    def test_forces_a_lamp_with_the_keyboard(self):
        page = self.browser
        lamp = "[data-key=fiscal_bateria_baja]"
        page.wait(lamp)
        page.focus(lamp)
        page.press("Enter")
        page.wait(lamp + ".on.forced")
        self.assertEqual(page.text("#fiscal-word"), "8604")
        self.assertEqual(self.call("clock()[0]"), "1")
        page.press("Enter")
        page.wait("#fiscal-word", "0600")
        self.assertEqual(self.call("clock()[0]"), "0")

    def test_injects_a_fault_and_counts_it(self):
        page = self.browser
        page.fill("#rules", "esto no es una regla")
        page.click("#fault-form .primary")
        page.wait("#rules-error", "renglón 1")
        page.fill("#rules", ENV["KESTRA_FAULT"])
        page.click("#fault-form .primary")
        page.wait("#faults .rule", ENV["KESTRA_FAULT"])
        self.assertEqual(self.call("clock()[0]"), "0")
        page.wait("#faults .count", "1 de 1")
        page.wait("#trace summary", "⚡")
        page.click("#faults button")
        until(lambda: page.count("#faults li") == 0, "the rule to go")
        self.assertEqual(page.text("#rules-error"), "")
        # The refusal of the first text is a complaint of the browser's, and the only one.
        self.assertEqual(len(page.complaints()), 1)

    def test_every_example_of_a_rule_is_one(self):
        page = self.browser
        page.evaluate("""document.getElementById("rules").value =
            [...document.getElementById("example").options].slice(1).map((o) => o.value).join("\\n")""")
        page.click("#fault-form .primary")
        page.wait("#faults .rule")
        self.assertEqual(page.count("#faults li"), page.count("#example option") - 1)
        page.click("#clear-faults")
        until(lambda: page.count("#faults li") == 0, "the rules to go")

    def test_the_examples_have_the_family_s_own_commands(self):
        page = self.browser
        page.wait("#scenes button")
        offered = page.evaluate("document.getElementById('example').textContent")
        for rule in self.own_rules:
            self.assertIn(rule, offered)

    def test_tells_how_to_connect_until_there_is_paper(self):
        page = self.browser
        page.wait("#connections", f"ImpresoraDispositivo={self.device}")
        page.wait("#connections", f"TipoComprobante={self.family}")
        page.click("#connections button")
        self.print_something()
        until(lambda: not page.evaluate("document.getElementById('connect').checkVisibility()"),
              "the card to go")
        self.assertEqual(page.complaints(), [])

    def test_tells_when_the_till_talks(self):
        page = self.browser
        self.call("clock()")
        page.wait("#till.good", "caja: activa")
        page.wait("#connection.good", "panel conectado")

    def test_runs_out_of_paper_in_the_third_item(self):
        page = self.browser
        page.click("[data-scene=sin_papel_en_el_item_3]")
        page.wait("[data-scene=sin_papel_en_el_item_3][aria-pressed=true]")
        page.wait("#scene-words", "tercer ítem")
        self.open_something()
        self.assertEqual([self.call('item("Pan", 1, 10.0)') for _ in range(3)], ["0", "0", "1"])
        page.wait("#printer-lamps .on.fault", "sin papel")
        page.wait("[data-scene=sin_papel_en_el_item_3][aria-pressed=false]")

    def test_ends_a_scene_that_it_began(self):
        page = self.browser
        scene = "[data-scene=corte_en_el_cierre]"
        page.click(scene)
        page.wait("#faults .rule", "respuesta 1 de cierre: apagar 3 s")
        page.click(scene + "[aria-pressed=true]")
        page.wait(scene + "[aria-pressed=false]")
        self.assertEqual(page.count("#faults li"), 0)

    def test_gives_the_port_to_another_till_and_takes_it_back(self):
        page = self.browser
        scene = "[data-scene=otra_caja]"
        self.assertEqual(self.call("clock()[0]"), "0")
        page.click(scene)
        page.wait("#till.bad", "otra caja en el puerto")
        self.assertEqual(self.call("clock()[0]"), "1")
        page.click(scene + "[aria-pressed=true]")
        page.wait("#till:not(.bad)")
        self.assertEqual(self.call("clock()[0]"), "0")
        self.assertEqual(page.complaints(), [])

    def test_lets_a_day_go_by(self):
        page = self.browser
        self.print_something()
        page.click("[data-scene=pasaron_24_horas]")
        page.wait("#fiscal-lamps .on.fault", "falta el cierre")
        self.assertEqual(self.open_again(), "1")

    def test_records_and_hands_it_over(self):
        page = self.browser
        page.click("#record")
        page.wait("#record", "Detener (0)")
        self.call("clock()")
        page.wait("#record", "Detener (1)")
        page.click("#record")
        page.wait("#recording", "Descargar grabación")
        self.assertEqual(page.attribute("#recording", "download"), "grabacion.jsonl")
        lines = page.evaluate("""fetch(document.getElementById("recording").href)
            .then((answer) => answer.text())""").splitlines()
        self.assertEqual(len(lines), 2)
        self.assertIn("Leer fecha y hora", lines[1])
        self.assertEqual(page.complaints(), [])

    def test_takes_a_frame_apart(self):
        page = self.browser
        self.call("clock()")
        page.click("#trace summary")
        page.wait("#trace .apart", "secuencia")
        page.wait("#trace .apart", "‹STX›")
        self.assertRegex(page.text("#trace .apart"), DATE)
        self.assertTrue(page.evaluate("""[...document.querySelectorAll("#trace summary .time")]
            .every((time) => time.scrollWidth <= time.clientWidth)"""), "the time is cut")

    def test_fits_a_narrow_window(self):
        page = self.browser
        page.size(360, 800)
        fits = "document.documentElement.scrollWidth <= innerWidth"
        page.wait("#connections", "ImpresoraDispositivo")
        self.assertTrue(page.evaluate(fits))
        self.print_invoice()
        page.wait("#paper", "Cafe")
        self.assertTrue(page.evaluate(fits))

    def test_comes_back_when_the_printer_does(self):
        page = self.browser
        self.print_invoice()
        page.wait("#paper", "Cafe")
        port = self.url.rstrip("/").rsplit(":", 1)[1]
        self.stop_printer()
        page.wait("#connection", "sin conexión")
        self.printer_flags = ["--panel", f"127.0.0.1:{port}"]
        self.start_printer()
        page.wait("#connection.good", "conectado")
        until(lambda: "Cafe" not in page.text("#paper"), "the new printer's empty paper")


class ATicketPrintersPage(ThePage):
    """What is another family's."""
    family = "TQ"
    own_rules = ["respuesta 1 de E: callar", "en la 2da respuesta de B: perder", "comando 1 de @: nak"]


class ThePicture(ThePage):
    """What the README shows; written where KESTRA_PICTURE says, when it says so."""

    def test_is_taken(self):
        page = self.browser
        self.print_invoice()
        self.call('open_document("FC", "B", "Almacen Don Pedro", "CUIT", "20123456786", "F", "Calle 1")')
        self.call('item("Alfajor de maicena", 3, 120.25)')
        page.fill("#rules", ENV["KESTRA_FAULT"])
        page.click("#fault-form .primary")
        page.wait("#faults .rule")
        page.wait("#stage", "factura")
        page.wait("#paper", "Alfajor")
        page.wait("#till.good")
        page.evaluate("document.querySelector('.side').scrollTop = 0")
        picture = ENV.get("KESTRA_PICTURE") or self.path("panel.png")
        page.picture(picture)
        self.assertLess(os.path.getsize(picture), 300_000)


# Its own tests only: the inherited ones have run.
for name in [name for name in dir(ThePage) if name.startswith("test_")]:
    setattr(ThePicture, name, None)
    if name != "test_the_examples_have_the_family_s_own_commands":
        setattr(ATicketPrintersPage, name, None)


if __name__ == "__main__":
    lacking = browser.missing()
    if lacking:
        print("the page cannot be tested here; missing:", lacking)
        sys.exit(browser.SKIPPED)
    browser.install(FOLDER)
    unittest.main(verbosity=2)
