"""Takes in the tests of what only a program of this very system can show: terminals, locks, limits, signals.

This is the one place that decides what is run where: a Windows program is run with all other modules.
"""

from vmr import IS_NATIVE

NATIVE_MODULES = ["native_prompts", "native_streams", "native_locks", "native_limits", "native_process",
                  "native_clip"]


def load_tests(loader, tests, _pattern):
    if IS_NATIVE:
        tests.addTests(loader.loadTestsFromNames(NATIVE_MODULES))
    return tests
