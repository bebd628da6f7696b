"""What the manual tells of a till's day does not depend on when, or how fast, the day was lived."""
import pathlib
import sys
import types
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()
sys.path[:0] = [str(SOURCE / "docs/manual")]

from maker import steady, till  # noqa: E402


def frame(number, data):
    return f"\x02{chr(number)}{data}\x03"


def day(first, second, sums=True):
    """A log of a question for the time, asked at that second, whose frames begin with that number."""
    answer = frame(first, f"Y\x1c0080\x1c0600\x1c261121\x1c1030{second:02}")
    return [" - Comando : EP_ObtenerFechaHora()", f" - Output : {frame(first, 'Y')}",
            f" - Respuesta : {answer}{steady.checksum(answer) if sums else '0000'}"]


def calls(first, second):
    field = {"nombre": "hora", "valor": f"1030{second:02}"}
    return [till.Call("EP_ObtenerFechaHora", (), 0, {"texto": f"2611211030{second:02}"}, [{"respuesta": {"datos": [field]}}],
                      day(first, second))]


class ADay(unittest.TestCase):
    def test_is_told_alike_whenever_it_was_lived(self):
        [early], [late] = steady.steadied(calls(40, 0)), steady.steadied(calls(69, 47))
        self.assertEqual(early, late)
        self.assertEqual(late.written, {"texto": "261121103000"})
        self.assertEqual(late.log[1], " - Output : \x020Y\x03")

    def test_has_checksums_that_are_right(self):
        answer = steady.steadied(calls(69, 47))[0].log[2].partition(" : ")[2]
        self.assertEqual(answer[-4:], f"{sum(answer[:-4].encode('cp1252')):04X}")

    def test_does_not_mend_a_wrong_checksum(self):
        line = steady.Line()
        with self.assertRaises(RuntimeError):
            [line.of(each) for each in day(40, 0, sums=False)]

    def test_counts_frames_and_gives_a_repeated_number_anew(self):
        line = steady.Line()
        told = [line.of(f" - Output : {frame(number, 'Y')}")[-3] for number in (66, 67, 40, 41)]
        self.assertEqual(told, ["0", "1", "2", "3"])

    def test_is_not_told_of_where_a_call_went_wrong(self):
        function = types.SimpleNamespace(nature="operation", done=0)
        for result, answer, said in ((0, frame(40, "Y"), []), (1, frame(40, "Y"), ["EP_ReporteX gave 1"]), (0, "", ["EP_ReporteX had no answer"])):
            with self.subTest(result=result, answer=answer):
                call = till.Call("EP_ReporteX", (), result, log=[f"[21/11/2026-10:30:00] - Respuesta : {answer}"])
                self.assertEqual(list(till.spoiled([call], {"EP_ReporteX": function})), said)

    def test_has_its_paper_of_the_same_moment(self):
        for text, told in (("Hora 10:30:19", "Hora 10:30:00"), ("21:31:02", "21:30:00"), ("261121213107", "261121213000"),
                           ("10:30", "10:30"), ("00001030", "00001030"), ("2611211030", "2611211030")):
            with self.subTest(text):
                self.assertEqual(steady.moments(text), told)


if __name__ == "__main__":
    unittest.main()
