"""Cases that wait for most of their time, lived at the same time and told one after the other."""

import concurrent.futures
import unittest

MOST = 12


class Notes:
    """What a case tells of itself, for later: every call of a result."""

    def __init__(self):
        self.calls = []

    def __getattr__(self, name):
        return lambda *words: self.calls.append((name, words))

    def tell(self, result):
        for name, words in self.calls:
            getattr(result, name)(*words)


def lived(case):
    notes = Notes()
    case.run(notes)
    return notes


def cases_of(suite):
    for each in suite:
        yield from cases_of(each) if isinstance(each, unittest.TestSuite) else [each]


class Together(unittest.TestSuite):
    def run(self, result, debug=False):
        del debug
        with concurrent.futures.ThreadPoolExecutor(max_workers=MOST) as pool:
            for notes in pool.map(lived, cases_of(self)):
                notes.tell(result)
        return result
