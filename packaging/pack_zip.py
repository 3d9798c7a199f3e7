#!/usr/bin/env python3
"""Packs a folder into a zip file that depends on nothing but names and bytes.

usage: pack_zip.py OUT.zip FOLDER SECONDS   (every file gets this time, in seconds since 1970)
"""

import sys
import time
import zipfile
from pathlib import Path

FIRST_YEAR = 1980  # that a zip file can tell
ORDINARY_FILE = 0o100644


def pack(out, folder, seconds):
    moment = max(time.gmtime(seconds)[:6], (FIRST_YEAR, 1, 1, 0, 0, 0))
    with zipfile.ZipFile(out, "w") as archive:
        for path in sorted(path for path in folder.rglob("*") if path.is_file()):
            info = zipfile.ZipInfo(f"{folder.name}/{path.relative_to(folder).as_posix()}", moment)
            info.compress_type = zipfile.ZIP_DEFLATED
            info.create_system = 0  # so that nothing tells on which system it was packed
            info.external_attr = ORDINARY_FILE << 16
            archive.writestr(info, path.read_bytes(), compresslevel=9)


def main(arguments):
    if len(arguments) != 3:
        sys.exit(__doc__.strip())
    pack(Path(arguments[0]), Path(arguments[1]), int(arguments[2]))


if __name__ == "__main__":
    main(sys.argv[1:])
