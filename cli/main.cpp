#include "cli/program.h"
#include "platform/terminal.h"

int main(int argc, char** argv) {
    platform::HardenProcess();
    return static_cast<int>(RunProgram(platform::CommandArguments(argc, argv)));
}
