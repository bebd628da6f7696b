"""A shop that is a Windows program, under Wine, with Kestra.dll beside it and the printer on the network."""
import os
import shutil
import subprocess
import time

import programs
from shop import ENV, WAIT

LOOK = 0.2  # seconds between looks at the display
BOXES = ["xdotool", "search", "--onlyvisible", "--name", "."]
CLOSE = ["xdotool", "key", "Escape"]


class UnderWine:
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        bits = cls.language.windows
        ENV.update(KESTRA_WINE=ENV[f"KESTRA_WINE_{bits}"], KESTRA_STARTER=ENV[f"KESTRA_STARTER_{bits}"])
        shutil.copy(ENV[f"KESTRA_DLL_{bits}"], os.path.dirname(cls.filled(cls.language.run)[0]))  # of the example too

    def start_printer(self):
        command = [ENV["KESTRA_PRINTER"], "--familia", self.family, "--tcp", "127.0.0.1:0",
                   "--papel", self.path("papel.txt"), "--traza", self.path("traza.txt"), *self.printer_flags]
        printer = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
        self.addCleanup(printer.stdout.close)
        self.addCleanup(self.stop_printer, printer)
        self.device = printer.stdout.readline().removeprefix("Puerto: ").strip()
        return printer

    def run_program(self, command):
        """Boxes for the operator are closed; there are none where all goes well."""
        shop = programs.Program(command, self.folder, variables=self.language.environment)
        try:
            boxes = self.boxes_closed_until_the_end_of(shop)
        finally:
            shop.kill()
        if shop.returncode == 0:
            self.assertEqual(boxes, 0)
        out, err = (text.decode("utf-8").replace("\r\n", "\n") for text in (shop.output(), shop.errors()))
        return subprocess.CompletedProcess(command, shop.returncode, out, err)

    @staticmethod
    def boxes_closed_until_the_end_of(shop):
        boxes, deadline = 0, time.monotonic() + WAIT
        while shop.poll() is None and time.monotonic() < deadline:
            shown = subprocess.run(BOXES, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False).stdout.split()
            if shown:
                boxes += 1
                subprocess.run(CLOSE, check=False)
            time.sleep(LOOK)
        return boxes
