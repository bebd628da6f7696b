"""The player notices what goes wrong: each story spoils something and wants it reported."""
import os
import pathlib
import tempfile
import unittest

from case import Case
from player import World, play

GOOD = """# A case that comes out as it is written.
call EP_Init
> port 1 "9600,N,8,1"
> = 1
reply ok 0000|0008|uno
operator close
call EP_CortaPapel
> log  - Comando : EP_CortaPapel()
> open
> log  - Output : <stx>{seq}K<etx>
> send {seq}K
> ack
> log  - Respuesta : <stx>{seq}K<fs>0000<fs>0008<fs>uno<etx>03AB
> report 0000 0008 lit: fiscal 3 (error) -> close
> close
> = 1
"""

# What is changed in it, and into what, and the kind of line that is then reported.
SPOILT = [
    ("> send {seq}K", "> send {seq}k", "wire expected"),
    ("> ack\n", "", "wire expected"),
    ("Output : <stx>{seq}K", "Output : <stx>{seq}J", "log expected"),
    ("<fs>uno<etx>03AB", "<fs>uno<etx>03FF", "log expected"),
    ("lit: fiscal 3 (error)", "lit: fiscal 4 (error)", "dialogs expected"),
    ("> close\n> = 1", "> close\n> = 0", "result expected"),
    ("operator close", "operator yes", "the operator still had answers to give"),
    ("operator close", "reply silence", "the printer still had replies to give"),
    ("call EP_CortaPapel", "call EP_Cantar", "no such call EP_Cantar"),
    ("operator close", "canta close", "unknown input canta"),
]

# The library asks the printer for its total until it is the host's: this one never is.
ENDLESS = """# A call that does not come back.
ini AjusteRedondeo=1
call EP_Init
> port 1 "9600,N,8,1"
> = 1
default ok 0000|0000|1|2|999|0|0|0|0|0
call EP_AjusteRedondeo 5
> open
> = 0
"""


class FaultsAreNoticed(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.path = pathlib.Path(folder.name) / "spoilt.golden"
        self.world = World(os.environ["KESTRA_LIVE_HOST"], os.environ.get("KESTRA_WINE", ""))
        self.addCleanup(self.world.close)

    def faults(self, text):
        self.path.write_text(text, encoding="utf-8")
        return play(Case(self.path), self.world)

    def test_a_good_case_has_no_faults(self):
        self.assertEqual(self.faults(GOOD), [])

    def test_a_host_plays_on_where_the_library_goes_with_its_case(self):
        for played in (1, 2):
            self.assertEqual(self.faults(GOOD), [])
            self.assertEqual([host.cases for host in self.world.idle], [played] if self.world.wine else [])

    def test_a_library_that_stays_is_reported_and_its_host_plays_no_more(self):
        stays = ["the library does not go when it is left: ['stays']"]
        self.assertEqual(self.faults(GOOD + "keep\n"), stays if self.world.wine else [])
        self.assertFalse(self.world.idle)

    def test_each_spoilt_case_is_reported(self):
        for old, new, fault in SPOILT:
            with self.subTest(new=new):
                self.assertIn(old, GOOD)
                found = self.faults(GOOD.replace(old, new))
                self.assertTrue(any(fault in text for text in found), found)

    def test_a_host_that_hangs_is_ended_and_reported(self):
        self.world.patience["call EP_AjusteRedondeo 5"] = 3.0
        found = self.faults(ENDLESS)
        self.assertEqual(found, ["Hung: the host does not come back from: call EP_AjusteRedondeo 5"])

    def test_a_host_that_cannot_start_is_reported(self):
        self.world.wine = ""
        self.world.program = str(self.path.with_name("nobody"))
        self.assertTrue(self.faults(GOOD))

    def test_a_host_that_ends_in_the_middle_is_reported(self):
        self.world.program = "nothing.exe" if self.world.wine else "/bin/false"
        self.assertTrue(self.faults(GOOD))


if __name__ == "__main__":
    unittest.main()
