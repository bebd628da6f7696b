"""A till on Linux that is killed, and whose cable is pulled."""
import subprocess
import unittest

import accidents
from shop import ENV, Shop


class Accidents(accidents.AKilledTillAndAPulledCable, Shop):
    def start_till(self):
        return subprocess.Popen([ENV["KESTRA_TILL"]], cwd=self.folder, text=True, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE)


if __name__ == "__main__":
    unittest.main()
