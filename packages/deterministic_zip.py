#!/usr/bin/env python3
"""Makes a zip of a folder: the same files, the same bytes.

    deterministic_zip.py FOLDER ZIP SECONDS    every date is SECONDS since 1970, in UTC
"""
import pathlib
import sys
import time
import zipfile


def main():
    folder, target, seconds = pathlib.Path(sys.argv[1]), sys.argv[2], int(sys.argv[3])
    moment = time.gmtime(seconds)[:6]
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as packed:
        for path in sorted(folder.rglob("*")):
            if path.is_file():
                name = pathlib.PurePosixPath(folder.name, path.relative_to(folder).as_posix())
                entry = zipfile.ZipInfo(str(name), moment)
                entry.compress_type = zipfile.ZIP_DEFLATED
                entry.create_system = 3
                entry.external_attr = (0o100644 if path.suffix not in (".exe", ".dll") else 0o100755) << 16
                packed.writestr(entry, path.read_bytes())


if __name__ == "__main__":
    main()
