"""A till on Windows that is killed, and whose cable is pulled."""
import unittest

import accidents
from shop import ENV
from till import Till


class Accidents(accidents.AKilledTillAndAPulledCable, Till):
    def start_till(self):
        return self.start(ENV["KESTRA_TILL"])


if __name__ == "__main__":
    unittest.main()
