"""The core includes the standard library and its own rooms; the system's headers are platform's."""

from lint_checks.project import CORE, Result

TITLE = "no system headers in the core"
MEND = ("Ask platform/ for the operation, by a header for its concern, and put the system's call behind it "
        "in platform/posix and platform/win32.")

STANDARD = set("""
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes
    climits clocale cmath compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef
    cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem
    forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator latch
    limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random
    ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
    stop_token streambuf string string_view strstream syncstream system_error thread tuple type_traits
    typeindex typeinfo unordered_map unordered_set utility valarray variant vector version
""".split())

# Libraries that a room builds on by design.
LIBRARIES = {"cli/": ("CLI/", "nlohmann/")}


def is_allowed(path, name):
    if name in STANDARD:
        return True
    return any(path.startswith(room) and name.startswith(library)
               for room, libraries in LIBRARIES.items() for library in libraries)


def check(project):
    result = Result()
    for path in project.code():
        if not path.as_posix().startswith(CORE):
            continue
        result.checked += 1
        for number, mark, name in project.includes(path):
            if mark == "<" and not is_allowed(path.as_posix(), name):
                result.find(path, f"line {number}: <{name}> is neither the standard library's nor this room's")
    return result
