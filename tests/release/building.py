"""Builds of what users get, for the tests. FOLDER is where they go."""

import functools
import os
import shutil
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FOLDER = Path(os.environ.get("FOLDER", ROOT / "build/release-test"))


@functools.cache
def release(name, *options):
    """Builds into a folder of its own and gives the files by their names."""
    out = FOLDER / name
    shutil.rmtree(FOLDER / f"{name}-build", ignore_errors=True)
    command = ["script/release", *options, str(out), str(FOLDER / f"{name}-build")]
    done = subprocess.run(command, cwd=ROOT, capture_output=True, text=True, timeout=1500, check=False)
    if done.returncode != 0:
        raise AssertionError(f"{command} ended with {done.returncode}\n{done.stdout}\n{done.stderr}")
    return {path.name: path.read_bytes() for path in out.iterdir()}


def first_release():
    """What the compiler's cache holds was compiled in another folder."""
    return release("first", "--cached")


def second_release():
    return release("second")
