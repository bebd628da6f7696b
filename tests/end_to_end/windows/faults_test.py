"""What a Windows till meets on its COM port."""

import unittest

import faults
from shop import ENV
from till import Till


class ComTill(Till):
    missing = (8015, "No existe el dispositivo COM{self.port}")
    lost = (8020, "Se perdió la conexión con COM{self.port}")

    def start_clock(self):
        return self.start(ENV["KESTRA_CLOCK"])


class AWorkingPrinter(faults.AWorkingPrinter, ComTill):
    pass


class ABusyPrinter(faults.ABusyPrinter, ComTill):
    pass


class AnAbsentPrinter(faults.AnAbsentPrinter, ComTill):
    pass


class ASilentPrinter(faults.ASilentPrinter, ComTill):
    pass


class APortThatIsNone(faults.Clock, ComTill):
    def test_is_a_failure_in_words(self):
        self.plug_in(self.path("Fiscal.ini"))
        out, err = self.read_clock()
        self.expect_failure(out, err, (8015, "COM{self.port} no es un puerto serie"))


if __name__ == "__main__":
    unittest.main()
