// How long programs take from their start to their painted window, against one that only shows an empty
// window. All are started and looked at from here in the same way, in turn. They lie beside this program,
// which needs a display.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "tests/bench/median.h"
#include "tests/bench/process_start.h"

namespace {

struct Program {
    const char16_t* file;
    const char16_t* arguments;
    const char* name;
    double wanted;  // milliseconds above the bare window
    std::vector<Milliseconds> times{};
};

}  // namespace

int main() {
    constexpr int kRuns = 15;
    Program bare{u"bare_window.exe", u"--stay", "bare window", 0};
    Program programs[] = {{u"vaultmere.exe", u"", "vaultmere", 200}, {u"gallery.exe", u"", "gallery", 150}};
    bool good = true;
    const auto start = [&good](Program& program) {
        program.times.push_back(StartOf(program.file, program.arguments));
        good = good && program.times.back() >= 0;
    };
    for (int i = 0; i < kRuns && good; ++i) {
        start(bare);
        for (Program& program : programs)
            start(program);
    }
    if (!good) {
        std::puts("A program is not beside this one, or shows no window");
        return 1;
    }
    const double theirs = Median(bare.times);
    for (const Program& program : programs) {
        const double ours = Median(program.times);
        std::printf(
            "%s from start to painted window: %.0f ms; a bare window: %.0f ms; %.0f ms above it (%.0f "
            "wanted)\n",
            program.name, ours, theirs, ours - theirs, program.wanted);
    }
    return 0;
}
