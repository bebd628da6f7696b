"""What `kestra diagnostico` tells of the adapter behind a COM port, out of a registry that is made up."""

import json
import subprocess
import unittest

from kit import WINDOWS, InAShop, words_before

PORT = "COM78"
DEVICES = r"HKLM\SYSTEM\CurrentControlSet\Enum"
PORTS = r"HKLM\HARDWARE\DEVICEMAP\SERIALCOMM"

# Its place, its values, its latency; what is told of it, and the verdict.
ROWS = [
    (r"FTDIBUS\VID_0403+PID_6001+A50285BIA\0000", {"FriendlyName": "USB Serial Port (COM78)"}, 16,
     "COM78: USB Serial Port (COM78) (serie A50285BI)", "latencia-usb"),
    (r"FTDIBUS\VID_0403+PID_6001+A50285BIA\0000", {"FriendlyName": "USB Serial Port (COM78)"}, 1,
     "COM78: USB Serial Port (COM78) (serie A50285BI)", "bien"),
    (r"USB\VID_2341&PID_0043\75735303130351F0D1B1", {"FriendlyName": "Ñandú USB (COM78)"}, None,
     "COM78: Ñandú USB (COM78) (serie 75735303130351F0D1B1)", "bien"),
    (r"USB\VID_067B&PID_2303\5&2a9f0b1&0&2", {"DeviceDesc": "@oem9.inf,%name%;USB-to-Serial Comm Port"}, None,
     "COM78: USB-to-Serial Comm Port", "bien"),
    (r"ACPI\PNP0501\1", {"FriendlyName": "Puerto de comunicaciones (COM78)"}, None,
     "COM78: Puerto de comunicaciones (COM78)", "bien"),
]


def registry(*words):
    subprocess.run([*words_before(), "reg", *words], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, check=True)


class AnAdapter(InAShop):
    def setUp(self):
        super().setUp()
        self.assertEqual(self.serial_printer(78), PORT)

    def plug_in(self, place, values, latency):
        key = DEVICES + "\\" + place
        for name, value in values.items():
            registry("add", key, "/v", name, "/d", value, "/f")
        registry("add", key + r"\Device Parameters", "/v", "PortName", "/d", PORT, "/f")
        if latency is not None:
            registry("add", key + r"\Device Parameters", "/v", "LatencyTimer", "/t", "REG_DWORD", "/d", str(latency), "/f")

    def unplug(self, place):
        registry("delete", DEVICES + "\\" + place, "/f")

    def told(self):
        code, said = self.shown("diagnostico", "--json")
        found = json.loads(said)
        self.assertEqual(code, found["termina"])
        return found

    def test_is_told_by_its_name_and_number(self):
        self.settings(ImpresoraDispositivo=PORT.lower())
        for place, values, latency, words, verdict in ROWS:
            with self.subTest(place=place, latency=latency):
                self.plug_in(place, values, latency)
                found = self.told()
                self.unplug(place)
                port = found["secciones"][1]["datos"]
                self.assertEqual((port["es"], found["veredicto"]), (words, verdict))
                self.assertEqual(port.get("latencia"), latency and f"{latency} ms")

    def test_is_among_the_ports_of_the_machine(self):
        place, values, latency, words, _ = ROWS[0]
        self.plug_in(place, values, latency)
        self.addCleanup(self.unplug, place)
        registry("add", PORTS, "/v", r"\Device\VCP0", "/d", PORT, "/f")
        self.addCleanup(registry, "delete", PORTS, "/v", r"\Device\VCP0", "/f")
        self.settings(ImpresoraDispositivo="COM250")
        found = self.told()
        self.assertEqual(found["veredicto"], "dispositivo-inexistente")
        self.assertIn(words, found["secciones"][1]["datos"]["puertos de la máquina"])


if __name__ == "__main__":
    assert WINDOWS
    unittest.main()
