"""What a till meets on a serial line."""

import unittest

import faults
from python_till import PythonTill


class SerialTill(PythonTill):
    missing = (8015, "No existe .*impresora")
    lost = (8020, ".*")
    in_use = (8005, ".*en uso.*")


class AWorkingPrinter(faults.AWorkingPrinter, SerialTill):
    pass


class ABusyPrinter(faults.ABusyPrinter, SerialTill):
    pass


class APortInUse(faults.ALineInUse, SerialTill):
    def test_says_on_which_line_of_the_routine_it_failed(self):
        first = self.start_clock()
        self.wait_for_frame()
        self.read_clock()
        self.assertRegex(self.log(), r" - Error 8005 \(.*en uso.*\) in procedure Enviar of Módulo "
                                     r"ExportedProcedures - Linea: abrir\r\n")
        first.communicate()


class AnAbsentPrinter(faults.AnAbsentPrinter, SerialTill):
    pass


class ASilentPrinter(faults.ASilentPrinter, SerialTill):
    pass


if __name__ == "__main__":
    unittest.main()
