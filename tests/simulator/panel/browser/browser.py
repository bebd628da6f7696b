"""A browser for a test: starts browser.mjs on Debian's Chromium and tells it what to do."""

import json
import os
import shutil
import subprocess
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
SKIPPED = 77  # what ctest is told when there is nothing to test with
CHROMIUM = shutil.which("chromium") or shutil.which("chromium-browser")


def missing():
    """What the machine lacks for this test, or nothing."""
    tools = {"chromium": CHROMIUM, "node": shutil.which("node"), "npm": shutil.which("npm")}
    return ", ".join(name for name, path in tools.items() if not path)


def install(folder):
    """The script and the packages that it needs, in a folder of the build; once for each version."""
    os.makedirs(folder, exist_ok=True)
    lock = os.path.join(folder, "package-lock.json")
    names = ("package.json", "package-lock.json", ".npmrc", "browser.mjs")
    with open(os.path.join(HERE, "package-lock.json"), "rb") as wanted:
        same = os.path.exists(lock) and open(lock, "rb").read() == wanted.read()
    for name in names:
        shutil.copy(os.path.join(HERE, name), folder)
    if not same or not os.path.isdir(os.path.join(folder, "node_modules", "playwright-core")):
        subprocess.run(["npm", "ci", "--prefer-offline", "--no-audit", "--loglevel=error"], cwd=folder, check=True, timeout=300)


class Browser:
    """`browser.click("#power")`: each method is a deed of browser.mjs."""

    def __init__(self, folder):
        self.profile = tempfile.TemporaryDirectory(prefix="kestra-browser-",
                                                   ignore_cleanup_errors=True)
        self.process = subprocess.Popen(
            ["node", "browser.mjs", CHROMIUM, self.profile.name], cwd=folder, text=True,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, encoding="utf-8")

    def __getattr__(self, deed):
        def do(*details):
            self.process.stdin.write(json.dumps([deed, *details]) + "\n")
            self.process.stdin.flush()
            answer = json.loads(self.process.stdout.readline())
            if "error" in answer:
                raise AssertionError(f"{deed}{details}: {answer['error']}")
            return answer["value"]
        return do

    def close(self):
        self.process.stdin.close()
        self.process.wait(30)
        self.process.stdout.close()
        self.profile.cleanup()
