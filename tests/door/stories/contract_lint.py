"""The contract is an OpenAPI 3.1 that a linter has nothing to say against."""

import os
import shutil
import subprocess
import unittest

from contract import CONTRACT

HERE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "lint")
FOLDER = os.path.join(os.environ["PUERTA_BUILD"], "lint")


def install():
    """The linter, in a folder of the build; once for each version."""
    os.makedirs(FOLDER, exist_ok=True)
    lock = os.path.join(FOLDER, "package-lock.json")
    with open(os.path.join(HERE, "package-lock.json"), "rb") as wanted:
        same = os.path.exists(lock) and open(lock, "rb").read() == wanted.read()
    if same and os.path.isdir(os.path.join(FOLDER, "node_modules", "@redocly", "cli")):
        return
    for name in ("package.json", "package-lock.json", ".npmrc"):
        shutil.copy(os.path.join(HERE, name), FOLDER)
    subprocess.run(["npm", "ci", "--prefer-offline", "--no-audit", "--loglevel=error"], cwd=FOLDER, check=True, timeout=900)


class TheLinter(unittest.TestCase):
    def test_says_nothing(self):
        install()
        told = subprocess.run(
            [os.path.join(FOLDER, "node_modules", ".bin", "redocly"), "lint", "--config",
             os.path.join(HERE, "redocly.yaml"), CONTRACT],
            env=dict(os.environ, REDOCLY_TELEMETRY="off", REDOCLY_SUPPRESS_UPDATE_NOTICE="true", NO_COLOR="1"),
            capture_output=True, text=True, timeout=300)
        self.assertEqual(told.returncode, 0, told.stdout + told.stderr)
        self.assertNotIn("warning", told.stderr.replace("Deprecation warning", ""), told.stderr)


if __name__ == "__main__":
    unittest.main()
